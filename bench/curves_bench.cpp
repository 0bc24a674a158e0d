// Curves as the screen and the mouse meet them: tessellation, closest point, inside test,
// crossings. Each is reported per vertex or sample, beside a plain loop that does the least such
// work could cost.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/cspline2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/spiral.h"
#include "geometry/spline.h"

namespace {

constexpr double kScale = 100.0;

CQdrGeEllipArc2d ellipse() {
  return {{10, 20}, CQdrGeVector2d(0.3), CQdrGeVector2d(0.3 + qdr::kHalfPi), 60, 40,
          0,        qdr::kTwoPi};
}

// A wavy ring of n vertices, every tenth segment an arc.
CQdrGePolyline2d ring(int n) {
  CQdrGePolyline2d result;
  result.setSize(n);
  for (int i = 0; i < n; ++i) {
    const double angle = i * qdr::kTwoPi / n;
    const CQdrGeVector2d out = CQdrGeVector2d(angle) * (1000 + 30 * std::sin(40 * angle));
    result.appendVertex(CQdrGePoint2d() + out, i % 10 == 0 ? 0.1 : 0.0);
  }
  result.setClosed(true);
  return result;
}

std::vector<CQdrGePoint2d> controlPoints(int n) {
  std::vector<CQdrGePoint2d> points;
  for (int i = 0; i < n; ++i)
    points.emplace_back(10.0 * i, 8.0 * std::sin(i * 0.7));
  return points;
}

void perItem(benchmark::State& state, double items) {
  state.counters["per_item"] = benchmark::Counter(
      items, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void TessellatePlainLoop(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  std::vector<CPoint> points;
  for (auto _ : state) {
    points.clear();
    points.reserve(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i <= n; ++i) {
      const double u = i * qdr::kTwoPi / n;
      points.emplace_back(qdr::truncToInt(60 * std::cos(u) * kScale),
                          qdr::truncToInt(40 * std::sin(u) * kScale));
    }
    benchmark::DoNotOptimize(points.data());
  }
  perItem(state, n);
}
BENCHMARK(TessellatePlainLoop)->Arg(100)->Arg(10000)->Arg(1000000);

void TessellateArc(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const CQdrGeCircArc2d circle({10, 20}, 60);
  std::vector<CPoint> points;
  for (auto _ : state) {
    circle.getGrVertexArray(points, n, kScale);
    benchmark::DoNotOptimize(points.data());
  }
  perItem(state, n);
}
BENCHMARK(TessellateArc)->Arg(100)->Arg(10000)->Arg(1000000);

void TessellateEllipse(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const CQdrGeEllipArc2d curve = ellipse();
  std::vector<CPoint> points;
  for (auto _ : state) {
    curve.getGrVertexArray(points, n, kScale);
    benchmark::DoNotOptimize(points.data());
  }
  perItem(state, n);
}
BENCHMARK(TessellateEllipse)->Arg(100)->Arg(10000)->Arg(1000000);

// What every setter and transform of an ellipse costs: its 50 arcs.
void RebuildEllipseChain(benchmark::State& state) {
  CQdrGeEllipArc2d curve = ellipse();
  for (auto _ : state) {
    curve.translateBy({0.001, 0});
    benchmark::DoNotOptimize(curve.polyline().points().data());
  }
  perItem(state, 50);
}
BENCHMARK(RebuildEllipseChain);

void SampleCubicSpline(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  CQdrGeCSpline2d spline(controlPoints(n));
  spline.setResolution(1.0);
  const std::vector<CQdrGePoint2d>* samples = nullptr;
  int count = 0;
  for (auto _ : state) {
    count = spline.getCurve(samples);
    benchmark::DoNotOptimize(samples->data());
  }
  perItem(state, count);
}
BENCHMARK(SampleCubicSpline)->Arg(10)->Arg(1000)->Arg(100000);

void FitSpline(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  CQdrGeSpline spline(controlPoints(n));
  for (auto _ : state) {
    spline.setGePolyline();
    benchmark::DoNotOptimize(spline.polyline().points().data());
  }
  perItem(state, n);
}
BENCHMARK(FitSpline)->Arg(100)->Arg(10000)->Arg(1000000);

void BuildSpiral(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  CQdrGeSpiral spiral(100, {0, 0}, n, 0, 100, 0);
  for (auto _ : state) {
    spiral.setGePolyline();
    benchmark::DoNotOptimize(spiral.polyline().points().data());
  }
  perItem(state, spiral.polyline().numVerts());
}
BENCHMARK(BuildSpiral)->Arg(100)->Arg(10000)->Arg(1000000);

void ClosestPointPlainLoop(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const CQdrGePoint2d probe(400, 300);
  for (auto _ : state) {
    double least = 1e300;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
      const CQdrGeVector2d way = points[i + 1] - points[i];
      const double t = (probe - points[i]).dotProduct(way) / way.lengthSqrd();
      const CQdrGePoint2d foot = points[i] + way * std::fmin(std::fmax(t, 0.0), 1.0);
      least = std::fmin(least, (foot - probe).lengthSqrd());
    }
    benchmark::DoNotOptimize(least);
  }
  perItem(state, static_cast<double>(points.size()));
}
BENCHMARK(ClosestPointPlainLoop)->Arg(100)->Arg(10000)->Arg(1000000);

void ClosestPointOnPolyline(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const CQdrGePoint2d probe(400, 300);
  for (auto _ : state) {
    benchmark::DoNotOptimize(chain.closestPointTo(probe, qdr::kCurveTolerance));
  }
  perItem(state, chain.numVerts());
}
BENCHMARK(ClosestPointOnPolyline)->Arg(100)->Arg(10000)->Arg(1000000);

void ClosestPointOnEllipse(benchmark::State& state) {
  const CQdrGeEllipArc2d curve = ellipse();
  const CQdrGePoint2d probe(30, 25);
  for (auto _ : state) {
    benchmark::DoNotOptimize(curve.closestPointTo(probe, qdr::kCurveTolerance));
  }
  perItem(state, 50);
}
BENCHMARK(ClosestPointOnEllipse);

void ClosestPointOnCubicSpline(benchmark::State& state) {
  CQdrGeCSpline2d spline(controlPoints(static_cast<int>(state.range(0))));
  spline.setResolution(1.0);
  CQdrGePolyline2d samples;
  spline.getGePolyline(samples);
  const CQdrGePoint2d probe(30, 25);
  for (auto _ : state) {
    benchmark::DoNotOptimize(spline.closestPointTo(probe, qdr::kCurveTolerance));
  }
  perItem(state, samples.numVerts());
}
BENCHMARK(ClosestPointOnCubicSpline)->Arg(10)->Arg(1000)->Arg(100000);

void InsidePlainLoop(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const CQdrGePoint2d probe(400, 300);
  for (auto _ : state) {
    bool isInside = false;
    for (std::size_t i = 0, j = points.size() - 1; i < points.size(); j = i++) {
      if ((points[i].y > probe.y) == (points[j].y > probe.y)) continue;
      const double slope = (points[j].x - points[i].x) / (points[j].y - points[i].y);
      if (probe.x < points[i].x + slope * (probe.y - points[i].y)) isInside = !isInside;
    }
    benchmark::DoNotOptimize(isInside);
  }
  perItem(state, static_cast<double>(points.size()));
}
BENCHMARK(InsidePlainLoop)->Arg(100)->Arg(10000)->Arg(1000000);

void InsidePolyline(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const CQdrGePoint2d probe(400, 300);
  for (auto _ : state)
    benchmark::DoNotOptimize(chain.isInsidePoint(probe));
  perItem(state, chain.numVerts());
}
BENCHMARK(InsidePolyline)->Arg(100)->Arg(10000)->Arg(1000000);

void InsideEllipse(benchmark::State& state) {
  const CQdrGeEllipArc2d curve = ellipse();
  const CQdrGePoint2d probe(30, 25);
  for (auto _ : state)
    benchmark::DoNotOptimize(curve.isInsidePoint(probe));
  perItem(state, 50);
}
BENCHMARK(InsideEllipse);

void CrossLinePlainLoop(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const CQdrGePoint2d origin(-2000, 200);
  const CQdrGeVector2d along(4000, 300);
  for (auto _ : state) {
    int changes = 0;
    bool wasLeft = false;
    for (const CQdrGePoint2d& point : points) {
      const CQdrGeVector2d off = point - origin;
      const bool isLeft = along.x * off.y > along.y * off.x;
      changes += isLeft != wasLeft ? 1 : 0;
      wasLeft = isLeft;
    }
    benchmark::DoNotOptimize(changes);
  }
  perItem(state, static_cast<double>(points.size()));
}
BENCHMARK(CrossLinePlainLoop)->Arg(100)->Arg(100000);

void CrossCirclePlainLoop(benchmark::State& state) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const CQdrGePoint2d center(900, 200);
  for (auto _ : state) {
    int changes = 0;
    bool wasInside = false;
    for (const CQdrGePoint2d& point : points) {
      const bool isInside = (point - center).lengthSqrd() < 500.0 * 500.0;
      changes += isInside != wasInside ? 1 : 0;
      wasInside = isInside;
    }
    benchmark::DoNotOptimize(changes);
  }
  perItem(state, static_cast<double>(points.size()));
}
BENCHMARK(CrossCirclePlainLoop)->Arg(100)->Arg(100000);

template <class Curve>
void CrossPolyline(benchmark::State& state, const Curve& curve) {
  const CQdrGePolyline2d chain = ring(static_cast<int>(state.range(0)));
  int count = 0;
  for (auto _ : state) {
    std::vector<CQdrGePoint2d> hits;
    chain.intersectWith(curve, count, hits, CQdrGeEntity2d::kExtendNone, qdr::kCurveTolerance);
    benchmark::DoNotOptimize(hits.data());
  }
  perItem(state, chain.numVerts());
  state.counters["hits"] = count;
}
BENCHMARK_CAPTURE(CrossPolyline, line, CQdrGeLine2d({-2000, 200}, CQdrGePoint2d(2000, 500)))
    ->Arg(100)
    ->Arg(100000);
BENCHMARK_CAPTURE(CrossPolyline, arc, CQdrGeCircArc2d({900, 200}, 500))->Arg(100)->Arg(100000);

}  // namespace
