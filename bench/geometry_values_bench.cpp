#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

// The inner steps of every curve: transforming points and crossing lines and arcs. Beside each the
// plain arithmetic that it cannot do without, over bare doubles, in the same run.

namespace {

constexpr double kTol = qdr::kCurveTolerance;

std::mt19937 engine(7);

double between(double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(engine);
}

CQdrGePoint2d somePoint() {
  return {between(-10, 10), between(-10, 10)};
}

CQdrGeLine2d someLine() {
  return {somePoint(), somePoint()};
}

CQdrGeCircArc2d someArc() {
  return {somePoint(), between(1, 12), between(0, qdr::kTwoPi), between(0, qdr::kTwoPi)};
}

template <class Make>
auto many(std::size_t count, Make make) {
  std::vector<decltype(make())> all;
  all.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    all.push_back(make());
  return all;
}

void perItem(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

CQdrGeMatrix2d someMatrix() {
  // A turn keeps the values within bounds however often it runs.
  return CQdrGeMatrix2d::rotation(0.3, {1, 2});
}

void pointsTransformed(benchmark::State& state) {
  auto points = many(static_cast<std::size_t>(state.range(0)), somePoint);
  const CQdrGeMatrix2d m = someMatrix();
  for (auto _ : state) {
    for (CQdrGePoint2d& p : points)
      p.transformBy(m);
    benchmark::ClobberMemory();
  }
  perItem(state);
}

struct BarePoint {
  double x, y;
};

void barePointsTransformed(benchmark::State& state) {
  auto points = many(static_cast<std::size_t>(state.range(0)), [] {
    return BarePoint{between(-10, 10), between(-10, 10)};
  });
  const CQdrGeMatrix2d m = someMatrix();
  const double a = m(0, 0), b = m(0, 1), c = m(0, 2), d = m(1, 0), e = m(1, 1), f = m(1, 2);
  for (auto _ : state) {
    for (BarePoint& p : points)
      p = {a * p.x + b * p.y + c, d * p.x + e * p.y + f};
    benchmark::ClobberMemory();
  }
  perItem(state);
}

// The crossing of two infinite lines and the test of both parameters: what no form of the
// operation can leave out.
void bareLinesCrossed(benchmark::State& state) {
  struct Segment {
    double x, y, dx, dy;
  };
  const auto lines = many(static_cast<std::size_t>(state.range(0)) + 1, [] {
    return Segment{between(-10, 10), between(-10, 10), between(-10, 10), between(-10, 10)};
  });
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
      const Segment &a = lines[i - 1], &b = lines[i];
      const double turn = a.dx * b.dy - a.dy * b.dx;
      const double px = a.x - b.x, py = a.y - b.y;
      const double t = (b.dx * py - b.dy * px) / turn, u = (a.dx * py - a.dy * px) / turn;
      if (t >= 0 && t <= 1 && u >= 0 && u <= 1) sum += a.x + a.dx * t;
    }
    benchmark::DoNotOptimize(sum);
  }
  perItem(state);
}

void linesCrossed(benchmark::State& state) {
  const auto lines = many(static_cast<std::size_t>(state.range(0)) + 1, someLine);
  for (auto _ : state) {
    int hits = 0;
    CQdrGePoint2d hit;
    for (std::size_t i = 1; i < lines.size(); ++i)
      hits += lines[i - 1].intersectWith(lines[i], hit, CQdrGeEntity2d::kExtendNone, kTol);
    benchmark::DoNotOptimize(hits);
  }
  perItem(state);
}

// One square root for the circle and one direction for each hit.
void bareArcsCrossed(benchmark::State& state) {
  const auto arcs = many(static_cast<std::size_t>(state.range(0)) + 1, someArc);
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t i = 1; i < arcs.size(); ++i) {
      const double x = arcs[i].center().x - arcs[i - 1].center().x;
      const double y = arcs[i].center().y - arcs[i - 1].center().y;
      const double r1 = arcs[i - 1].radius(), r2 = arcs[i].radius();
      const double squared = x * x + y * y;
      const double a = (squared + r1 * r1 - r2 * r2) / (2 * squared);
      const double rest = r1 * r1 / squared - a * a;
      if (rest < 0) continue;
      const double reach = std::sqrt(rest);
      sum += std::atan2(a * y + reach * x, a * x - reach * y);
      sum += std::atan2(a * y - reach * x, a * x + reach * y);
    }
    benchmark::DoNotOptimize(sum);
  }
  perItem(state);
}

template <class Shape>
void arcsCrossedBy(benchmark::State& state, Shape make) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const auto shapes = many(count, make);
  const auto arcs = many(count, someArc);
  for (auto _ : state) {
    int hits = 0, found = 0;
    CQdrGePoint2d p1, p2;
    for (std::size_t i = 0; i < count; ++i) {
      found = 0;
      arcs[i].intersectWith(shapes[i], found, p1, p2, CQdrGeEntity2d::kExtendNone, kTol);
      hits += found;
    }
    benchmark::DoNotOptimize(hits);
  }
  perItem(state);
}

BENCHMARK(barePointsTransformed)->Arg(100)->Arg(10000)->Arg(1000000);
BENCHMARK(pointsTransformed)->Arg(100)->Arg(10000)->Arg(1000000);
BENCHMARK(bareLinesCrossed)->Arg(100)->Arg(10000)->Arg(1000000);
BENCHMARK(linesCrossed)->Arg(100)->Arg(10000)->Arg(1000000);
BENCHMARK(bareArcsCrossed)->Arg(100)->Arg(10000);
BENCHMARK_CAPTURE(arcsCrossedBy, lines, someLine)->Arg(100)->Arg(10000);
BENCHMARK_CAPTURE(arcsCrossedBy, arcs, someArc)->Arg(100)->Arg(10000);

}  // namespace
