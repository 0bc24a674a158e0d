#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "geometry/box.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/internal/chain_crossings.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "tests/geometry/polyline_support.h"

namespace {

using Chain = CQdrGePolyline2d;
using Mode = CQdrGeEntity2d::Intersect;

constexpr double kTol = qdr::kCurveTolerance;

Chain square() {
  return chainOf({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, true);
}

std::string textOf(const std::vector<CQdrGePoint2d>& points) {
  std::string text;
  for (const CQdrGePoint2d& p : points)
    text += "(" + std::to_string(p.x) + " " + std::to_string(p.y) + ") ";
  return text;
}

struct Crossings {
  bool answer;
  int count = 0;
  std::vector<CQdrGePoint2d> points;
};

template <class Curve>
Crossings cross(const Chain& chain, const Curve& curve, Mode mode = Chain::kExtendNone) {
  Crossings result;
  result.answer = chain.intersectWith(curve, result.count, result.points, mode, kTol);
  return result;
}

void expectCrossings(const Crossings& actual, const std::vector<BulgeVertex>& expected,
                     const char* name) {
  EXPECT_EQ(actual.answer, !expected.empty()) << name;
  EXPECT_EQ(actual.count, static_cast<int>(expected.size())) << name;
  ASSERT_EQ(actual.points.size(), expected.size()) << name << textOf(actual.points);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(actual.points[i].x, expected[i].x, 1e-9) << name;
    EXPECT_NEAR(actual.points[i].y, expected[i].y, 1e-9) << name;
  }
}

TEST(Polyline2dIntersect, FindsCrossingsInTheOrderOfSegments) {
  const CQdrGeLine2d across({-1, 1}, CQdrGePoint2d(5, 1));
  const CQdrGeLine2d diagonal({-1, -1}, CQdrGePoint2d(5, 5));
  const CQdrGeLine2d shortOne({1, 1}, CQdrGePoint2d(3, 1));
  const Chain bow = chainOf({{0, 0, 1}, {4, 0}, {4, 4}});
  expectCrossings(cross(square(), across), {{4, 1}, {0, 1}}, "segment 1 before segment 3");
  expectCrossings(cross(square(), diagonal), {{0, 0}, {4, 4}, {0, 0}},
                  "a vertex counts once among neighbours, not at the far ends of the list");
  expectCrossings(cross(square(), shortOne), {}, "inside");
  expectCrossings(cross(square(), shortOne, Chain::kExtendArg), {{4, 1}, {0, 1}},
                  "the argument extended");
  expectCrossings(cross(chainOf({{1, 3}, {1, 2}}), across, Chain::kExtendThis), {{1, 1}},
                  "this extended");
  expectCrossings(cross(chainOf({{6, 3}, {6, 2}}), across, Chain::kExtendBoth), {{6, 1}}, "both");
  expectCrossings(cross(bow, CQdrGeLine2d({2, -5}, CQdrGePoint2d(2, 5))), {{2, -2}}, "an arc");
  expectCrossings(cross(square(), CQdrGeCircArc2d({4, 0}, 1)), {{3, 0}, {4, 1}}, "a circle");
  expectCrossings(cross(square(), across, static_cast<Mode>(4)), {}, "no such mode");
  expectCrossings(cross(Chain(), across), {}, "empty");
}

TEST(Polyline2dIntersect, TwoChainsKeepTheMeaningOfTheMode) {
  const Chain stub = chainOf({{-3, 1}, {-1, 1}});
  expectCrossings(cross(stub, square()), {}, "apart");
  expectCrossings(cross(stub, square(), Chain::kExtendThis), {{4, 1}, {0, 1}}, "this extended");
  expectCrossings(cross(square(), stub, Chain::kExtendArg), {{4, 1}, {0, 1}}, "argument extended");
  expectCrossings(cross(stub, square(), Chain::kExtendArg), {}, "the other one extended");
  const Chain bow = chainOf({{-0.5, 2, 1}, {4.5, 2}});  // radius 2.5 about (2, 2)
  expectCrossings(cross(bow, square()), {{3.5, 0}, {0.5, 0}, {4, 0.5}, {0, 0.5}},
                  "the arc's hits by the other's segments");
}

TEST(Polyline2dIntersect, EllipseGoesThroughItsPolyline) {
  const CQdrGeEllipArc2d circle(CQdrGeCircArc2d({0, 0}, 2));
  const Crossings hits = cross(chainOf({{-5, 1}, {5, 1}}), circle);
  ASSERT_EQ(hits.count, 2) << textOf(hits.points);
  EXPECT_NEAR(std::abs(hits.points[0].x), std::sqrt(3.0), 1e-6);
  EXPECT_NEAR(hits.points[0].x, -hits.points[1].x, 1e-6);
}

TEST(Polyline2dIntersect, MapKeysAreParametersCutAtEightDecimals) {
  const Chain chain = chainOf({{0, 0}, {3, 0, -1}, {5, 0}, {5, 7}});
  const double total = 10 + std::acos(-1.0);
  std::map<double, CQdrGePoint2d> hits;
  int count = -1;
  const auto keyOf = [&](double dist) { return std::trunc(dist / total * 1e8) / 1e8; };
  ASSERT_TRUE(chain.intersectWith(CQdrGeLine2d({4, -1}, CQdrGePoint2d(4, 9)), count, hits,
                                  Chain::kExtendNone, kTol));
  ASSERT_EQ(count, 1);
  EXPECT_EQ(hits.begin()->first, keyOf(3 + total / 2 - 5)) << "half of the clockwise arc";

  hits.clear();
  ASSERT_TRUE(chain.intersectWith(chainOf({{1, -1}, {1, 1}, {9, 1}}), count, hits,
                                  Chain::kExtendNone, kTol));
  ASSERT_EQ(count, 3) << "crossed twice and touched at the top of the arc";
  EXPECT_EQ(hits.begin()->first, keyOf(1));
  EXPECT_EQ(hits.rbegin()->first, keyOf(total - 6));

  hits.clear();
  EXPECT_TRUE(chain.intersectWith(CQdrGeLine2d({3, -1}, CQdrGePoint2d(3, 1)), count, hits,
                                  Chain::kExtendNone, kTol));
  EXPECT_EQ(count, 1) << "a shared vertex is one entry";
  hits.clear();
  EXPECT_FALSE(chain.intersectWith(CQdrGeLine2d({30, -1}, CQdrGePoint2d(30, 1)), count, hits,
                                   Chain::kExtendNone, kTol));
  EXPECT_EQ(count, 0);
}

TEST(Polyline2dIntersect, CheckSameComparesNeighboursOnly) {
  std::vector<CQdrGePoint2d> points = {{0, 0}, {0, 0.001}, {1, 0}, {0, 0}, {0, 0.0011}};
  EXPECT_EQ(Chain::CheckSameIntPoints(points), 4);
  EXPECT_EQ(points[1].x, 1);
}

TEST(Polyline2dIntersect, InsideByTheCountOfCrossings) {
  const Chain ring = chainOf(
      {{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 0}, {2, 2}, {2, 6}, {6, 6}, {6, 2}, {2, 2}}, true);
  const Chain disc = chainOf({{-2, 0, 1}, {2, 0, 1}}, true);
  struct Row {
    const char* name;
    const Chain& chain;
    CQdrGePoint2d point;
    bool expected;
  };
  const Chain open = chainOf({{0, 0}, {4, 0}, {4, 4}});
  for (const Row& row : std::vector<Row>{{"in the band", ring, {7, 3}, true},
                                         {"in the hole", ring, {4, 3.5}, false},
                                         {"outside", ring, {9, 3}, false},
                                         {"under the arc", disc, {0.1, -1.9}, true},
                                         {"beside the arc", disc, {1.9, -1.9}, false},
                                         {"an open chain has no inside", open, {3, 1}, false}})
    EXPECT_EQ(row.chain.isInsidePoint(row.point), row.expected) << row.name;
}

/// A random chain; every third vertex of some repeats, so that shared vertices and coincident
/// segments come up.
Chain randomChain(std::mt19937& random, int count, double reach) {
  std::uniform_real_distribution<double> coordinate(-reach, reach);
  std::uniform_real_distribution<double> bulge(-1.5, 1.5);
  std::vector<BulgeVertex> vertices;
  for (int i = 0; i < count; ++i) {
    if (i % 7 == 3) {
      vertices.push_back({std::round(coordinate(random)), std::round(coordinate(random))});
    } else {
      vertices.push_back({coordinate(random), coordinate(random), bulge(random)});
    }
    if (i % 11 == 5) vertices.push_back(vertices.back());
    if (random() % 2 == 0) vertices.back().bulge = 0;
  }
  return chainOf(vertices, random() % 2 == 0);
}

void expectSameHits(const std::vector<qdr::ChainHit>& hits, const std::vector<qdr::ChainHit>& plain,
                    const std::string& name) {
  ASSERT_EQ(hits.size(), plain.size()) << name;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    ASSERT_EQ(hits[i].segment, plain[i].segment) << name;
    ASSERT_EQ(hits[i].point.x, plain[i].point.x) << name;
    ASSERT_EQ(hits[i].point.y, plain[i].point.y) << name;
  }
}

TEST(Polyline2dIntersect, IndexGivesTheHitsOfThePlainWalkInItsOrder) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    std::mt19937 random(seed);
    const double reach = std::vector<double>{1e-2, 10, 1e4}[seed % 3];
    const double tol = std::vector<double>{0, kTol, 1e-3, 0.5}[seed % 4];
    const Chain a = randomChain(random, 20 + seed % 40, reach);
    const Chain b = seed % 5 == 0 ? a : randomChain(random, 20 + seed % 30, reach);
    const auto plain = qdr::hitsByPlainWalk(a, b, Chain::kExtendNone, tol);
    const auto indexed = qdr::hitsWith(a, b, Chain::kExtendNone, tol);
    expectSameHits(indexed, plain, "seed " + std::to_string(seed));
  }
}

/// A line that crosses anywhere, lies along a chord, stands up all but straight, or passes beside a
/// vertex by about the tolerance.
CQdrGeLine2d lineAt(std::mt19937& random, const Chain& chain, double reach, double tol) {
  std::uniform_real_distribution<double> place(-1.5 * reach, 1.5 * reach);
  std::uniform_real_distribution<double> few(-3.0, 3.0);
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const CQdrGePoint2d& vertex = points[random() % points.size()];
  const CQdrGeVector2d along(place(random), place(random));
  switch (random() % 5) {
    case 0:
      return {vertex + along, vertex - along * few(random)};
    case 1:
      return {vertex, points[random() % points.size()]};
    case 2:
      return {vertex + CQdrGeVector2d(tol * few(random), -reach),
              vertex + CQdrGeVector2d(tol * few(random), reach)};
    case 3:
      return {vertex + along.perpVector() * (tol * few(random) / (1e-9 + reach)), vertex + along};
    default:
      return {points[0] + along, points[0] + CQdrGeVector2d(place(random), place(random))};
  }
}

/// An arc anywhere, one of the chain, one that ends in a vertex, or one that just touches a vertex
/// or the middle of a chord.
CQdrGeCircArc2d arcAt(std::mt19937& random, const Chain& chain, double reach, double tol) {
  std::uniform_real_distribution<double> place(-1.5 * reach, 1.5 * reach);
  std::uniform_real_distribution<double> few(-3.0, 3.0);
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const std::size_t i = random() % points.size();
  const CQdrGePoint2d& next = points[(i + 1) % points.size()];
  CQdrGeCircArc2d arc;
  if (random() % 4 == 0 && chain.getArcSegAt(static_cast<int>(i), arc)) {
    if (random() % 2 == 0) arc.setRadius(arc.radius() + tol * few(random));
    return arc;
  }
  if (random() % 3 == 0)
    return {points[i], points[i] + CQdrGeVector2d(place(random), 1), 0.4, true};
  const CQdrGePoint2d touched =
      random() % 2 == 0 ? points[i] : points[i] + (next - points[i]) * 0.5;
  const CQdrGeVector2d out = (next - points[i]).perpVector() * few(random);
  const double radius = out.length() + (random() % 3 == 0 ? place(random) : tol * few(random));
  return {touched + out, std::abs(radius), few(random), few(random)};
}

TEST(Polyline2dIntersect, PassesOverNoSegmentThatALineOrAnArcCrosses) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    std::mt19937 random(seed);
    const double reach = std::vector<double>{1e-3, 0.1, 10, 1e3, 1e6}[seed % 5];
    const double tol = std::vector<double>{0, kTol, 1e-3, 0.01}[seed / 5 % 4];
    Chain chain = randomChain(random, 3 + seed % 30, reach);
    if (seed % 3 == 0) chain.translateBy({1e6, -1e6});
    if (seed % 4 == 0)
      chain.setBulgeAt(0, std::vector<double>{-5e3, 1e2, 999, 0.002}[seed / 4 % 4]);
    for (int i = 0; i < 40; ++i) {
      const CQdrGeLine2d line = lineAt(random, chain, reach, tol);
      const CQdrGeCircArc2d arc = arcAt(random, chain, reach, tol);
      for (const Mode mode :
           {Chain::kExtendNone, Chain::kExtendThis, Chain::kExtendArg, Chain::kExtendBoth}) {
        const std::string name = "seed " + std::to_string(seed) + " curve " + std::to_string(i) +
                                 " mode " + std::to_string(mode);
        expectSameHits(qdr::hitsWith(chain, line, mode, tol),
                       qdr::hitsByPlainWalk(chain, line, mode, tol), name + " line");
        expectSameHits(qdr::hitsWith(chain, arc, mode, tol),
                       qdr::hitsByPlainWalk(chain, arc, mode, tol), name + " arc");
      }
    }
  }
}

/// Whether a line from outside crosses an odd number of times, by all crossings of the chain and
/// by comparing every two of them.
bool isInsideByAllCrossings(const Chain& chain, const CQdrGePoint2d& point) {
  if (!chain.closed()) return false;
  CQdrGePoint2d min, max;
  chain.getMinMaxpoint(min, max);
  std::vector<CQdrGePoint2d> hits;
  int count = 0;
  chain.intersectWith(CQdrGeLine2d({min.x - 0.5, min.y - 1}, point), count, hits,
                      Chain::kExtendNone, 0.001);
  std::vector<CQdrGePoint2d> kept;
  for (const CQdrGePoint2d& hit : hits) {
    bool isNew = true;
    for (const CQdrGePoint2d& other : kept)
      isNew = isNew && !other.isEqualTo(hit, 0.001);
    if (isNew) kept.push_back(hit);
  }
  return kept.size() % 2 == 1;
}

TEST(Polyline2dIntersect, BoundsHoldTheArcsAndNoMore) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    std::mt19937 random(seed);
    const Chain chain = randomChain(random, 2 + seed % 30, 10);
    qdr::Box sampled;
    for (const SampledSegment& segment : segmentsOfChain(chain)) {
      for (int i = 0; i <= 500; ++i)
        sampled.add(qdr::toVec(segment.at(i / 500.0)));
    }
    CQdrGePoint2d min, max;
    chain.getMinMaxpoint(min, max);
    EXPECT_NEAR(min.x, sampled.minX, 1e-3) << "seed " << seed;
    EXPECT_NEAR(min.y, sampled.minY, 1e-3) << "seed " << seed;
    EXPECT_NEAR(max.x, sampled.maxX, 1e-3) << "seed " << seed;
    EXPECT_NEAR(max.y, sampled.maxY, 1e-3) << "seed " << seed;
  }
}

TEST(Polyline2dIntersect, InsidePassesOverNothingThatCrosses) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 random(seed);
    const double reach = std::vector<double>{1e-2, 0.1, 3, 1e4, 1e10}[seed % 5];
    Chain chain = randomChain(random, 3 + seed % 30, reach);
    chain.setClosed(true);
    if (seed % 4 == 0)
      chain.setBulgeAt(0, std::vector<double>{-5e3, 1e2, 999, 0.002}[seed / 4 % 4]);
    std::uniform_real_distribution<double> place(-1.2 * reach, 1.2 * reach);
    for (int i = 0; i < 40; ++i) {
      CQdrGePoint2d probe(place(random), place(random));
      // On a vertex, in the middle of a chord, or beside the boundary by about the tolerance.
      const CQdrGePoint2d& vertex = chain.points()[random() % chain.points().size()];
      if (i % 4 == 1) probe = vertex;
      if (i % 4 == 2) probe = vertex + (chain.points()[0] - vertex) * 0.5;
      if (i % 4 == 3) probe = vertex + CQdrGeVector2d(0.0005 * (i % 5), -0.0007);
      EXPECT_EQ(chain.isInsidePoint(probe), isInsideByAllCrossings(chain, probe))
          << "seed " << seed << " probe " << probe.x << " " << probe.y;
    }
  }
}

}  // namespace
