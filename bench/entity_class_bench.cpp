// What an entity of each class costs to draw, without a surface, onto the recorder and onto the
// raster, to box, to pick and to save; beside each a plain loop over as many chords or bytes. The
// counters are seconds for one entity and for one of its elements: chords, vertices, spokes.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/box.h"
#include "entities/circle.h"
#include "entities/cobweb.h"
#include "entities/cspline.h"
#include "entities/display_units.h"
#include "entities/drawn_box.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/line.h"
#include "entities/point.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "entities/spiral.h"
#include "entities/spline.h"
#include "platform/device_context.h"
#include "platform/headless/memory_file.h"
#include "platform/headless/recording_surface.h"
#include "platform/software_raster.h"

namespace {

constexpr int kSide = 1000;  // pixels of the picture, and world units
constexpr int kEntities = 500;
constexpr double kRadius = 20.0;
constexpr int kVertices = 20;
constexpr int kWings = 12;

using Points = std::vector<CQdrGePoint2d>;

Points ring(const CQdrGePoint2d& center, int count) {
  Points points;
  for (int i = 0; i < count; ++i) {
    const CQdrGeVector2d spoke(i * 2.0 * std::numbers::pi / count);
    points.push_back(center + spoke * (i % 2 == 0 ? kRadius : 0.8 * kRadius));
  }
  return points;
}

CQdrDbEntity* makePolyline(const CQdrGePoint2d& at, double bulge) {
  auto polyline = std::make_unique<CQdrDbPolyline>();
  for (const CQdrGePoint2d& point : ring(at, kVertices))
    polyline->AppendVertex(point, bulge, -1.0, -1.0);
  polyline->SetClosed(true);
  return polyline.release();
}

CQdrDbEntity* makeSpline(const CQdrGePoint2d& at) {
  auto spline = std::make_unique<CQdrDbSpline>(0.49);
  spline->SetCtrlVertexes(ring(at, kVertices));
  return spline.release();
}

struct ClassRow {
  const char* name;
  int elements;
  CQdrDbEntity* (*make)(const CQdrGePoint2d& at);
};

const CQdrGeVector2d kReach(kRadius, 0.0);

const ClassRow kClasses[] = {
    {"line", 1, [](auto& at) -> CQdrDbEntity* { return new CQdrDbLine(at, at + kReach); }},
    {"arc", 1, [](auto& at) -> CQdrDbEntity* { return new CQdrDbArc(at, kRadius, 0.5, 4.0); }},
    {"circle", 1, [](auto& at) -> CQdrDbEntity* { return new CQdrDbCircle(at, kRadius); }},
    {"rect", 4, [](auto& at) -> CQdrDbEntity* { return new CQdrDbRect(at - kReach, at + kReach); }},
    {"box", 4, [](auto& at) -> CQdrDbEntity* { return new CQdrDbBox(at, kRadius, kRadius, 0.3); }},
    {"point", 1, [](auto& at) -> CQdrDbEntity* { return new CQdrDbPoint(at); }},
    {"ellipse", 100, [](auto& at) -> CQdrDbEntity* { return new CQdrDbEllipse(at, kReach, 0.5); }},
    {"ellipsearc", 100,
     [](auto& at) -> CQdrDbEntity* { return new CQdrDbEllipseArc(at, kReach, 0.5, 0.5, 6.0); }},
    {"polyline", kVertices, [](auto& at) { return makePolyline(at, 0.0); }},
    {"arcpolyline", kVertices, [](auto& at) { return makePolyline(at, 0.2); }},
    {"spline", kVertices, makeSpline},
    {"cspline", kVertices,
     [](auto& at) -> CQdrDbEntity* { return new CQdrDbCSpline(ring(at, kVertices)); }},
    {"spiral", 360,
     [](auto& at) -> CQdrDbEntity* {
       return new CQdrDbSpiral(72, at, kRadius, 0.5, 4.0, 0.0, 1.0);
     }},
    {"cobweb", kWings + 2,
     [](auto& at) -> CQdrDbEntity* {
       return new CQdrDbCobweb(at, 0.4 * kRadius, kRadius, kWings, 0.1);
     }},
};

// Entities of one class spread over the picture, and as many chords for the plain loops.
struct Scene {
  explicit Scene(const ClassRow& row) : drawing(false) {
    for (int i = 0; i < kEntities; ++i) {
      const CQdrGePoint2d at(30.0 + 37 * i % 940, 30.0 + 61 * i % 940);
      CQdrDbEntity* const entity = row.make(at);
      CQdrDbObjectId id;
      drawing.addEntity(entity, id);
      entities.push_back(entity);
      chords.push_back(ring(at, row.elements));
    }
  }

  CQdrDbDatabase drawing;
  std::vector<CQdrDbEntity*> entities;
  std::vector<Points> chords;
};

void count(benchmark::State& state, const ClassRow& row) {
  const auto kSeconds = benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert;
  state.counters["entity"] = benchmark::Counter(kEntities, kSeconds);
  state.counters["element"] = benchmark::Counter(kEntities * row.elements, kSeconds);
}

// A picture of one pixel a unit, y upward, as a view maps it.
struct Picture {
  Picture() : pixels(qdr::PixelBuffer::create(kSide, kSide)), raster(pixels), dc(&raster) {
    map(dc);
  }
  static void map(CDC& dc) {
    dc.SetMapMode(MM_ISOTROPIC);
    dc.SetWindowExt(static_cast<int>(kSide * _dDispScale), static_cast<int>(kSide * _dDispScale));
    dc.SetViewportOrg(0, kSide);
    dc.SetViewportExt(kSide, -kSide);
  }
  std::shared_ptr<qdr::PixelBuffer> pixels;
  qdr::SoftwareRaster raster;
  CDC dc;
};

void drawNull(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  CDC dc;
  for (auto _ : state)
    for (CQdrDbEntity* entity : scene.entities)
      entity->Draw(&dc);
  count(state, row);
}

void drawRecorder(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  for (auto _ : state) {
    qdr::RecordingSurface recorder(CSize(kSide, kSide));
    CDC dc(&recorder);
    Picture::map(dc);
    for (CQdrDbEntity* entity : scene.entities)
      entity->Draw(&dc);
  }
  count(state, row);
}

void drawRaster(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  Picture picture;
  for (auto _ : state)
    for (CQdrDbEntity* entity : scene.entities)
      entity->Draw(&picture.dc);
  count(state, row);
}

// Steps along the longer side and rounds the other: as many chords, no clip, no pen, no mapping.
void plainChord(qdr::Pixel* pixels, const CQdrGePoint2d& from, const CQdrGePoint2d& to) {
  const int dx = static_cast<int>(to.x) - static_cast<int>(from.x);
  const int dy = static_cast<int>(to.y) - static_cast<int>(from.y);
  const int steps = std::max({std::abs(dx), std::abs(dy), 1});
  int x = static_cast<int>(from.x) << 16;
  int y = static_cast<int>(from.y) << 16;
  for (int i = 0; i < steps; ++i) {
    pixels[(y >> 16) * kSide + (x >> 16)] = 0xff40c0ff;
    x += (dx << 16) / steps;
    y += (dy << 16) / steps;
  }
}

void drawPlain(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  std::vector<qdr::Pixel> pixels(kSide * kSide);
  for (auto _ : state) {
    for (const Points& chords : scene.chords)
      for (std::size_t i = 0; i < chords.size(); ++i)
        plainChord(pixels.data(), chords[i], chords[(i + 1) % chords.size()]);
    benchmark::DoNotOptimize(pixels.data());
  }
  count(state, row);
}

void box(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  for (auto _ : state)
    for (CQdrDbEntity* entity : scene.entities)
      benchmark::DoNotOptimize(qdr::drawnBox(*entity));
  count(state, row);
}

void boxPlain(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  for (auto _ : state) {
    for (const Points& chords : scene.chords) {
      QdrXY least(chords.front().x, chords.front().y);
      QdrXY most = least;
      for (const CQdrGePoint2d& point : chords) {
        least = QdrXY(std::min(least.x, point.x), std::min(least.y, point.y));
        most = QdrXY(std::max(most.x, point.x), std::max(most.y, point.y));
      }
      benchmark::DoNotOptimize(least);
      benchmark::DoNotOptimize(most);
    }
  }
  count(state, row);
}

// Beside all of them, but within their boxes: the whole entity is asked.
constexpr double kMiss = 0.11;
constexpr double kTolerance = 0.01;

void pick(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  for (auto _ : state) {
    for (std::size_t i = 0; i < scene.entities.size(); ++i) {
      const CQdrGePoint2d at = scene.chords[i].front() - CQdrGeVector2d(kMiss * kRadius, kMiss);
      benchmark::DoNotOptimize(scene.entities[i]->isOn(at, kTolerance));
    }
  }
  count(state, row);
}

double distanceToChord(const CQdrGePoint2d& p, const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double squared = dx * dx + dy * dy;
  const double t = squared > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / squared : 0.0;
  const double near = std::clamp(t, 0.0, 1.0);
  return std::hypot(a.x + near * dx - p.x, a.y + near * dy - p.y);
}

void pickPlain(benchmark::State& state, const ClassRow& row) {
  const Scene scene(row);
  for (auto _ : state) {
    for (const Points& chords : scene.chords) {
      const CQdrGePoint2d at = chords.front() - CQdrGeVector2d(kMiss * kRadius, kMiss);
      bool hit = false;
      for (std::size_t i = 0; i < chords.size() && !hit; ++i)
        hit = distanceToChord(at, chords[i], chords[(i + 1) % chords.size()]) < kTolerance;
      benchmark::DoNotOptimize(hit);
    }
  }
  count(state, row);
}

// In files so small that their memory is not what is measured.
constexpr std::size_t kPerFile = 25;

std::string saved(Scene& scene, std::size_t first) {
  qdr::MemoryFile file;
  scene.drawing.m_pFile = &file;
  for (std::size_t i = first; i < first + kPerFile; ++i)
    scene.entities[i]->save();
  scene.drawing.m_pFile = nullptr;
  file.Close();
  return file.bytes();
}

void save(benchmark::State& state, const ClassRow& row) {
  Scene scene(row);
  for (auto _ : state)
    for (std::size_t first = 0; first < kEntities; first += kPerFile)
      benchmark::DoNotOptimize(saved(scene, first));
  count(state, row);
}

void savePlain(benchmark::State& state, const ClassRow& row) {
  Scene scene(row);
  const std::string bytes = saved(scene, 0);
  const std::size_t each = bytes.size() / kPerFile;
  for (auto _ : state) {
    for (std::size_t first = 0; first < kEntities; first += kPerFile) {
      std::string copy;
      for (std::size_t i = 0; i < kPerFile; ++i)
        copy.append(bytes, i * each, each);
      benchmark::DoNotOptimize(copy.data());
    }
  }
  count(state, row);
}

struct Operation {
  const char* name;
  void (*run)(benchmark::State& state, const ClassRow& row);
};

const Operation kOperations[] = {
    {"draw_null", drawNull},
    {"draw_recorder", drawRecorder},
    {"draw_raster", drawRaster},
    {"draw_plain", drawPlain},
    {"box", box},
    {"box_plain", boxPlain},
    {"pick", pick},
    {"pick_plain", pickPlain},
    {"save", save},
    {"save_plain", savePlain},
};

const bool kRegistered = [] {
  for (const Operation& operation : kOperations)
    for (const ClassRow& row : kClasses)
      benchmark::RegisterBenchmark((std::string(operation.name) + "/" + row.name).c_str(),
                                   operation.run, row);
  return true;
}();

}  // namespace
