#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "geometry/internal/chain_join.h"
#include "geometry/internal/near_points.h"
#include "geometry/internal/raw_offset.h"
#include "geometry/polyline2d.h"
#include "tests/geometry/offset_support.h"
#include "tests/geometry/polyline_support.h"

namespace {

using Chain = CQdrGePolyline2d;
using Vertices = std::vector<BulgeVertex>;

constexpr double kPlay = 0.002;
constexpr double kPi = std::numbers::pi;

void expectVertices(const Chain& actual, const Vertices& expected, const std::string& name) {
  ASSERT_EQ(actual.numVerts(), static_cast<int>(expected.size())) << name << " " << textOf(actual);
  for (int i = 0; i < actual.numVerts(); ++i) {
    EXPECT_NEAR(actual.points()[i].x, expected[i].x, 1e-9) << name << " " << textOf(actual);
    EXPECT_NEAR(actual.points()[i].y, expected[i].y, 1e-9) << name << " " << textOf(actual);
    EXPECT_NEAR(actual.bulges()[i], expected[i].bulge, 1e-9) << name << " " << textOf(actual);
  }
}

Chain square() {
  return chainOf({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
}

TEST(Polyline2dOffset, DirectionIsThatOfTheNearestSegment) {
  const Chain arc = chainOf({{-5, 0, 1}, {5, 0}});  // lower half, counter-clockwise
  const Chain back = chainOf({{5, 0, -1}, {-5, 0}});
  struct Row {
    const char* name;
    const Chain& chain;
    CQdrGePoint2d side;
    int expected;
  };
  const Chain box = square();
  for (const Row& row : std::vector<Row>{{"left of a line", box, {5, 1}, 1},
                                         {"right of a line", box, {5, -1}, -1},
                                         {"straight out from the line's end", box, {10, -1}, -1},
                                         {"inside an arc", arc, {1, -1}, 1},
                                         {"outside an arc", arc, {1, -9}, -1},
                                         {"inside a clockwise arc", back, {1, -1}, -1},
                                         {"outside a clockwise arc", back, {1, -9}, 1}})
    EXPECT_EQ(row.chain.getoffsetDirection(row.side, 1), row.expected) << row.name;
}

struct OffsetCase {
  const char* name;
  Chain chain;
  CQdrGePoint2d side;
  double dist;
  std::vector<Vertices> pieces;
};

std::vector<OffsetCase> offsetCases() {
  const Chain corner = chainOf({{0, 0}, {10, 0}, {10, 10}});
  const Chain circle = chainOf({{-5, 0, 1}, {5, 0, 1}}, true);
  const Chain smooth = chainOf({{0, 0}, {10, 0, std::tan(kPi / 8)}, {14, 4}, {14, 9}});
  const Chain bowTie = chainOf({{0, 0}, {10, 10}, {10, 0}, {0, 10}}, true);
  const Chain spike = chainOf({{0, 0}, {10, 0}, {0, 0.04}});
  const Chain slot = chainOf({{0, 0}, {4, 0, -1}, {8, 0}, {12, 0}});
  const double root = std::sqrt(2.0);
  return {
      {"square inward", square(), {5, 1}, 1, {{{1, 1}, {9, 1}, {9, 9}, {1, 9}, {1, 1}}}},
      {"square outward: corners stay sharp",
       square(),
       {5, -1},
       1,
       {{{-1, -1}, {11, -1}, {11, 11}, {-1, 11}, {-1, -1}}}},
      {"half of its side", square(), {5, 1}, 5, {}},
      {"more than half of its side", square(), {5, 1}, 6, {}},
      {"a negative distance leads to the other side",
       square(),
       {5, -1},
       -1,
       {{{1, 1}, {9, 1}, {9, 9}, {1, 9}, {1, 1}}}},
      {"distance 0 repeats the curve",
       square(),
       {5, 1},
       0,
       {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}}},
      {"open, left", corner, {5, 1}, 1, {{{0, 1}, {9, 1}, {9, 10}}}},
      {"open, right", corner, {5, -1}, 1, {{{0, -1}, {11, -1}, {11, 10}}}},
      {"circle inward", circle, {0, -1}, 2, {{{-3, 0, 1}, {3, 0, 1}, {-3, 0}}}},
      {"circle outward", circle, {0, -9}, 2, {{{-7, 0, 1}, {7, 0, 1}, {-7, 0}}}},
      {"circle by its radius", circle, {0, -1}, 5, {}},
      {"tangent arcs stay tangent",
       smooth,
       {5, 1},
       1,
       {{{0, 1}, {10, 1, std::tan(kPi / 8)}, {13, 4}, {13, 9}}}},
      {"an arc of radius 5 inward by 5 becomes its chord",
       chainOf({{-5, 0, 1}, {5, 0}}),
       {0, -1},
       5,
       {{{-5, 5}, {5, 5}}}},
      // The half circle over (6, 0) shrinks to radius 1; both lines at y = 1 meet it at its top
      // only, which lies on both: above stays the circle of radius 3, cut at x = 6 -+ sqrt(8).
      {"lines run into the arc above",
       slot,
       {2, 1},
       1,
       {{{0, 1},
         {6 - std::sqrt(8.0), 1, -std::tan((kPi - 2 * std::asin(1 / 3.0)) / 4)},
         {6 + std::sqrt(8.0), 1},
         {12, 1}}}},
      // Left of the travel is inside on one lobe and outside on the other; the corners of the
      // inner one are at 10 - 1 and 5 + sqrt(2), those of the crossing 5 -+ sqrt(2).
      {"a bow tie",
       bowTie,
       {9, 5},
       1,
       {{{5, 5 + root}, {-1, 11 + root}, {-1, -1 - root}, {5, 5 - root}},
        {{5 + root, 5}, {9, 9 - root}, {9, 1 + root}, {5 + root, 5}}}},
      {"vertices nearer than 0.05 are one",
       chainOf({{0, 0}, {5, 0}, {5.03, -0.03}, {10, 0}}),
       {2, 1},
       1,
       {{{0, 1}, {5, 1}, {10, 1}}}},
      {"nothing between the strokes of a spike", spike, {5, 0.01}, 1, {}},
      // The distance about the half circle ends in a circle of radius 2.5: x = 5 -+ 2 at y = 1.5.
      {"an arc that refuses the distance leaves what lies beyond it",
       chainOf({{0, 0}, {4, 0, -1}, {6, 0}, {10, 0}}),
       {1, 1},
       1.5,
       {{{0, 1.5}, {3, 1.5}}, {{7, 1.5}, {10, 1.5}}}},
      {"both ends refuse the distance",
       chainOf({{0, 0}, {10, 0, 1}, {10, 2}, {0, 2, 1}}, true),
       {5, -1},
       1,
       {{{0, -1}, {10, -1}}, {{10, 3}, {0, 3}}}},
      {"a straight step through an exact turn takes nothing with it",
       chainOf({{0, 0}, {10, 0}, {4, 0}}),
       {2, 1},
       1,
       {{{0, 1}, {4, 1}, {10, 1}}, {{10, -1}, {4, -1}}}},
      {"sharp corners that run over one another over a notch",
       chainOf({{0, 0}, {8, 0}, {8.3, 0.3}, {8.6, 0}, {12, 0}}),
       {2, -1},
       1,
       {{{0, -1}, {8.6 - std::tan(kPi / 8), -1}, {8 + std::tan(kPi / 8), -1}, {12, -1}}}},
      {"teeth of one height are one line above their slots",
       chainOf({{0, 0},
                {14, 0},
                {14, 6},
                {12, 6},
                {12, 2},
                {11, 2},
                {11, 6},
                {3, 6},
                {3, 2},
                {2, 2},
                {2, 6},
                {0, 6}},
               true),
       {5, -1},
       1,
       {{{-1, -1}, {15, -1}, {15, 7}, {12, 7}, {11, 7}, {3, 7}, {2, 7}, {-1, 7}, {-1, -1}}}},
      {"no vertex", Chain(), {5, 0.01}, 1, {}},
      {"one vertex", chainOf({{3, 3}}), {5, 0}, 1, {}},
  };
}

TEST(Polyline2dOffset, PiecesByHand) {
  for (const OffsetCase& row : offsetCases()) {
    const OwnedPieces pieces = offsetOf(row.chain, row.side, row.dist);
    EXPECT_EQ(pieces.size(), row.pieces.size()) << row.name;
    for (std::size_t i = 0; i < std::min(pieces.size(), row.pieces.size()); ++i)
      expectVertices(pieces[i], row.pieces[i], row.name);
  }
}

TEST(Polyline2dOffset, InPlaceKeepsTheLongestChainAndTheFlag) {
  for (const OffsetCase& row : offsetCases()) {
    Chain chain(row.chain);
    const bool moved = chain.offset(row.side, row.dist);
    EXPECT_EQ(moved, !row.pieces.empty()) << row.name;
    EXPECT_EQ(chain.isClosed(), row.chain.isClosed()) << row.name;
    if (!moved) {
      EXPECT_TRUE(chain == row.chain) << row.name;
      continue;
    }
    const auto longest =
        std::max_element(row.pieces.begin(), row.pieces.end(),
                         [](const Vertices& a, const Vertices& b) { return a.size() < b.size(); });
    expectVertices(chain, *longest, row.name);
  }
}

TEST(Polyline2dOffset, ARepeatedOffsetDropsTheRepeatedVertex) {
  Chain chain = square();
  ASSERT_TRUE(chain.offset({5, 1}, 1));
  ASSERT_TRUE(chain.offset({5, 2}, 1));
  expectVertices(chain, {{2, 2}, {8, 2}, {8, 8}, {2, 8}, {2, 2}}, "twice");
}

TEST(Polyline2dOffset, BothSidesComeInOneCall) {
  const OwnedPieces pieces = offsetOf(square(), {5, 1}, 1, true);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_NEAR(enclosedArea(pieces[0]), 64, 1e-9);
  EXPECT_NEAR(enclosedArea(pieces[1]), 144, 1e-9);
}

TEST(Polyline2dOffset, ArcsThatCannotBeOffsetAreLeftOut) {
  const qdr::VertexChain chain{{{0, 0}, {10, 0}, {10, 2}, {20, 2}}, {0, -1, 0, 0}};
  // An arc refuses a distance of its radius on either side; the lines are joined across it.
  for (const int direction : {1, -1}) {
    const qdr::VertexChain raw = qdr::rawOffset(chain, {1.0, direction, false});
    ASSERT_EQ(raw.size(), 4u);
    for (const double bulge : raw.bulges)
      EXPECT_EQ(bulge, 0.0);
  }
}

TEST(Polyline2dOffset, AnArcRoundedOntoALineTakesTheSignOfTheTurn) {
  // Three half circles of radius 0.8 refuse the distance. The clockwise arc behind them, of radius
  // 3.5 about (8, -3.3) once offset, stays below the offset line at y = 1: a rounding arc leads to
  // it, and it is signed by that right turn.
  const qdr::VertexChain chain{{{0, 0}, {10, 0}, {10, -1.6}, {10, -3.2}, {10, -4.8}, {6, -4.8}},
                               {0, -1, -1, -1, -0.5, 0}};
  const qdr::VertexChain raw = qdr::rawOffset(chain, {1.0, 1, false});
  ASSERT_EQ(raw.size(), 4u);
  EXPECT_NEAR(raw.points[2].x, 10.8, 1e-12);
  EXPECT_NEAR(raw.points[2].y, -5.4, 1e-12);
  EXPECT_LT(raw.bulges[1], 0.0) << "the rounding turns right";
  EXPECT_NEAR(raw.bulges[2], 0.5, 1e-12);
}

TEST(Polyline2dOffset, ChainsJoinFromTheFirstOn) {
  const auto line = [](double x1, double x2) {
    return qdr::VertexChain{{{x1, 0}, {x2, 0}}, {0, 0}};
  };
  const qdr::VertexChain ring{{{2, 0}, {3, 1}, {3, -1}, {2, 0}}, {0, 0, 0, 0}};
  const auto joined = qdr::joinedChains({line(1, 2), line(7, 8), ring, line(3, 2.001), line(0, 1)});
  ASSERT_EQ(joined.size(), 3u);
  ASSERT_EQ(joined[0].size(), 4u) << "one turned round behind it, one before it, never the ring";
  EXPECT_EQ(joined[0].points.front().x, 0);
  EXPECT_EQ(joined[0].points[2].x, 2) << "the shared vertex stays as it was";
  EXPECT_EQ(joined[0].points.back().x, 3);
}

TEST(Polyline2dOffset, ConvexAreasByTheClosedForm) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int row = 0; row < 200; ++row) {
    // Vertices on a circle make a convex polygon; bulging sides keep it convex enough for the
    // outline of a circle when all belong to it.
    const int count = 3 + row % 12;
    const double scale = std::vector<double>{1, 1e3, 1e6}[row / 3 % 3];
    const double radius = (5 + 5 * unit(random)) * scale;
    std::vector<double> angles;
    for (int i = 0; i < count; ++i)
      angles.push_back(2 * kPi * (i + 0.8 * unit(random)) / count);
    const bool isCircle = row % 3 == 0;
    Vertices vertices;
    for (int i = 0; i < count; ++i) {
      const double next = i + 1 < count ? angles[i + 1] : angles[0] + 2 * kPi;
      const double bulge = isCircle ? std::tan((next - angles[i]) / 4) : 0.0;
      vertices.push_back({radius * std::cos(angles[i]), radius * std::sin(angles[i]), bulge});
    }
    const double dist = (0.05 + 0.2 * unit(random)) * scale;
    const bool isInward = isCircle && row % 2 == 0;
    const double edge = radius * (isCircle ? 1.0 : std::cos((angles[1] - angles[0]) / 2));
    const double reach = edge + (isInward ? -0.01 : 0.01) * scale;
    const double middle = (angles[0] + angles[1]) / 2;
    const CQdrGePoint2d side(reach * std::cos(middle), reach * std::sin(middle));
    const OwnedPieces pieces = offsetOf(chainOf(vertices, true), side, dist);
    ASSERT_EQ(pieces.size(), 1u) << row;
    EXPECT_TRUE(pieces[0].closed()) << row;
    // Sharp corners: area + perimeter d + sum of tan(turn / 2) d^2.
    const double circle = radius + (isInward ? -dist : dist);
    double expected = kPi * circle * circle;
    if (!isCircle) {
      expected = enclosedArea(chainOf(vertices, true));
      for (int i = 0; i < count; ++i) {
        const BulgeVertex& a = vertices[(i + count - 1) % count];
        const BulgeVertex& b = vertices[i];
        const BulgeVertex& c = vertices[(i + 1) % count];
        const double turn = std::remainder(
            std::atan2(c.y - b.y, c.x - b.x) - std::atan2(b.y - a.y, b.x - a.x), 2 * kPi);
        expected += dist * std::hypot(c.x - b.x, c.y - b.y) + dist * dist * std::tan(turn / 2);
      }
    }
    EXPECT_NEAR(enclosedArea(pieces[0]), expected, 1e-8 * expected) << "row " << row;
  }
}

/// A shape of one of six sorts, with arcs, under a shift and a scale.
struct RandomShape {
  explicit RandomShape(unsigned shapeSeed) : random(shapeSeed) {
    const auto sort = static_cast<unsigned>(random() % 6);
    const int count = 2 + static_cast<int>(random() % (sort == 5 ? 40 : 14));
    scale = std::vector<double>{1, 1, 1, 1e3, 1e6}[random() % 5];
    shift = random() % 4 == 0 ? 1e6 : 0.0;
    const bool linesOnly = random() % 3 == 0;
    BulgeVertex last{0, 0};
    for (int i = 0; i < count; ++i) {
      BulgeVertex v = vertexOf(sort, i, count, last);
      last = v;
      if (!linesOnly && random() % 3 != 0) v.bulge = between(-1, 1);
      if (!linesOnly && random() % 40 == 0) v.bulge = between(-6, 6);
      vertices.push_back({v.x * scale + shift, v.y * scale + shift, v.bulge});
    }
    isClosed = random() % 2 == 0;
    dist = (random() % 20 == 0 ? between(3, 30) : between(0.05, 3)) * scale;
    side.set(between(-12, 12) * scale + shift, between(-12, 12) * scale + shift);
  }

  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  }

  BulgeVertex vertexOf(unsigned sort, int i, int count, const BulgeVertex& last) {
    const double angle = 2 * kPi * i / count;
    switch (sort) {
      case 0: {  // simple, with deep notches
        const double r = between(3, 10);
        return {r * std::cos(angle), r * std::sin(angle)};
      }
      case 1:  // crossing itself
        return {between(-10, 10), between(-10, 10)};
      case 2:  // touching itself
        return {std::floor(between(-4, 5)), std::floor(between(-4, 5))};
      case 3:  // convex
        return {10 * std::cos(angle), 10 * std::sin(angle)};
      case 4:  // zigzag
        return {i * 2.0, i % 2 == 0 ? 3.0 : -1.0};
      default:  // random walk
        return {last.x + between(-2, 2), last.y + between(-2, 2)};
    }
  }

  std::mt19937 random;
  Vertices vertices;
  double scale = 1;
  double shift = 0;
  bool isClosed = false;
  double dist = 0;
  CQdrGePoint2d side;
};

bool haveEqualBits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

TEST(Polyline2dOffset, NoPlaceOfAPieceIsNearerThanTheDistance) {
  constexpr unsigned kShapes = 3000;
  std::size_t piecesSeen = 0;
  for (unsigned seed = 1; seed <= kShapes; ++seed) {
    RandomShape shape(seed);
    const Chain source = chainOf(shape.vertices, shape.isClosed);
    const OwnedPieces pieces = offsetOf(source, shape.side, shape.dist, seed % 2 == 0);
    piecesSeen += pieces.size();
    // At 1e8 from the origin a coordinate is exact to 1.5e-8, a radius to some hundred of these.
    const double slack = 1e-6 * std::max(1.0, shape.scale / 1e3);
    ASSERT_GE(leastDistance(pieces, source), shape.dist - kPlay - slack) << "seed " << seed;
  }
  EXPECT_GT(piecesSeen, kShapes) << "the shapes have to put the rule to the test";
}

TEST(Polyline2dOffset, NothingOfTheBorderIsLost) {
  int lineShapes = 0;
  int arcShapes = 0;
  int arcShapesThatLose = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    const RandomShape shape(seed);
    // The raw offset of an arc above a half circle may be joined on its far side.
    const bool isTurnedFar =
        std::any_of(shape.vertices.begin(), shape.vertices.end(),
                    [](const BulgeVertex& v) { return std::abs(v.bulge) > 1.0; });
    if (shape.scale > 1.0 || shape.shift > 0.0 || isTurnedFar) continue;
    Chain source = chainOf(shape.vertices, shape.isClosed);
    const int direction = source.getoffsetDirection(shape.side, 0);
    const MovedSegments moved(source, shape.dist, direction);
    const int lost = countLostPlaces(moved, offsetOf(source, shape.side, shape.dist));
    const bool hasArcs = !source.isOnlyLines();
    (hasArcs ? arcShapes : lineShapes) += 1;
    if (hasArcs) arcShapesThatLose += lost > 0 ? 1 : 0;
    if (!hasArcs) {
      EXPECT_EQ(lost, 0) << "seed " << seed;
    }
  }
  EXPECT_GT(lineShapes, 300);
  EXPECT_GT(arcShapes, 300);
  // A raw offset joined on the far side of an arc runs over it backward and lacks it.
  EXPECT_LE(arcShapesThatLose, arcShapes / 50);
}

TEST(Polyline2dOffset, ChordsThatCrossManyTimesLoseNothing) {
  // Near most segments lie more than those that a part is compared with one by one.
  for (const double bulge : {0.0, 0.2}) {
    RandomShape numbers(7);
    Vertices vertices;
    for (int i = 0; i < 250; ++i)
      vertices.push_back({numbers.between(0, 100), numbers.between(0, 100), bulge});
    const Chain source = chainOf(vertices);
    const OwnedPieces pieces = offsetOf(source, {50, 50}, 0.3);
    EXPECT_GT(pieces.size(), 1000u);
    EXPECT_GE(leastDistance(pieces, source), 0.3 - kPlay - 1e-9);
    const MovedSegments moved(source, 0.3, source.getoffsetDirection({50, 50}, 0));
    EXPECT_EQ(countLostPlaces(moved, pieces), 0);
  }
}

TEST(Polyline2dOffset, NearPointsAreThoseOfThePlainLoop) {
  RandomShape numbers(3);
  std::vector<qdr::Vec> points;
  for (int i = 0; i < 2000; ++i)
    points.push_back(
        {numbers.between(-0.02, 0.02), i % 3 == 0 ? 0.0 : numbers.between(-0.02, 0.02)});
  const qdr::NearPoints near(points);
  for (std::size_t i = 0; i < points.size(); i += 7) {
    std::vector<std::size_t> found;
    near.forEachNear(points[i], [&](std::size_t k) { found.push_back(k); });
    std::sort(found.begin(), found.end());
    std::vector<std::size_t> expected;
    for (std::size_t k = 0; k < points.size(); ++k) {
      if (qdr::distance(points[i], points[k]) < kPlay) expected.push_back(k);
    }
    EXPECT_EQ(found, expected) << i;
  }
}

TEST(Polyline2dOffset, AFailedOffsetLeavesEveryBit) {
  int failures = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    RandomShape shape(seed);
    Chain chain = chainOf(shape.vertices, shape.isClosed);
    chain.setWidthsAt(0, 0.25, 0.5);
    const Chain before(chain);
    if (chain.offset(shape.side, 4 * shape.dist)) continue;
    ++failures;
    EXPECT_TRUE(haveEqualBits(chain.bulges(), before.bulges())) << seed;
    EXPECT_TRUE(haveEqualBits(chain.startWidths(), before.startWidths())) << seed;
    for (int i = 0; i < chain.numVerts(); ++i) {
      EXPECT_EQ(chain.points()[i].x, before.points()[i].x) << seed;
      EXPECT_EQ(chain.points()[i].y, before.points()[i].y) << seed;
    }
    EXPECT_EQ(chain.isClosed(), before.isClosed()) << seed;
  }
  EXPECT_GT(failures, 10);
}

TEST(Polyline2dOffset, StartVertexAndTravelDoNotChangeTheLength) {
  struct Row {
    const char* name;
    Vertices figure;
    CQdrGePoint2d side;
  };
  for (const Row& row : std::vector<Row>{
           {"pieces",
            {{0, 0}, {12, 0, 0.4}, {12, 9}, {7, 9}, {6, 3, -0.3}, {4, 9}, {0, 9}},
            {6, 1}},
           {"an arc refuses", {{0, 0}, {4, 0, -1}, {6, 0}, {10, 0}, {10, 8}, {0, 8}}, {2, 1}},
           {"corners run over one another",
            {{0, 0}, {9, 0}, {9, 6}, {6, 6}, {6, 2}, {5, 2}, {5, 6}, {0, 6}},
            {5, -1}}}) {
    const auto keptLength = [&](const Chain& chain) {
      double sum = 0.0;
      for (const auto& piece : offsetOf(chain, row.side, 1.25))
        sum += piece->length();
      return sum;
    };
    const double expected = keptLength(chainOf(row.figure, true));
    ASSERT_GT(expected, 10) << row.name;
    for (int start = 0; start < static_cast<int>(row.figure.size()); ++start) {
      Chain chain = chainOf(row.figure, true);
      chain.changeStart(start);
      EXPECT_NEAR(keptLength(chain), expected, 1e-9) << row.name << " from " << start;
      chain.reverse();
      EXPECT_NEAR(keptLength(chain), expected, 1e-9) << row.name << " back from " << start;
    }
  }
}

TEST(Polyline2dOffset, EndsOnAnyNumbers) {
  const double huge = std::numeric_limits<double>::max();
  const double nan = std::nan("");
  const std::vector<Vertices> shapes = {
      {{0, 0}, {nan, 1}, {2, 2}},
      {{0, 0, nan}, {1, 1}, {2, 0}},
      {{-huge, 0}, {huge, 1}, {0, 9}},
      {{0, 0, 1e300}, {1, 1}, {2, 0}},
      {{1, 1}, {1, 1}, {1, 1}},
      {{0, 0, 5}, {1e-12, 0, 5}, {0, 0}},
      {{0, 0, 1}, {1e-4, 0, -1}, {0, 1e-4, 1}, {3, 0}},
  };
  for (const Vertices& vertices : shapes) {
    for (const double dist : {0.0, 1e-9, 1.0, 1e300, huge, nan}) {
      Chain chain = chainOf(vertices, true);
      const Chain before(chain);
      const OwnedPieces pieces = offsetOf(chain, {3, 3}, dist, true);
      for (const auto& piece : pieces)
        EXPECT_GE(piece->numVerts(), 2);
      const bool isMoved = chain.offset({3, 3}, dist);
      EXPECT_TRUE(isMoved || chain.numVerts() == before.numVerts());
    }
  }
}

}  // namespace
