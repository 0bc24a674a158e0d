#include "geometry/ellip_arc2d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "tests/geometry/geometry_support.h"

namespace {

constexpr double kTol = qdr::kCurveTolerance;
constexpr double kStep = qdr::kTwoPi / 100;
const CQdrGeVector2d kX = CQdrGeVector2d::kXAxis;
const CQdrGeVector2d kY = CQdrGeVector2d::kYAxis;

CQdrGeEllipArc2d ellipseAt(const CQdrGePoint2d& center, double direction, double a, double b,
                           double start = 0.0, double end = qdr::kTwoPi) {
  const CQdrGeVector2d major(direction);
  return {center, major, major.perpVector(), a, b, start, end};
}

CQdrGePoint2d pointOf(const CQdrGeEllipArc2d& e, double u) {
  return e.center() + e.majorAxis() * (e.majorRadius() * std::cos(u)) +
         e.majorAxis().perpVector() * (e.minorRadius() * std::sin(u));
}

TEST(EllipArc2d, PolarAnglesBecomeEccentricParameters) {
  struct Row {
    const char* name;
    double polar, eccentric;
  };
  // Radii 2 and 1: tan u = 2 tan polar, in the same quadrant.
  const double u = std::atan(2.0);
  const Row rows[] = {
      {"first quadrant", qdr::kPi / 4, u},
      {"second", 3 * qdr::kPi / 4, qdr::kPi - u},
      {"third", 5 * qdr::kPi / 4, qdr::kPi + u},
      {"fourth", 7 * qdr::kPi / 4, qdr::kTwoPi - u},
      {"negative", -qdr::kPi / 4, qdr::kTwoPi - u},
      {"above a turn", 9 * qdr::kPi / 4, u},
      {"+x", 0.0, 0.0},
      {"+y", qdr::kHalfPi, qdr::kHalfPi},
      {"-x", qdr::kPi, qdr::kPi},
      {"-y", 3 * qdr::kHalfPi, 3 * qdr::kHalfPi},
      {"full turn", qdr::kTwoPi, qdr::kTwoPi},
  };
  for (const Row& row : rows) {
    const CQdrGeEllipArc2d e = ellipseAt({7, 8}, 0.6, 2, 1, row.polar, row.polar);
    EXPECT_NEAR(e.startEllAng(), row.eccentric, 1e-7) << row.name;
    // In the frame of the ellipse, neither turned nor moved.
    EXPECT_TRUE(
        isNear(e.startPoint(), CQdrGePoint2d(2 * std::cos(row.eccentric), std::sin(row.eccentric))))
        << row.name;
  }
}

TEST(EllipArc2d, WholeChainHasFiftyArcsOnTheEllipse) {
  const CQdrGeEllipArc2d e = ellipseAt({3, -2}, 0.4, 5, 3);
  const CQdrGePolyline2d& chain = e.polyline();
  ASSERT_EQ(chain.numVerts(), 51);
  for (int i = 0; i <= 50; ++i) {
    EXPECT_TRUE(isNear(chain.points()[i], pointOf(e, 2 * i * kStep))) << i;
    EXPECT_EQ(chain.getBulgeAt(i) > 0.0, i < 50) << i;
    EXPECT_EQ(chain.startWidths()[i], -1.0);
  }
  double perimeter = 0.0;
  for (int i = 0; i < 100000; ++i) {
    perimeter +=
        pointOf(e, i * qdr::kTwoPi / 1e5).distanceTo(pointOf(e, (i + 1) * qdr::kTwoPi / 1e5));
  }
  EXPECT_NEAR(e.length(), perimeter, 1e-4);
  EXPECT_TRUE(isNear(e.pointAtParam(0.25), pointOf(e, qdr::kHalfPi), 1e-3));
  EXPECT_EQ(e.isInsidePoint({3, -2}), true);
  EXPECT_EQ(e.isInsidePoint({9, -2}), false);

  CQdrGeEllipArc2d coarse(e);
  CQdrGePolyline2d fitted;
  EXPECT_TRUE(coarse.setGePolyline(8));
  EXPECT_EQ(coarse.polyline().numVerts(), 5);
  EXPECT_TRUE(coarse.getGePolyline(fitted));  // always of 100 steps
  EXPECT_TRUE(fitted == chain);
}

// The last full pair of steps gives its bulge to whatever is left up to the end.
TEST(EllipArc2d, AnArcEndsItsLastFullPairOfStepsAtItsEnd) {
  struct Row {
    const char* name;
    double steps;
    int vertices;
  };
  const Row rows[] = {
      {"less than two steps leave the end alone", 1.5, 1},
      {"two and a half", 2.5, 2},
      {"five and a half", 5.5, 3},
      {"six and a half", 6.5, 4},
  };
  for (const Row& row : rows) {
    const CQdrGeEllipArc2d e = ellipseAt({0, 0}, 0, 100, 100, 0, row.steps * kStep);
    ASSERT_EQ(e.polyline().numVerts(), row.vertices) << row.name;
    EXPECT_TRUE(isNear(e.polyline().points().back(), pointOf(e, row.steps * kStep), 1e-7))
        << row.name;
    for (int i = 0; i + 1 < row.vertices; ++i) {
      EXPECT_NEAR(e.polyline().getBulgeAt(i), std::tan(2 * kStep / 4), 1e-9) << row.name;
      EXPECT_TRUE(isNear(e.polyline().points()[i], pointOf(e, 2 * i * kStep), 1e-7)) << row.name;
    }
  }
}

TEST(EllipArc2d, ConstructorsNormaliseAndSettersDoNot) {
  const CQdrGeEllipArc2d turned({1, 2}, {0, -4}, {3, 0}, -5, -2);
  EXPECT_EQ(turned.majorRadius(), 5);
  EXPECT_EQ(turned.minorRadius(), 2);
  EXPECT_TRUE(isNear(turned.majorAxis(), CQdrGeVector2d(0, 1)));
  EXPECT_TRUE(isNear(turned.minorAxis(), CQdrGeVector2d(-1, 0)));
  EXPECT_NEAR(turned.startAng(), 3 * qdr::kHalfPi, 1e-12);  // of the axis as given
  EXPECT_EQ(turned.endAng(), turned.startAng());
  EXPECT_EQ(turned.polyline().numVerts(), 1);

  CQdrGeEllipArc2d e;
  e.set({0, 0}, {2, 0}, {0, 2}, -4, 3);
  EXPECT_EQ(e.majorRadius(), -4);
  EXPECT_TRUE(isNear(e.majorAxis(), CQdrGeVector2d(2, 0)));
  EXPECT_EQ(e.endAng(), qdr::kTwoPi);

  const CQdrGeCircArc2d arc({1, 1}, 3, 0.5, 2.0);
  e = arc;
  EXPECT_FALSE(e.isClockWise());
  EXPECT_TRUE(e.isEqualTo(CQdrGeEllipArc2d({1, 1}, kX, kY, 3, 3, 0.5, 2.0), kTol));
  e.set(arc);
  EXPECT_TRUE(e.isClockWise());
  EXPECT_FALSE(e.isEqualTo(CQdrGeEllipArc2d(arc), kTol));
  EXPECT_TRUE(e.isCircular(0.001));
}

TEST(EllipArc2d, TransformsActOnFieldsAndRebuildTheChain) {
  CQdrGeEllipArc2d e = ellipseAt({2, 0}, qdr::kHalfPi, 4, 2, 0.3, 1.0);
  e.scaleBy(2, 3, {0, 0});  // the major radius by sx though the major axis runs along y
  EXPECT_EQ(e.majorRadius(), 8);
  EXPECT_EQ(e.minorRadius(), 6);
  EXPECT_TRUE(isNear(e.center(), CQdrGePoint2d(4, 0)));

  e.mirror(lineOf(0, 0, 1, 0));
  EXPECT_EQ(e.startAng(), -1.0);
  EXPECT_EQ(e.endAng(), -0.3);
  EXPECT_TRUE(isNear(e.majorAxis(), CQdrGeVector2d(0, -1)));

  CQdrGeEllipArc2d whole = ellipseAt({2, 0}, 0.2, 4, 2);
  whole.mirror(lineOf(0, 0, 1, 0));
  EXPECT_EQ(whole.startAng(), 0.0);
  EXPECT_EQ(whole.endAng(), qdr::kTwoPi);

  // A translating matrix moves the axes like points; radii stay under a scaling one.
  CQdrGeEllipArc2d moved = ellipseAt({2, 0}, 0, 4, 2);
  moved.transformBy(CQdrGeMatrix2d::translation({10, 20}));
  EXPECT_TRUE(isNear(moved.majorAxis(), CQdrGeVector2d(11, 20)));
  EXPECT_TRUE(isNear(moved.minorAxis(), CQdrGeVector2d(10, 21)));
  moved = ellipseAt({2, 0}, 0, 4, 2);
  moved.transformBy(CQdrGeMatrix2d::scaling(3, {0, 0}));
  EXPECT_EQ(moved.majorRadius(), 4);
  EXPECT_TRUE(isNear(moved.center(), CQdrGePoint2d(6, 0)));

  moved = ellipseAt({2, 0}, 0, 4, 2);
  moved.translateBy({10, 20});
  EXPECT_TRUE(isNear(moved.majorAxis(), kX));
  EXPECT_TRUE(isNear(moved.pointAtParam(0), CQdrGePoint2d(16, 20)));
}

TEST(EllipArc2d, OffsetGrowsOrShrinksBothRadii) {
  struct Row {
    const char* name;
    CQdrGePoint2d center;
    double direction;
    CQdrGePoint2d side;
    double dist;
    bool done;
    double major, minor;
  };
  const Row rows[] = {
      {"outward", {1, 1}, 0, {1, 5}, 1, true, 6, 4},
      {"inward", {1, 1}, 0, {1, 2}, 1, true, 4, 2},
      {"inward by the minor radius", {1, 1}, 0, {1, 2}, 3, false, 5, 3},
      {"outward by more than a radius", {1, 1}, 0, {1, 5}, 9, true, 14, 12},
      {"0 is the distance along the minor axis", {1, 1}, 0, {1, 5}, 0, true, 6, 4},
      {"0 on the major axis is scaled", {1, 1}, 0, {11, 1}, 0, true, 8, 6},  // |3 - 10 * 3/5|
      {"turned about the origin", {0, 0}, qdr::kHalfPi, {0, 4}, 1, true, 4, 2},
      // The side turns about the origin, the center stays: a place inside counts as outside.
      {"turned elsewhere", {10, 0}, qdr::kHalfPi, {10, 0.1}, 1, true, 6, 4},
  };
  for (const Row& row : rows) {
    CQdrGeEllipArc2d e = ellipseAt(row.center, row.direction, 5, 3);
    EXPECT_EQ(e.offset(row.side, row.dist), row.done) << row.name;
    EXPECT_NEAR(e.majorRadius(), row.major, 1e-9) << row.name;
    EXPECT_NEAR(e.minorRadius(), row.minor, 1e-9) << row.name;
    EXPECT_NEAR(e.pointAtParam(0).distanceTo(row.center), row.major, 1e-9) << row.name;
  }
}

TEST(EllipArc2d, InsideIsTheFocalSumBetweenTheAngles) {
  struct Row {
    const char* name;
    double a, b;
    CQdrGePoint2d point;
    double margin;
    bool inside;
  };
  // Angles 0.5 to 2 at center (1, 1), direction 0.
  const Row rows[] = {
      {"inside", 5, 3, {1, 3}, 0, true},
      {"beyond the curve", 5, 3, {1, 4.1}, 0, false},
      {"beyond within the margin", 5, 3, {1, 4.1}, 0.5, true},
      {"before the start", 5, 3, {3, 1.1}, 0, false},
      {"just before the start within the margin", 5, 3, {3, 1.9}, 0.1, true},
      {"behind the end", 5, 3, {-1, 1.5}, 0, false},
      {"no foci along a major axis that is the shorter", 3, 5, {1, 3}, 0, false},
  };
  for (const Row& row : rows) {
    const CQdrGeEllipArc2d e = ellipseAt({1, 1}, 0, row.a, row.b, 0.5, 2.0);
    EXPECT_EQ(e.isInside(row.point, row.margin), row.inside) << row.name;
  }
}

TEST(EllipArc2d, TangentTakesThePointAsItStands) {
  const CQdrGeEllipArc2d e = ellipseAt({0, 0}, 0, 5, 3);
  CQdrGeLine2d line;
  const CQdrGePoint2d touch(3, 2.4);  // 9 / 25 + 5.76 / 9 = 1
  EXPECT_TRUE(e.tangent(touch, line, 0.01));
  EXPECT_TRUE(isNear(line.startPoint(), CQdrGePoint2d(25.0 / 3, 0)));
  EXPECT_TRUE(isNear(line.endPoint(), CQdrGePoint2d(0, 3.75)));
  const CQdrGeLine2d before = line;
  EXPECT_FALSE(e.tangent({3, 2}, line, 0.01));
  EXPECT_TRUE(line == before);

  const CQdrGeEllipArc2d moved = ellipseAt({10, 0}, 0, 5, 3);
  EXPECT_TRUE(moved.tangent({13, 2.4}, line, 0.01));
  EXPECT_TRUE(isNear(line.startPoint(), CQdrGePoint2d(25.0 / 13, 0)));
}

TEST(EllipArc2d, ScreenPointsAreTruncated) {
  CQdrGeEllipArc2d e = ellipseAt({0, 0}, 0, 2, 1, 0, qdr::kHalfPi);
  std::vector<CPoint> points(3);
  e.getGrVertexArray(points, 8, 100.0);  // the whole ellipse, though the arc is a quarter
  ASSERT_EQ(points.size(), 9u);
  EXPECT_EQ(points[0], CPoint(200, 0));
  EXPECT_EQ(points[1], CPoint(141, 70));    // 141.42, 70.7
  EXPECT_EQ(points[5], CPoint(-141, -70));  // toward zero
  EXPECT_EQ(points[8], CPoint(200, 0));
  e.getGrVertexArray(points, 0, 100.0);
  EXPECT_EQ(points, (std::vector<CPoint>{{200, 0}, {200, 0}}));  // both ends of the turn

  // The arc form takes the lengths of the axes for the radii.
  e.set({0, 0}, {2, 0}, {0, 1}, 2, 1, 0, qdr::kPi / 4);
  e.getGrVertexArray_Arc(points, 16, 1000.0);
  const double u = std::atan(2.0);  // 2.8 steps of a 16th
  ASSERT_EQ(points.size(), 4u);
  EXPECT_EQ(points[1], CPoint(1847, 382));  // cos and sin of pi / 8, by 2000 and 1000
  EXPECT_EQ(points[3], CPoint(int(2000 * std::cos(u)), int(1000 * std::sin(u))));
  e.getGrVertexArray_Arc(points, 0, 1000.0);
  EXPECT_EQ(points.size(), 2u);
  e.set({0, 0}, {2, 0}, {0, 1}, 2, 1, 0, qdr::kTwoPi);  // ends that coincide: the whole turn
  e.getGrVertexArray_Arc(points, 16, 1000.0);
  EXPECT_GE(points.size(), 17u);
  EXPECT_EQ(points.back(), CPoint(2000, 0));
}

TEST(EllipArc2d, StoredAs85Bytes) {
  CQdrGeEllipArc2d e({1, 2}, {0, 1}, {-1, 0}, 6, 5, 0.25, 1.5);
  const std::string bytes = bytesOf(e);
  ASSERT_EQ(bytes.size(), 85u);
  const double expected[] = {-1, 0, 0, 1, 6, 5, 0.25, 1.5};  // minor axis first
  for (int i = 0; i < 8; ++i) {
    double value = 0;
    std::copy_n(bytes.data() + 20 + 8 * i, 8, reinterpret_cast<char*>(&value));
    EXPECT_EQ(value, expected[i]) << i;
  }
  EXPECT_EQ(bytes[84], 0);
  CQdrGeEllipArc2d back;
  readBytes(back, bytes);
  EXPECT_TRUE(back.isEqualTo(e, kTol));
  EXPECT_TRUE(back.polyline() == e.polyline());
}

// Radii 5 and 3 turned by 0.3 about (1, 2): u = 0.6 * 5 along the major axis is v = 0.8 * 3 across,
// and the same ellipse turned by another quarter is met on both diagonals.
TEST(EllipArc2d, CrossingsAreThoseOfTheChain) {
  const CQdrGeEllipArc2d e = ellipseAt({1, 2}, 0.3, 5, 3);
  const CQdrGeVector2d u = e.majorAxis(), v = e.minorAxis();
  const CQdrGeLine2d stub(e.center() + u * 3, v * 0.1);  // ends inside
  CQdrGePoint2d p1, p2;
  int count = 0;
  EXPECT_FALSE(e.intersectWith(stub, count, p1, p2, CQdrGeEntity2d::kExtendThis, 0.001));
  ASSERT_TRUE(e.intersectWith(stub, count, p1, p2, CQdrGeEntity2d::kExtendArg, 0.001));
  ASSERT_EQ(count, 2);
  EXPECT_TRUE(isNear(p1, e.center() + u * 3 + v * 2.4, 1e-3));
  EXPECT_TRUE(isNear(p2, e.center() + u * 3 - v * 2.4, 1e-3));

  std::vector<CQdrGePoint2d> hits;
  const CQdrGeEllipArc2d across = ellipseAt({1, 2}, 0.3 + qdr::kHalfPi, 5, 3);
  ASSERT_TRUE(e.intersectWith(across, count, hits, CQdrGeEntity2d::kExtendNone, 0.001));
  ASSERT_EQ(count, 4);
  const double d = 15 / std::sqrt(34.0);
  for (int quarter = 0; quarter < 4; ++quarter) {
    const CQdrGeVector2d way = u * (quarter % 3 == 0 ? d : -d) + v * (quarter < 2 ? d : -d);
    EXPECT_TRUE(isNear(hits[static_cast<std::size_t>(quarter)], e.center() + way, 1e-3)) << quarter;
  }
  // The circle of radius 4: x^2 (1 / 25 - 1 / 9) = 1 - 16 / 9, so x^2 = 175 / 16.
  hits.clear();
  const CQdrGeCircArc2d half({1, 2}, 4, 0.3, 0.3 + qdr::kPi);
  ASSERT_TRUE(e.intersectWith(half, count, hits, CQdrGeEntity2d::kExtendNone, 0.001));
  const double x = std::sqrt(175.0) / 4;
  ASSERT_EQ(hits.size(), 2u);
  EXPECT_TRUE(isNear(hits[0], e.center() + u * x + v * std::sqrt(16 - x * x), 1e-3));
  hits.clear();
  EXPECT_TRUE(e.intersectWith(half, count, hits, CQdrGeEntity2d::kExtendArg, 0.001));
  EXPECT_EQ(count, 4);
  hits.clear();
  CQdrGePolyline2d axis({e.center() - v * 9, e.center() + v * 9});
  EXPECT_TRUE(e.intersectWith(axis, count, hits, CQdrGeEntity2d::kExtendNone, 0.001));
  EXPECT_EQ(count, 2);
}

TEST(EllipArc2d, DegenerateFieldsEnd) {
  const double nan = std::nan("");
  for (const auto& [a, b, start, end] : std::vector<std::array<double, 4>>{{0, 3, 0, 1},
                                                                           {3, 0, 0, 1},
                                                                           {nan, 1, 0, 1},
                                                                           {2, 1, 0, nan},
                                                                           {2, 1, 0, 1e18},
                                                                           {2, 1, -1e18, 1e18},
                                                                           {1e308, 1e-308, 0, 3}}) {
    CQdrGeEllipArc2d e({0, 0}, kX, kY, a, b, start, end);
    EXPECT_GE(e.polyline().numVerts(), 1);
    EXPECT_LE(e.polyline().numVerts(), 103);
    std::vector<CPoint> points;
    e.getGrVertexArray(points, 100, 100);
    EXPECT_EQ(points.size(), 101u);
    e.getGrVertexArray_Arc(points, 100, 100);
    EXPECT_LE(points.size(), 1000000u);
  }
}

}  // namespace
