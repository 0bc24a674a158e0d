// What one entity costs when views and commands walk over all of them: its pen, its drawing without
// a surface, grips, box, hit test and copy, and a batch on the undo log. Items are entities.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "entities/drawn_box.h"
#include "entities/line.h"
#include "platform/device_context.h"

namespace {

struct Drawing {
  explicit Drawing(std::int64_t count) {
    CQdrDbObjectId id;
    for (std::int64_t i = 0; i < count; ++i) {
      const auto x = static_cast<double>(i);
      auto line = std::make_unique<CQdrDbLine>(CQdrGePoint2d(x, 0.0), CQdrGePoint2d(x, 5.0));
      line->setDatabase(&database);
      line->SetEntProperty();
      entities.push_back(line.get());
      database.addEntity(line.release(), id);
    }
  }

  CQdrDbDatabase database{false};
  std::vector<CQdrDbEntity*> entities;
};

template <class Visit>
void walk(benchmark::State& state, const Visit& visit) {
  const Drawing drawing(state.range(0));
  for (auto _ : state)
    for (CQdrDbEntity* entity : drawing.entities)
      visit(*entity);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void pen(benchmark::State& state) {
  CDC dc;
  walk(state, [&dc](CQdrDbEntity& entity) {
    CPen* former = entity.setPen(&dc);
    entity.RemovePen(&dc, former);
  });
}

void draw(benchmark::State& state) {
  CDC dc;
  walk(state, [&dc](CQdrDbEntity& entity) { entity.Draw(&dc); });
}

void grips(benchmark::State& state) {
  walk(state, [](CQdrDbEntity& entity) { entity.setGripPoints(); });
}

void box(benchmark::State& state) {
  walk(state, [](CQdrDbEntity& entity) { benchmark::DoNotOptimize(qdr::drawnBox(entity)); });
}

void hit(benchmark::State& state) {
  walk(state, [](CQdrDbEntity& entity) { benchmark::DoNotOptimize(entity.isOn({1.0, 1.0}, 0.1)); });
}

void copy(benchmark::State& state) {
  walk(state, [](CQdrDbEntity& entity) { delete entity.CopyEntity(); });
}

// One user action over all entities: recorded, undone and done again.
void batch(benchmark::State& state) {
  Drawing drawing(state.range(0));
  CQdrUndoHandler& undo = drawing.database.m_undoHandler;
  for (auto _ : state) {
    for (CQdrDbEntity* entity : drawing.entities) {
      tagUndoEditEntity record;
      record.continued = entity == drawing.entities.front() ? 0 : 1;
      record.operation = qdr::kUndoMoved;
      record.entityId = entity;
      record.vector = QdrXY(1.0, 0.0);
      undo.AddUndo(record);
    }
    undo.Undo();
    undo.Redo();
    undo.m_undoList.clear();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(100)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(pen)->Apply(sizes);
BENCHMARK(draw)->Apply(sizes);
BENCHMARK(grips)->Apply(sizes);
BENCHMARK(box)->Apply(sizes);
BENCHMARK(hit)->Apply(sizes);
BENCHMARK(copy)->Apply(sizes);
BENCHMARK(batch)->Apply(sizes);

}  // namespace
