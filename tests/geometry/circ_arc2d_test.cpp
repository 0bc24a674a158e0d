#include "geometry/circ_arc2d.h"

#include <cmath>
#include <limits>

#include "geometry/angle.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/polyline2d.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Mode = CQdrGeEntity2d::Intersect;
using qdr::kHalfPi;
using qdr::kPi;
using qdr::kTwoPi;

constexpr double kTol = qdr::kCurveTolerance;
constexpr double kDegree = kPi / 180;
const CQdrGePoint2d kOrigin(0, 0);

CQdrGeCircArc2d arcOf(double startDegrees, double endDegrees, double radius = 1.0) {
  return {kOrigin, radius, startDegrees * kDegree, endDegrees * kDegree};
}

CQdrGePoint2d onCircle(double degrees, double radius = 1.0) {
  return CQdrGePoint2d(std::cos(degrees * kDegree), std::sin(degrees * kDegree)) * radius;
}

CQdrGeCircArc2d built() {
  return {};
}

TEST(CircArc2d, IsBuiltFromWhatIsGiven) {
  const CQdrGePoint2d right(1, 0), top(0, 1), left(-1, 0);
  const auto& x = CQdrGeVector2d::kXAxis;
  const auto& y = CQdrGeVector2d::kYAxis;
  const double quarter = std::tan(kPi / 8);
  const double root2 = std::sqrt(2.0), bigBulge = std::tan(3 * kPi / 8);
  const CQdrGePoint2d at(3, 4), a(0, 0), b(2, 0), one(1, 1);
  struct {
    const char* name;
    CQdrGeCircArc2d arc, expected;
  } const rows[] = {
      {"default", built(), {a, 1, 0, kTwoPi}},
      {"clockwise swaps", {at, 2, 0.5, 1.5, x, true}, {at, 2, 1.5, 0.5}},
      {"constructor takes y off", {at, 2, 2, 3, y}, {at, 2, 2 - kHalfPi, 3 - kHalfPi}},
      {"set adds it", built().set(at, 2, 2, 3, y), {at, 2, 2 + kHalfPi, 3 + kHalfPi}},
      {"set ignores others", built().set(at, 2, 0.5, 1.5, {1, 1}, true), {at, 2, 1.5, 0.5}},
      {"set through three points", built().set(right, top, left), {a, 1, 0, kPi}},
      {"set through three, clockwise", built().set(left, top, right), {a, 1, 0, kPi}},
      {"three points built leave the middle out", {right, top, left}, {a, 1, kPi, 0}},
      {"set in a line keeps the center", built().set({3, 0}, {4, 0}, {5, 0}), {a, 3, 0, 0}},
      {"bulge to the right", {a, b, quarter, true}, {one, root2, 5 * kPi / 4, 7 * kPi / 4}},
      {"bulge to the left", {a, b, -quarter, true}, {{1, -1}, root2, kPi / 4, 3 * kPi / 4}},
      {"more than a half turn", {right, top, bigBulge, true}, {one, 1, 3 * kHalfPi, kPi}},
      {"no bulge keeps the center", {right, b, 0.0, true}, {a, 1, 0, 0}},
      // Included angle pi/2: the ways from the ends lean by pi/4, up and to the middle.
      {"quarter looks at the center", {a, b, quarter, false}, {one, root2, kPi / 4, 3 * kPi / 4}},
      {"half turn by tangent keeps the center", {a, b, 1.0, false}, {a, 0, 0, kPi}},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(row.arc.isEqualTo(row.expected, 1e-9))
        << row.name << ": " << ::testing::PrintToString(row.arc.center()) << " " << row.arc.radius()
        << " " << row.arc.startAng() << " " << row.arc.endAng();
  }
  CQdrGeCircArc2d arc;
  arc.setStartAngle(-1);
  arc.setEndAngle(7);
  EXPECT_DOUBLE_EQ(arc.startAng(), kTwoPi - 1);
  EXPECT_EQ(arc.endAng(), 7);
}

// A flat arc far out: its ends lie on it, and its bulge comes back.
TEST(CircArc2d, OverAChordKeepsItsEnds) {
  for (const double bulge : {0.0011, -0.01, 0.4, -0.999, 1.5, -40.0}) {
    const CQdrGePoint2d p1(5e6, 3e6), p2(5e6 + 0.75, 3e6 - 0.5);
    const CQdrGeCircArc2d arc(p1, p2, bulge, true);
    EXPECT_TRUE(arc.isOn(p1, kTol) && arc.isOn(p2, kTol)) << bulge;
    EXPECT_TRUE(isNear(bulge > 0 ? arc.startPoint() : arc.endPoint(), p1, 1e-7)) << bulge;
    EXPECT_NEAR(arc.bulge() / std::abs(bulge), 1.0, 1e-5) << bulge;
  }
}

struct ArcRow {
  const char* name;
  CQdrGeCircArc2d arc;
  double length, bulge;
  CQdrGePoint2d middle;
};

TEST(CircArc2d, MeasuresItsSweep) {
  const ArcRow rows[] = {
      {"full", built(), kTwoPi, 0, {-1, 0}},
      {"quarter", arcOf(0, 90, 2), kPi, std::tan(kPi / 8), onCircle(45, 2)},
      {"across +x", arcOf(350, 10, 9), kPi, std::tan(kPi / 36), {9, 0}},
      {"negative start", arcOf(-90, 90), kPi, 1, {1, 0}},
      {"both negative", arcOf(-180, -90), kHalfPi, std::tan(kPi / 8), onCircle(225)},
      {"equal angles measure full", arcOf(30, 30), kTwoPi, 0, onCircle(30)},
      {"-180 to 180 has no sweep", arcOf(-180, 180), 0, 0, {-1, 0}},
  };
  for (const ArcRow& row : rows) {
    EXPECT_NEAR(row.arc.length(), row.length, 1e-12) << row.name;
    EXPECT_NEAR(row.arc.bulge(), row.bulge, 1e-12) << row.name;
    EXPECT_TRUE(isNear(row.arc.pointAtParam(0.5), row.middle)) << row.name;
  }
}

TEST(CircArc2d, ParametersHoldOnArcsAndWrapOnCircles) {
  const CQdrGeCircArc2d full, half = arcOf(0, 180), across = arcOf(270, 90);
  struct {
    const char* name;
    double actual, expected;
  } const rows[] = {
      {"forward on an arc", half.paramAtDist(0.5, kHalfPi / 2, true, kTol), 0.75},
      {"held at 1", half.paramAtDist(0.5, kPi, true, kTol), 1},
      {"held at 0", half.paramAtDist(0.5, kPi, false, kTol), 0},
      {"round a circle", full.paramAtDist(0.75, kPi, true, kTol), 0.25},
      {"back round a circle", full.paramAtDist(0.25, kPi, false, kTol), 0.75},
      {"of a point across +x", across.paramAtPoint({1, 0}, kTol), 0.5},
      {"of the end", across.paramAtPoint({0, 1}, kTol), 1},
      {"just before the start counts as the start",
       arcOf(10, 90).paramAtPoint(onCircle(9.95), kTol), 0},
      {"off the curve", half.paramAtPoint({0, -1}, kTol), -1},
      {"distance off the curve", half.distAtPoint({0, -1}, kTol), -kPi},
      {"part of the length", half.length(0.25, 0.75, kTol), kHalfPi},
      {"backward part", half.length(0.75, 0.25, kTol), kHalfPi},
      {"from outside", half.length(1.5, 0.5, kTol), 0},
      {"the end is not checked", half.length(0, 2, kTol), kTwoPi},
      {"curvature is the radius", arcOf(0, 90, 5).curvatureAtParam(0.5), 5},
      {"curvature at a point", arcOf(0, 90, 5).curvatureAtPoint({5, 0}, kTol), 5},
  };
  for (const auto& row : rows)
    EXPECT_NEAR(row.actual, row.expected, 1e-12) << row.name;
}

struct PointRow {
  const char* name;
  CQdrGeCircArc2d arc;
  CQdrGePoint2d point;
  double tol;
  bool expected;
};

TEST(CircArc2d, PointsLieOnItByRadiusAndByAFixedAngle) {
  const PointRow rows[] = {
      {"across +x at angle 0", arcOf(350, 10), {1, 0}, kTol, true},
      {"across +x at the far side", arcOf(350, 10), {-1, 0}, kTol, false},
      {"radius at the tolerance", arcOf(0, 90), {0, 1.5}, 0.5, true},
      {"radius beyond", arcOf(0, 90), {0, 1.5}, 0.4, false},
      {"0.05 degrees before the start", arcOf(10, 90), onCircle(9.95), kTol, true},
      {"but not where that is before +x", arcOf(0, 90), onCircle(-0.05), kTol, false},
      {"0.05 degrees beyond the end", arcOf(0, 90), onCircle(90.05), kTol, true},
      {"0.06 degrees beyond the end", arcOf(0, 90), onCircle(90.06), 0.5, false},
      {"negative angles hold no point", arcOf(-90, -10), onCircle(-45), kTol, false},
      {"a negative start across +x holds all", arcOf(-90, 90), onCircle(180), kTol, true},
  };
  for (const PointRow& row : rows)
    EXPECT_EQ(row.arc.isOn(row.point, row.tol) != 0, row.expected) << row.name;
}

TEST(CircArc2d, SlicesHaveNoWrap) {
  const CQdrGeCircArc2d arc = arcOf(90, 180, 2);
  EXPECT_TRUE(arc.isInside(onCircle(135, 1.9), 0));
  EXPECT_FALSE(arc.isInside(onCircle(45, 1), 0));
  EXPECT_TRUE(arc.isInside(onCircle(85, 1), 0.1)) << "widened by the margin in radians";
  EXPECT_FALSE(arc.isInside(onCircle(135, 2.2), 0.1));
  EXPECT_TRUE(arc.isInside(onCircle(135, 2.05), 0.1)) << "and in length";
  EXPECT_FALSE(arcOf(350, 10).isInside({0.5, 0}, 0));
}

TEST(CircArc2d, ComparesByValueButNeverThroughTheBase) {
  const CQdrGeCircArc2d arc = arcOf(0, 90), same = arcOf(0, 90);
  EXPECT_TRUE(arc == same);
  EXPECT_TRUE(arc.isEqualTo(CQdrGeCircArc2d({0, 0.5}, 1.5, 0, kHalfPi), 0.5));
  EXPECT_FALSE(arc.isEqualTo(CQdrGeCircArc2d({0, 0.5}, 1.6, 0, kHalfPi), 0.5));
  EXPECT_FALSE(arc == CQdrGeCircArc2d(kOrigin, 1 + 1e-15, 0, kHalfPi)) << "radius bit for bit";
  EXPECT_TRUE(arc == CQdrGeCircArc2d({1e-7, 0}, 1, 0, kHalfPi)) << "center within 1e-06";
  const CQdrGeEntity2d& base = arc;
  EXPECT_FALSE(base == same);
  EXPECT_FALSE(base.isEqualTo(lineOf(0, 0, 1, 1), 10.0));
}

TEST(CircArc2d, TransformsKeepTheRadiusOrScaleIt) {
  CQdrGeCircArc2d stretched = arcOf(0, 90);
  stretched.transformBy(CQdrGeMatrix2d::scaling(3, 3, kOrigin));
  EXPECT_EQ(stretched.radius(), 1) << "transformBy never changes it";
  EXPECT_EQ(arcOf(0, 90).scaleBy(3, 7, {1, 1}).radius(), 3) << "sx alone";
  EXPECT_TRUE(isNear(arcOf(0, 90).scaleBy(3, 7, {1, 1}).center(), {-2, -6}));

  CQdrGeCircArc2d mirrored = arcOf(0, 90);
  mirrored.mirror(CQdrGeLine2d::kYAxis);
  EXPECT_NEAR(mirrored.startAng(), kHalfPi, 1e-12);
  EXPECT_NEAR(mirrored.endAng(), kPi, 1e-12);
  CQdrGeCircArc2d circle;
  circle.mirror(CQdrGeLine2d::kYAxis);
  EXPECT_EQ(circle.startAng(), kTwoPi) << "a circle swaps its angles too";
  EXPECT_EQ(circle.endAng(), 0);
}

TEST(CircArc2d, RotationReducesAnglesAndKeepsTheirSign) {
  struct {
    const char* name;
    CQdrGeCircArc2d arc;
    double angle, start, end;
  } const rows[] = {
      {"forward", arcOf(10, 350), 20 * kDegree, 30 * kDegree, 10 * kDegree},
      {"backward keeps the sign", arcOf(10, 40), -20 * kDegree, -10 * kDegree, 20 * kDegree},
      {"many turns back", arcOf(10, 40), -720 * kDegree, -350 * kDegree, -320 * kDegree},
      {"a circle stays", built(), 1, 0, kTwoPi},
      {"a huge angle ends", arcOf(0, 90), 1e9 * kTwoPi, 0, kHalfPi},
  };
  for (const auto& row : rows) {
    CQdrGeCircArc2d arc = row.arc;
    arc.rotateBy(row.angle, kOrigin);
    EXPECT_NEAR(arc.startAng(), row.start, 1e-5) << row.name;
    EXPECT_NEAR(arc.endAng(), row.end, 1e-5) << row.name;
  }
  CQdrGeCircArc2d arc = arcOf(0, 90);
  arc.rotateBy(std::numeric_limits<double>::infinity(), {5, 5});
  EXPECT_FALSE(std::isfinite(arc.startAng()));
}

struct LineRow {
  const char* name;
  CQdrGeCircArc2d arc;
  CQdrGeLine2d line;
  Mode mode;
  std::vector<CQdrGePoint2d> hits;
};

void expectHits(const char* name, int count, const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                const std::vector<CQdrGePoint2d>& expected) {
  ASSERT_EQ(count, static_cast<int>(expected.size())) << name;
  const CQdrGePoint2d actual[] = {p1, p2};
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_TRUE(isNear(actual[i], expected[i], 1e-8)) << name << ", hit " << i;
}

TEST(CircArc2d, MeetsALine) {
  const CQdrGeCircArc2d full, upper = arcOf(0, 180), zero = arcOf(30, 30);
  const double h = std::sqrt(0.5);
  const LineRow rows[] = {
      {"right one first", full, lineOf(3, 0, -3, 0), Mode(0), {{1, 0}, {-1, 0}}},
      {"upper one first", full, lineOf(0, 3, 0, -3), Mode(0), {{0, 1}, {0, -1}}},
      {"oblique", full, lineOf(-3, -3, 3, 3), Mode(0), {{h, h}, {-h, -h}}},
      {"line ends inside", full, lineOf(0, 0, -3, 0), Mode(0), {{-1, 0}}},
      {"line extended", full, lineOf(0, 0, -3, 0), Mode(2), {{1, 0}, {-1, 0}}},
      {"arc alone", upper, lineOf(0, -3, 0, 3), Mode(0), {{0, 1}}},
      {"arc extended", upper, lineOf(0, -3, 0, 3), Mode(1), {{0, 1}, {0, -1}}},
      {"arc extended, the line short", upper, lineOf(0, -3, 0, 0), Mode(1), {{0, -1}}},
      {"arc kept, the line short", upper, lineOf(0, -3, 0, 0), Mode(2), {{0, 1}}},
      {"both short", upper, lineOf(0, -3, 0, 0), Mode(0), {}},
      {"both extended", upper, lineOf(0, -3, 0, -2), Mode(3), {{0, 1}, {0, -1}}},
      {"touching", full, lineOf(-3, 1, 3, 1), Mode(0), {{0, 1}}},
      {"just past it", full, lineOf(-3, 1 + 1e-9, 3, 1 + 1e-9), Mode(0), {}},
      {"just inside counts as one", full, lineOf(-3, 1 - 1e-9, 3, 1 - 1e-9), Mode(0), {{0, 1}}},
      {"past it", full, lineOf(-3, 2, 3, 2), Mode(3), {}},
      {"no sweep takes every point", zero, lineOf(3, 0, -3, 0), Mode(0), {{1, 0}, {-1, 0}}},
      {"a point of a line is vertical",
       full,
       lineOf(0.6, 5, 0.6, 5),
       Mode(3),
       {{0.6, 0.8}, {0.6, -0.8}}},
      {"unknown mode", full, lineOf(3, 0, -3, 0), Mode(4), {}},
      {"nearly vertical and long",
       full,
       lineOf(-2e-7, -1e3, 2e-7, 1e3),
       Mode(0),
       {{2e-10, 1}, {-2e-10, -1}}},
      {"far out",
       {{4e6, 4e6}, 5},
       lineOf(4e6 - 9, 4e6 + 3, 4e6 + 9, 4e6 + 3),
       Mode(0),
       {{4e6 + 4, 4e6 + 3}, {4e6 - 4, 4e6 + 3}}},
  };
  for (const LineRow& row : rows) {
    CQdrGePoint2d p1, p2;
    int count = 9;
    EXPECT_EQ(row.arc.intersectWith(row.line, count, p1, p2, row.mode, kTol), !row.hits.empty())
        << row.name;
    expectHits(row.name, count, p1, p2, row.hits);
  }
}

TEST(CircArc2d, MeetsAnArc) {
  const CQdrGeCircArc2d full, whole({1.2, 0}, 1), leftOf({1.2, 0}, 1, kHalfPi, kPi);
  const CQdrGeCircArc2d upper = arcOf(0, 180), low = arcOf(180, 190), large({0, 0}, 3);
  const CQdrGeCircArc2d within({2, 0}, 1), endTouch({2, 0}, 1, kPi, kTwoPi);
  const CQdrGeCircArc2d facing({2, 0}, 1, kHalfPi, 3 * kHalfPi);
  const CQdrGePoint2d up(0.6, 0.8), down(0.6, -0.8);
  struct {
    const char* name;
    CQdrGeCircArc2d a, b;
    Mode mode;
    std::vector<CQdrGePoint2d> hits;
    int countOnFailure = 9;
  } const rows[] = {
      {"left of the centers' way first", full, whole, Mode(0), {up, down}},
      {"by both", full, leftOf, Mode(0), {up}},
      {"this extended goes by the argument", upper, whole, Mode(1), {up, down}},
      {"argument extended goes by this", upper, leftOf, Mode(2), {up}},
      {"second alone moves up", arcOf(180, 360), whole, Mode(0), {down}},
      {"both extended", low, leftOf, Mode(3), {up, down}},
      {"neither clears the count", low, leftOf, Mode(0), {}, 0},
      {"apart keeps the count", full, {{5, 0}, 1}, Mode(3), {}},
      {"one within the other", full, {{0.1, 0}, 3}, Mode(3), {}},
      {"the smaller one touching from inside", within, large, Mode(3), {}},
      {"the larger one touched from inside", large, within, Mode(3), {{3, 0}, {3, 0}}},
      {"concentric and equal", full, full, Mode(3), {}},
      {"touching outside, no end there", arcOf(-90, 90), facing, Mode(0), {}},
      {"touching at ends, whatever the mode", full, endTouch, Mode(2), {{1, 0}}},
  };
  for (const auto& row : rows) {
    CQdrGePoint2d p1, p2;
    int count = 9;
    const bool met = row.a.intersectWith(row.b, count, p1, p2, row.mode, kTol);
    EXPECT_EQ(met, !row.hits.empty()) << row.name;
    if (met)
      expectHits(row.name, count, p1, p2, row.hits);
    else
      EXPECT_EQ(count, row.countOnFailure) << row.name;
  }
  CQdrGePoint2d p1, p2;
  int count = 9;
  EXPECT_FALSE(full.intersectWith(full, count, p1, p2, Mode(3), 0.0)) << "nor at no tolerance";
}

TEST(CircArc2d, ClosestPointsGoByCenterLines) {
  CQdrGePoint2d onOther;
  const CQdrGeCircArc2d quarter = arcOf(0, 90);
  EXPECT_TRUE(isNear(quarter.closestPointTo(CQdrGePoint2d(3, 3), kTol), onCircle(45)));
  EXPECT_TRUE(isNear(quarter.closestPointTo(CQdrGePoint2d(-5, 1), kTol), {0, 1}));
  EXPECT_TRUE(isNear(quarter.closestPointTo(CQdrGePoint2d(-1, -1), kTol), {1, 0}))
      << "equally near ends: the start";
  // A line through the circle: the way from the center, not the crossing.
  EXPECT_TRUE(isNear(quarter.closestPointTo(lineOf(0.5, -3, 0.5, 3), onOther, kTol), {1, 0}));
  EXPECT_TRUE(isNear(onOther, {0.5, 0}));
  EXPECT_TRUE(isNear(quarter.closestPointTo(lineOf(-3, -5, -3, 9), onOther, kTol), {0, 1}));
  EXPECT_TRUE(isNear(onOther, {-3, 1}));
  EXPECT_TRUE(isNear(quarter.closestPointTo(CQdrGeCircArc2d({4, 0}, 1), onOther, kTol), {1, 0}));
  EXPECT_TRUE(isNear(onOther, {3, 0}));
  // The facing point of the other arc is missing: its nearer end, and its foot here.
  const CQdrGeCircArc2d away({4, 0}, 1, 3 * kHalfPi, kHalfPi / 2);
  quarter.closestPointTo(away, onOther, kTol);
  EXPECT_TRUE(isNear(onOther, {4, -1}));
  EXPECT_NEAR(quarter.distanceTo(lineOf(-3, -5, -3, 9), kTol), 3, 1e-12);
}

struct PerpRow {
  const char* name;
  CQdrGeCircArc2d arc;
  CQdrGePoint2d point;
  bool found;
  CQdrGeVector2d vector;
};

TEST(CircArc2d, PerpendicularsRunAlongTheRadius) {
  const PerpRow rows[] = {
      {"outside", arcOf(0, 360, 5), {8, 0}, true, {3, 0}},
      {"inside", arcOf(0, 360, 5), {4, 0}, true, {-1, 0}},
      {"inside, through the center", arcOf(90, 270, 5), {4, 0}, true, {9, 0}},
      {"outside, arc extended", arcOf(90, 270, 5), {8, 0}, true, {3, 0}},
      {"probe too short near the center", arcOf(0, 360), {0.1, 0}, false, {}},
      {"at the center", arcOf(0, 360), {0, 0}, false, {}},
  };
  for (const PerpRow& row : rows) {
    CQdrGeVector2d vector(7, 7);
    EXPECT_EQ(row.arc.perpVecFromPoint(row.point, vector, kTol), row.found) << row.name;
    EXPECT_TRUE(isNear(vector, row.found ? row.vector : CQdrGeVector2d(7, 7))) << row.name;
  }
}

TEST(CircArc2d, OffsetsAndTangents) {
  struct {
    const char* name;
    CQdrGePoint2d side;
    double dist;
    bool moved;
    double radius;
  } const rows[] = {
      {"inward", {1, 0}, 2, true, 3},
      {"outward", {9, 0}, 2, true, 7},
      {"outward by the radius fails", {9, 0}, 5, false, 5},
      {"zero goes to the point", {9, 0}, 0, true, 9},
      {"on the circle counts as inside", {5, 0}, 2, true, 3},
  };
  for (const auto& row : rows) {
    CQdrGeCircArc2d arc = arcOf(0, 360, 5);
    EXPECT_EQ(arc.offset(row.side, row.dist), row.moved) << row.name;
    EXPECT_NEAR(arc.radius(), row.radius, 1e-12) << row.name;
  }
  EXPECT_FALSE(arcOf(0, 360).offset({5, 0}, 2)) << "radius 1 outward by 2";

  // From (5, 0) at radius 3 the touch points are at (9/5, +-12/5); rounding picks between equals.
  CQdrGeLine2d line;
  EXPECT_TRUE(arcOf(0, 360, 3).tangent({5, 0}, line, kTol));
  EXPECT_TRUE(isNear(line.startPoint(), {5, 0}));
  EXPECT_NEAR(line.length(), 4, 1e-9);
  EXPECT_NEAR(line.endPoint().x, 1.8, 1e-9);
  EXPECT_FALSE(arcOf(150, 210, 3).tangent({5, 0}, line, kTol)) << "touches beyond the arc";
  EXPECT_FALSE(arcOf(0, 360, 3).tangent({1, 0}, line, kTol)) << "from inside";
}

TEST(CircArc2d, BecomesAPolyline) {
  CQdrGePolyline2d chain;
  arcOf(0, 90, 2).asPolyline(chain, 0);
  ASSERT_EQ(chain.numVerts(), 2);
  EXPECT_FALSE(chain.isClosed());
  EXPECT_NEAR(chain.getBulgeAt(0), std::tan(kPi / 8), 1e-12);
  EXPECT_TRUE(isNear(chain.points()[0], {2, 0}) && isNear(chain.points()[1], {0, 2}));
  arcOf(0, 90, 2).asPolyline(chain, 1);
  EXPECT_NEAR(chain.getBulgeAt(0), -std::tan(kPi / 8), 1e-12);
  EXPECT_TRUE(isNear(chain.points()[0], {2, 0})) << "clockwise changes the sign only";
  CQdrGeCircArc2d({1, 0}, 2, 1, 1 + kTwoPi).asPolyline(chain, 1);
  ASSERT_EQ(chain.numVerts(), 2);
  EXPECT_TRUE(chain.isClosed());
  EXPECT_EQ(chain.getBulgeAt(0), -1);
  EXPECT_EQ(chain.getBulgeAt(1), -1);
  EXPECT_TRUE(isNear(chain.points()[0], {3, 0}) && isNear(chain.points()[1], {-1, 0}))
      << "from angle 0, whatever the angles";
  arcOf(0, 90, 2).asPolyline(chain, 0);
  EXPECT_TRUE(chain.isClosed()) << "an arc leaves the flag";
  EXPECT_TRUE(CQdrGeCircArc2d({1, 0}, 2).isInsidePoint({2.5, 0.25}));
  EXPECT_FALSE(CQdrGeCircArc2d({1, 0}, 2).isInsidePoint({3.5, 0.25}));
  EXPECT_FALSE(arcOf(0, 180).isInsidePoint({0, 0.5})) << "an open arc holds nothing";

  CQdrGeEllipArc2d ellipse;
  arcOf(10, 90, 2).getEllipse(ellipse);
  EXPECT_EQ(ellipse.majorRadius(), 2);
  EXPECT_EQ(ellipse.startAng(), 10 * kDegree);
}

struct ScreenRow {
  const char* name;
  CQdrGeCircArc2d arc;
  int n;
  std::size_t least, most;
  CPoint first, last;
};

TEST(CircArc2d, TessellatesInFixedSteps) {
  const double nan = std::nan("");
  const ScreenRow rows[] = {
      {"full", arcOf(0, 360), 100, 101, 102, {100, 0}, {100, 0}},
      {"quarter, step beyond the end left out", arcOf(0, 90), 5, 3, 3, {100, 0}, {0, 100}},
      {"across +x", arcOf(270, 90), 4, 3, 3, {0, -100}, {0, 100}},
      {"no steps give the ends", arcOf(180, 270), 0, 2, 2, {-100, 0}, {0, -100}},
      {"negative steps give the ends", arcOf(180, 270), -3, 2, 2, {-100, 0}, {0, -100}},
      {"not a number ends at once", {kOrigin, 1, nan, nan}, 100, 1, 1, {0, 0}, {0, 0}},
      {"capped", arcOf(0, 360), 2000000000, 1000000, 1000000, {100, 0}, {100, 0}},
      // 3 - (20 - 2 pi) is below 0: the end alone, at (cos 3, sin 3) = (-0.98999, 0.14112).
      {"a start more than a turn ahead", {kOrigin, 1, 20, 3}, 100, 1, 1, {-99, 14}, {-99, 14}},
      {"angles too large to grow", {kOrigin, 0, 0, 1e300}, 100, 1, 1000000, {0, 0}, {0, 0}},
  };
  for (const ScreenRow& row : rows) {
    std::vector<CPoint> points{{5, 5}};
    row.arc.getGrVertexArray(points, row.n, 100.001);
    ASSERT_GE(points.size(), row.least) << row.name;
    EXPECT_LE(points.size(), row.most) << row.name;
    EXPECT_EQ(points.front(), row.first) << row.name;
    EXPECT_EQ(points.back(), row.last) << row.name;
  }
}

TEST(CircArc2d, BytesAreRadiusAnglesAndCenter) {
  const CQdrGeCircArc2d arc({1, -2}, 4, 0.5, 1.5);
  const std::string bytes = bytesOf(arc);
  ASSERT_EQ(bytes.size(), 44u);
  EXPECT_EQ(bytes.substr(0, 24),
            bytesOf(CQdrGeVector2d(4, 0.5)) + bytesOf(CQdrGeVector2d(1.5, 0)).substr(0, 8));
  EXPECT_EQ(bytes.substr(24), bytesOf(CQdrGePoint2d(1, -2)));
}

}  // namespace
