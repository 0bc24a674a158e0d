// Redraw of many lines, a pick, a window, and a mouse move in a tracker; beside the redraw, a plain
// loop through the same virtual Draw.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <random>

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/line.h"
#include "interaction/trackers/line_tracker.h"
#include "platform/device_context.h"
#include "platform/headless/headless_platform.h"
#include "platform/software_raster.h"
#include "platform/window.h"

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 800;

// A drawing of short lines spread over 12000 x 8000 units, seen whole in a window.
class Scene {
 public:
  explicit Scene(std::int64_t lines)
      : m_installed(m_platform.context()),
        m_peer(m_view, CSize(kWidth, kHeight)),
        m_raster(qdr::PixelBuffer::create(kWidth, kHeight)),
        m_dc(&m_raster),
        drawing(true) {
    _gpDatabase = &drawing;
    std::mt19937 random(1);
    std::uniform_real_distribution<> x(0.0, 12000.0);
    std::uniform_real_distribution<> y(0.0, 8000.0);
    std::uniform_real_distribution<> step(-40.0, 40.0);
    for (std::int64_t i = 0; i < lines; ++i) {
      const CQdrGePoint2d start(x(random), y(random));
      CQdrDbObjectId id;
      drawing.addEntity(new CQdrDbLine(start, start + CQdrGeVector2d(step(random), step(random))),
                        id);
    }
    drawing.m_vars.limitsMin.set(-100.0, -100.0);
    drawing.m_vars.limitsMax.set(12100.0, 8100.0);
    drawing.m_commandHandler.SetDatabase(&drawing);
    drawing.m_commandHandler.SetDispWindow(&m_view);
    m_platform.script.setView(&m_view, &m_peer);
    record().setView(&m_view, &m_dc);
    record().ZoomAll();
    record().MakeUpDisplayWindow(&m_dc);
    record().Draw(&m_dc);
  }

  ~Scene() {
    drawing.m_commandHandler.ClearTracker(true);
    record().setView(nullptr, nullptr);
    _gpDatabase = nullptr;
  }

  CQdrDbDisplayTableRecord& record() { return *drawing.m_displayTable.getCurrentRecord(); }
  CDC& dc() { return m_dc; }
  CWnd& view() { return m_view; }
  qdr::ScriptedInput& script() { return m_platform.script; }

 private:
  qdr::HeadlessPlatform m_platform;
  qdr::ScopedPlatform m_installed;
  CView m_view;
  qdr::HeadlessWindow m_peer;
  qdr::SoftwareRaster m_raster;
  CDC m_dc;

 public:
  CQdrDbDatabase drawing;
};

void redraw(benchmark::State& state) {
  Scene scene(state.range(0));
  for (auto _ : state)
    scene.record().Draw(&scene.dc());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// A hundredth of the picture: what lies outside is not looked at.
void redrawZoomed(benchmark::State& state) {
  Scene scene(state.range(0));
  scene.record().ScaleUpDown(&scene.dc(), CPoint(kWidth / 2, kHeight / 2), 0.1);
  for (auto _ : state)
    scene.record().Draw(&scene.dc());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The limit: each entity's Draw in turn, with no buffer and no view.
void plainLoop(benchmark::State& state) {
  Scene scene(state.range(0));
  std::vector<CQdrDbEntity*> entities;
  for (const CQdrDbObjectId& id : scene.record().getDisplayedIdSet())
    entities.push_back(qdr::asEntity(id));
  for (auto _ : state)
    for (CQdrDbEntity* entity : entities)
      entity->Draw(&scene.dc());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The same lines without entities: the raster alone.
void rasterAlone(benchmark::State& state) {
  Scene scene(state.range(0));
  std::vector<CPoint> ends;
  for (const CQdrDbObjectId& id : scene.record().getDisplayedIdSet()) {
    const auto* const line = static_cast<CQdrDbLine*>(qdr::asEntity(id));
    ends.emplace_back(qdr::truncToInt(line->StartPoint().x * 100.0),
                      qdr::truncToInt(line->StartPoint().y * 100.0));
    ends.emplace_back(qdr::truncToInt(line->EndPoint().x * 100.0),
                      qdr::truncToInt(line->EndPoint().y * 100.0));
  }
  CPen pen(PS_SOLID, 0, 0xffffff);
  CPen* const former = scene.dc().SelectObject(&pen);
  for (auto _ : state)
    for (std::size_t i = 0; i < ends.size(); i += 2) {
      scene.dc().MoveTo(ends[i]);
      scene.dc().LineTo(ends[i + 1]);
    }
  scene.dc().SelectObject(former);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void pick(benchmark::State& state) {
  Scene scene(state.range(0));
  std::mt19937 random(2);
  std::uniform_int_distribution<> x(0, kWidth - 1);
  std::uniform_int_distribution<> y(0, kHeight - 1);
  scene.record().ScaleUpDown(&scene.dc(), CPoint(kWidth / 2, kHeight / 2), 0.1);
  CQdrDbObjectId id;
  for (auto _ : state)
    benchmark::DoNotOptimize(scene.record().selectEntity(CPoint(x(random), y(random)), id));
}

void mouseMove(benchmark::State& state) {
  Scene scene(state.range(0));
  auto* const line =
      static_cast<CQdrDbLine*>(qdr::asEntity(*scene.record().getDisplayedIdSet().begin()));
  scene.drawing.m_commandHandler.DoDragEntity(line, CPoint());
  CQdrDbEntityTracker& tracker = *scene.drawing.m_commandHandler.trackers().front();
  const CPoint grip = scene.record().GetDecivePoint(line->EndPoint());
  constexpr int kMoves = 100;
  for (auto _ : state) {
    for (int i = 0; i < kMoves; ++i)
      scene.script().move(100 + i * 5, 100 + i % 7);
    scene.script().key(VK_ESCAPE);
    tracker.Track(&scene.view(), grip, 2);
  }
  state.SetItemsProcessed(state.iterations() * kMoves);
}

BENCHMARK(redraw)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(plainLoop)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(rasterAlone)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(redrawZoomed)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(pick)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(mouseMove)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
