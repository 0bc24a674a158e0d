// The static index over boxes: building, asking, and all crossings of random segments. Beside them
// what bounds a question from below: a walk over all boxes, and dependent reads from cold memory.

#include "geometry/box_index.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "geometry/angle.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/travel_segment.h"

namespace {

using qdr::Box;
using qdr::BoxIndex;

constexpr double kField = 1000.0;

/// Boxes over a square field, of a size at which a query of the same size meets about two.
std::vector<Box> fieldBoxes(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(0.0, kField);
  const double size = kField / std::sqrt(2.0 * static_cast<double>(count));
  std::vector<Box> boxes(count);
  for (Box& box : boxes) {
    const double x = place(random);
    const double y = place(random);
    box = {x, y, x + size, y + size};
  }
  return boxes;
}

void buildIndex(benchmark::State& state) {
  const std::vector<Box> boxes = fieldBoxes(static_cast<std::size_t>(state.range(0)), 1);
  for (auto _ : state)
    benchmark::DoNotOptimize(BoxIndex(boxes, BoxIndex::Order::hilbert));
}
BENCHMARK(buildIndex)->Arg(100)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void queryIndex(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const BoxIndex index(fieldBoxes(count, 1), BoxIndex::Order::hilbert);
  const std::vector<Box> areas = fieldBoxes(count, 2);
  std::size_t next = 0;
  std::size_t hits = 0;
  for (auto _ : state) {
    index.forEachOverlap(areas[next], [&](std::size_t i) {
      hits += i != 0;
      return true;
    });
    next = next + 1 < count ? next + 1 : 0;
  }
  state.counters["hits"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}
BENCHMARK(queryIndex)->Arg(100)->Arg(10000)->Arg(1000000);

/// The same question by a walk over every box.
void queryPlainly(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<Box> boxes = fieldBoxes(count, 1);
  const std::vector<Box> areas = fieldBoxes(count, 2);
  std::size_t next = 0;
  std::size_t hits = 0;
  for (auto _ : state) {
    for (const Box& box : boxes)
      hits += box.overlaps(areas[next]) ? 1 : 0;
    next = next + 1 < count ? next + 1 : 0;
  }
  state.counters["hits"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}
BENCHMARK(queryPlainly)->Arg(100)->Arg(10000)->Arg(1000000);

/// One read after another of so many bytes, each at a place that the one before names.
void readColdMemory(benchmark::State& state) {
  constexpr std::size_t kLine = 64 / sizeof(std::size_t);
  const std::size_t lines = static_cast<std::size_t>(state.range(0)) / 64;
  std::vector<std::size_t> order(lines);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), std::mt19937(4));
  std::vector<std::size_t> next(lines * kLine);
  for (std::size_t i = 0; i < lines; ++i)
    next[order[i] * kLine] = order[(i + 1) % lines] * kLine;
  std::size_t place = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(place = next[place]);
}
BENCHMARK(readColdMemory)->Arg(1 << 19)->Arg(1 << 24)->Arg(1 << 26);

/// Segments with midpoints over the field and a length of 2000 / sqrt(count).
std::vector<qdr::TravelSegment> randomSegments(std::size_t count, bool withArcs) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(0.0, kField);
  std::uniform_real_distribution<double> direction(0.0, qdr::kPi);
  const double half = 1000.0 / std::sqrt(static_cast<double>(count));
  std::vector<qdr::TravelSegment> segments(count);
  for (std::size_t i = 0; i < count; ++i) {
    const qdr::Vec middle(place(random), place(random));
    const qdr::Vec arm = qdr::Vec(direction(random)) * half;
    const double bulge = withArcs && i % 2 == 0 ? 0.3 : 0.0;
    segments[i] = qdr::makeSegment(middle - arm, middle + arm, bulge);
  }
  return segments;
}

void crossSegments(benchmark::State& state, bool withArcs) {
  const auto segments = randomSegments(static_cast<std::size_t>(state.range(0)), withArcs);
  std::size_t crossings = 0;
  for (auto _ : state) {
    crossings = qdr::allMeetings(segments).size();
  }
  state.counters["crossings"] = static_cast<double>(crossings);
}
BENCHMARK_CAPTURE(crossSegments, lines, false)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(crossSegments, half_arcs, true)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
