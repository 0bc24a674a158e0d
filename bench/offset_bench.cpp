// Offsets of long chains: cost per vertex, and how it grows from ten vertices to fifty thousand.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "geometry/angle.h"
#include "geometry/polyline2d.h"

namespace {

struct Shape {
  CQdrGePolyline2d polyline;
  CQdrGePoint2d side;
};

/// A closed star: radius n / pi, one unit more at even vertices and one less at odd ones.
Shape star(int n) {
  Shape shape;
  const double radius = n / qdr::kPi;
  for (int k = 0; k < n; ++k) {
    const double r = radius + (k % 2 == 0 ? 1.0 : -1.0);
    const double angle = qdr::kTwoPi * k / n;
    shape.polyline.appendVertex({r * std::cos(angle), r * std::sin(angle)});
  }
  shape.polyline.setClosed(true);
  return shape;
}

/// A closed comb: teeth of 2.4 x 25 units on a back of 4, each with a head 1.2 units wider.
Shape comb(int n) {
  constexpr int kVerticesPerTooth = 8;
  constexpr double kPitch = 6.0;
  const int teeth = std::max(1, (n - 2) / kVerticesPerTooth);
  Shape shape;
  for (int k = 0; k < teeth; ++k) {
    const double x = k * kPitch;
    const double profile[kVerticesPerTooth][2] = {{0.0, 0.0},   {0.0, 20.0}, {-0.6, 20.0},
                                                  {-0.6, 25.0}, {3.0, 25.0}, {3.0, 20.0},
                                                  {2.4, 20.0},  {2.4, 0.0}};
    for (const auto& p : profile)
      shape.polyline.appendVertex({x + p[0], p[1]});
  }
  shape.polyline.appendVertex({teeth * kPitch, -4.0});
  shape.polyline.appendVertex({-kPitch, -4.0});
  shape.polyline.setClosed(true);
  shape.side.set(teeth * kPitch / 2.0, -3.9);
  return shape;
}

/// An open zigzag of two units a step, one unit up and down.
Shape sawtooth(int n) {
  Shape shape;
  for (int k = 0; k < n; ++k)
    shape.polyline.appendVertex({2.0 * k, k % 2 == 0 ? 1.0 : -1.0});
  shape.side.set(n, 5.0);
  return shape;
}

/// A closed band along a spiral: out on one side, back on the other, 2 units wide, 5 units a turn.
Shape spiralBand(int n) {
  constexpr double kPitch = 5.0;
  constexpr double kWidth = 2.0;
  const int half = n / 2;
  Shape shape;
  const auto add = [&](int k, double shift) {
    // Equal steps of about one unit along the spiral: arc length grows with the square of the turn.
    const double angle = std::sqrt(2.0 * qdr::kTwoPi * (k + 10.0) / kPitch);
    const double r = kPitch * angle / qdr::kTwoPi + shift;
    shape.polyline.appendVertex({r * std::cos(angle), r * std::sin(angle)});
  };
  for (int k = 0; k < half; ++k)
    add(k, 0.0);
  for (int k = half - 1; k >= 0; --k)
    add(k, kWidth);
  shape.polyline.setClosed(true);
  return shape;
}

/// An open chain of random chords of a square of side 100: about n * n / 9 crossings.
Shape chords(int n) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(0.0, 100.0);
  Shape shape;
  for (int k = 0; k < n; ++k) {
    const double x = place(random);
    shape.polyline.appendVertex({x, place(random)});
  }
  return shape;
}

using Maker = Shape (*)(int);

void withArcs(CQdrGePolyline2d& polyline) {
  constexpr double kBulge = 0.3;
  for (int i = 0; i < polyline.numVerts(); ++i)
    polyline.setBulgeAt(i, i % 2 == 0 ? kBulge : -kBulge);
}

void offsetShape(benchmark::State& state, Maker make, double distance, bool arcs) {
  const int n = static_cast<int>(state.range(0));
  Shape shape = make(n);
  if (arcs) withArcs(shape.polyline);
  std::size_t pieces = 0;
  for (auto _ : state) {
    std::vector<void*> result;
    shape.polyline.offset(shape.side, distance, result, false);
    pieces = result.size();
    for (void* piece : result)
      std::unique_ptr<CQdrGePolyline2d>(static_cast<CQdrGePolyline2d*>(piece));
  }
  state.counters["pieces"] = static_cast<double>(pieces);
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMicrosecond);
}

#define QDR_OFFSET(name, maker, distance)                                             \
  BENCHMARK_CAPTURE(offsetShape, name##_lines, maker, distance, false)->Apply(sizes); \
  BENCHMARK_CAPTURE(offsetShape, name##_arcs, maker, distance, true)->Apply(sizes)

QDR_OFFSET(star_near, star, 0.1);
QDR_OFFSET(star_far, star, 3.0);
QDR_OFFSET(comb_near, comb, 0.5);
QDR_OFFSET(comb_pieces, comb, 1.3);
QDR_OFFSET(sawtooth_far, sawtooth, 3.0);
QDR_OFFSET(spiral_near, spiralBand, 0.5);
QDR_OFFSET(spiral_far, spiralBand, 1.2);

void crossingSizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(100)->Arg(300)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(offsetShape, chords_lines, chords, 0.1, false)->Apply(crossingSizes);
BENCHMARK_CAPTURE(offsetShape, chords_arcs, chords, 0.1, true)->Apply(crossingSizes);

}  // namespace
