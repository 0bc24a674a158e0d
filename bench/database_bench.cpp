// Adding entities to a drawing and taking them out, beside the least that six ordered containers of
// the same size cost. Times are processor time an iteration; `exponent` is the growth since the row
// above: 1 is linear.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <memory>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "database/database.h"
#include "entities/line.h"

namespace {

/// Bytes that the heap has handed out, its own overhead included.
double heapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// Processor time between start and stop, for manual timing.
class Stopwatch {
 public:
  void start() { m_begin = std::clock(); }
  void stop(benchmark::State& state) {
    const double seconds = static_cast<double>(std::clock() - m_begin) / CLOCKS_PER_SEC;
    state.SetIterationTime(seconds);
    m_total += seconds;
  }
  double total() const { return m_total; }

 private:
  std::clock_t m_begin = 0;
  double m_total = 0.0;
};

/// Cost of two rows of one benchmark. A row runs several times, to find how often is enough.
struct Growth {
  struct Row {
    double count = 0.0;
    double seconds = 0.0;
  };
  Row before;
  Row current;
};

void report(benchmark::State& state, const Stopwatch& watch, Growth& growth) {
  const Growth::Row row{static_cast<double>(state.range(0)),
                        watch.total() / static_cast<double>(state.iterations())};
  if (row.count > growth.current.count) growth.before = growth.current;
  growth.current = row;
  const Growth::Row& before = growth.before;
  if (before.count > 0.0)
    state.counters["exponent"] =
        std::log(row.seconds / before.seconds) / std::log(row.count / before.count);
  state.counters["ns/entity"] = row.seconds * 1e9 / row.count;
}

CQdrDbLine* makeLine(CQdrDbDatabase& database, int i) {
  const double x = i % 1000;
  const double y = i / 1000;  // rows of a thousand
  auto* line = new CQdrDbLine(&database);
  line->set(CQdrGePoint2d(x, y), CQdrGePoint2d(x + 1.0, y + 1.0));
  return line;
}

void addLines(CQdrDbDatabase& database, int count) {
  for (int i = 0; i < count; ++i) {
    CQdrDbObjectId id;
    database.addEntity(makeLine(database, i), id);
  }
}

std::vector<CQdrDbEntity*> shuffledEntities(CQdrDbDatabase& database) {
  static std::mt19937 random(1);
  std::vector<CQdrDbEntity*> entities = database.m_blockTable.getCurrentRecord()->ownedEntities();
  std::shuffle(entities.begin(), entities.end(), random);
  return entities;
}

void addEntities(benchmark::State& state) {
  static Growth growth;
  const int count = static_cast<int>(state.range(0));
  Stopwatch watch;
  double bytes = 0.0;
  for (auto _ : state) {
    CQdrDbDatabase database(true);
    const double before = heapBytes();
    watch.start();
    addLines(database, count);
    watch.stop(state);
    bytes = heapBytes() - before;
  }
  report(state, watch, growth);
  state.counters["bytes/entity"] = bytes / count;
}

// In a random order: the worst that a selection can ask for.
void removeEntities(benchmark::State& state) {
  static Growth growth;
  Stopwatch watch;
  for (auto _ : state) {
    CQdrDbDatabase database(true);
    addLines(database, static_cast<int>(state.range(0)));
    const std::vector<CQdrDbEntity*> entities = shuffledEntities(database);
    watch.start();
    for (CQdrDbEntity* entity : entities)
      database.removeEntity(entity);
    watch.stop(state);
    for (CQdrDbEntity* entity : entities)
      delete entity;
  }
  report(state, watch, growth);
}

// Deletes every entity and takes it out of all that names it.
void clearBlock(benchmark::State& state) {
  static Growth growth;
  Stopwatch watch;
  for (auto _ : state) {
    CQdrDbDatabase database(true);
    addLines(database, static_cast<int>(state.range(0)));
    watch.start();
    database.m_blockTable.getCurrentRecord()->ClearEntity();
    watch.stop(state);
  }
  report(state, watch, growth);
}

using Entry = std::pair<std::uint64_t, void*>;
using SixSets = std::array<std::set<Entry>, 6>;

// One heap object an entity and its entry in six sets, compared by a number inside the set.
void plainContainersAdd(benchmark::State& state) {
  static Growth growth;
  const int count = static_cast<int>(state.range(0));
  Stopwatch watch;
  double bytes = 0.0;
  for (auto _ : state) {
    const double before = heapBytes();
    std::vector<std::unique_ptr<char[]>> objects;
    SixSets sets;
    watch.start();
    for (int i = 0; i < count; ++i) {
      objects.push_back(std::make_unique<char[]>(sizeof(CQdrDbLine)));
      for (std::set<Entry>& set : sets)
        set.emplace_hint(set.end(), static_cast<std::uint64_t>(i), objects.back().get());
    }
    watch.stop(state);
    bytes = heapBytes() - before;
  }
  report(state, watch, growth);
  state.counters["bytes/entity"] = bytes / count;
}

void plainContainersErase(benchmark::State& state) {
  static Growth growth;
  std::mt19937 random(1);
  Stopwatch watch;
  for (auto _ : state) {
    std::vector<Entry> entries;
    SixSets sets;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      entries.emplace_back(static_cast<std::uint64_t>(i), nullptr);
      for (std::set<Entry>& set : sets)
        set.insert(set.end(), entries.back());
    }
    std::shuffle(entries.begin(), entries.end(), random);
    watch.start();
    for (const Entry& entry : entries)
      for (std::set<Entry>& set : sets)
        set.erase(entry);
    watch.stop(state);
  }
  report(state, watch, growth);
}

#define QDR_GROWTH(function)                                                           \
  BENCHMARK(function)->Arg(1000)->Arg(100'000)->Arg(1'000'000)->UseManualTime()->Unit( \
      benchmark::kMillisecond)

QDR_GROWTH(addEntities);
QDR_GROWTH(plainContainersAdd);
QDR_GROWTH(removeEntities);
QDR_GROWTH(plainContainersErase);
QDR_GROWTH(clearBlock);

}  // namespace
