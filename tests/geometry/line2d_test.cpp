#include "geometry/line2d.h"

#include <cmath>
#include <memory>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/construction.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Mode = CQdrGeEntity2d::Intersect;

constexpr double kTol = qdr::kCurveTolerance;
constexpr double kDegree = qdr::kPi / 180;
const CQdrGeLine2d kBase = lineOf(0, 0, 10, 0);

// Answers of the four modes as bits, mode 0 in the lowest.
struct CrossingRow {
  const char* name;
  CQdrGeLine2d a;
  CQdrGeLine2d b;
  int modes;
  CQdrGePoint2d hit;
};

constexpr int kNever = 0;
constexpr int kAlways = 15;

TEST(Line2d, CrossesByMode) {
  const CrossingRow rows[] = {
      {"inside both", kBase, lineOf(4, -1, 4, 1), kAlways, {4, 0}},
      {"beyond this", kBase, lineOf(14, -1, 14, 1), 0b1010, {14, 0}},
      {"short of the argument", kBase, lineOf(4, 1, 4, 2), 0b1100, {4, 0}},
      {"beyond both", kBase, lineOf(14, 1, 14, 2), 0b1000, {14, 0}},
      {"shared end", kBase, lineOf(10, 0, 12, 5), kAlways, {10, 0}},
      {"oblique", lineOf(0, 0, 4, 4), lineOf(0, 3, 6, 0), kAlways, {2, 2}},
      {"parallel", kBase, lineOf(0, 1, 10, 1), kNever, {}},
      {"along each other", kBase, lineOf(5, 0, 15, 0), kNever, {}},
      {"collinear and oblique", lineOf(0, 0, 3, 1), lineOf(2, 2.0 / 3, 5, 5.0 / 3), kNever, {}},
      {"itself", kBase, kBase, kNever, {}},
      {"held by the other", kBase, lineOf(2, 0, 3, 0), kNever, {}},
      {"within a millionth of each other", kBase, lineOf(2, 5e-7, 8, -5e-7), kNever, {}},
      {"parallel and far out",
       lineOf(1e6, 0, 1e6 + 1000, 333),
       lineOf(1e6, 1, 1e6 + 1000, 334),
       kNever,
       {}},
      {"no length", kBase, lineOf(4, 1, 4, 1), kNever, {}},
  };
  for (const CrossingRow& row : rows) {
    for (int mode = 0; mode < 4; ++mode) {
      CQdrGePoint2d hit(-99, -99);
      const bool expected = (row.modes >> mode & 1) != 0;
      EXPECT_EQ(row.a.intersectWith(row.b, hit, Mode(mode), kTol), expected)
          << row.name << ", mode " << mode;
      // The crossing is written even when the mode refuses it; without one the point stays.
      EXPECT_TRUE(isNear(hit, row.modes == kNever ? CQdrGePoint2d(-99, -99) : row.hit))
          << row.name << ", mode " << mode;
      const Mode mirrored = qdr::swappedMode(Mode(mode));
      EXPECT_EQ(row.b.intersectWith(row.a, hit, mirrored, kTol), expected)
          << row.name << " seen from the other";
    }
    CQdrGePoint2d hit;
    EXPECT_FALSE(row.a.intersectWith(row.b, hit, Mode(4), kTol)) << row.name;
    EXPECT_FALSE(row.a.intersectWith(row.b, hit, Mode(-1), kTol)) << row.name;
    EXPECT_FALSE(row.a.intersectWith(row.b, hit, Mode(0), 0.0)) << row.name << " at no tolerance";
  }
}

TEST(Line2d, ListFormAppendsAndLeavesTheListOnAMiss) {
  std::vector<CQdrGePoint2d> points{{7, 7}};
  int count = 5;
  EXPECT_FALSE(kBase.intersectWith(lineOf(0, 1, 1, 1), count, points, Mode(3), kTol));
  EXPECT_EQ(count, 5);
  EXPECT_TRUE(kBase.intersectWith(lineOf(4, -1, 4, 1), count, points, Mode(0), kTol));
  EXPECT_EQ(count, 1);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_TRUE(isNear(points[1], {4, 0}));
}

TEST(Line2d, ListFormWithAnArcClearsAndSwapsTheMode) {
  const CQdrGeCircArc2d upperHalf({5, 0}, 2, 0, qdr::kPi);
  std::vector<CQdrGePoint2d> points{{7, 7}};
  int count = 0;
  ASSERT_TRUE(kBase.intersectWith(upperHalf, count, points, Mode(0), kTol));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_TRUE(isNear(points[0], {7, 0}) && isNear(points[1], {3, 0}));
  // A short line below the arc's circle: extended itself it meets the arc once, above.
  const CQdrGeLine2d below = lineOf(5, -9, 5, -8);
  ASSERT_TRUE(below.intersectWith(upperHalf, count, points, CQdrGeEntity2d::kExtendThis, kTol));
  ASSERT_EQ(points.size(), 1u);
  EXPECT_TRUE(isNear(points[0], {5, 2}));
  EXPECT_FALSE(below.intersectWith(upperHalf, count, points, CQdrGeEntity2d::kExtendArg, kTol));
  EXPECT_TRUE(points.empty());
  EXPECT_FALSE(below.intersectWith(upperHalf, count, points, Mode(4), kTol));
}

TEST(Line2d, MeasuresAlongItself) {
  struct {
    const char* name;
    double actual, expected;
  } const rows[] = {
      {"length", kBase.length(), 10},
      {"of a part", kBase.length(0.25, 0.75, kTol), 5},
      {"of a part backward", kBase.length(0.75, 0.25, kTol), 5},
      {"beyond the end is nothing", kBase.length(0, 2, kTol), 0},
      {"below the start is nothing", kBase.length(-0.1, 1, kTol), 0},
      {"parameter forward is held at 1", kBase.paramAtDist(0.5, 10, true, kTol), 1},
      {"backward at 0", kBase.paramAtDist(0.5, 10, false, kTol), 0},
      {"in between", kBase.paramAtDist(0.5, 2, false, kTol), 0.3},
      {"parameter of a point", kBase.paramAtPoint({4, 0}, kTol), 0.4},
      {"off the line", kBase.paramAtPoint({4, 1}, kTol), -1},
      {"isOn is strict", double(kBase.isOn({4, 1}, 1.0)), 0},
      {"isOn below", double(kBase.isOn({4, 1}, 1.001)), 1},
      {"distance needs no line", kBase.distAtPoint({3, 4}, kTol), 5},
      {"point beyond the end", kBase.pointAtParam(2).x, 20},
      {"point at distance is held", kBase.pointAtDist(25).x, 10},
      {"normal to the right", kBase.normalAtParam(0.3).y, -1},
      {"curvature", kBase.curvatureAtParam(0.5), 0},
  };
  for (const auto& row : rows)
    EXPECT_NEAR(row.actual, row.expected, 1e-12) << row.name;
}

TEST(Line2d, ComparesWithReversedSenses) {
  const CQdrGeLine2d reversed = lineOf(10, 0, 0, 0);
  EXPECT_TRUE(kBase.isParallelTo(lineOf(0, 5, 3, 5), 0.001));
  EXPECT_FALSE(kBase.isParallelTo(reversed, 0.001));
  EXPECT_TRUE(kBase.isColinearTo(lineOf(3, 5, 0, 5), 0.001)) << "place plays no part";
  EXPECT_FALSE(kBase.isColinearTo(kBase, 0.001));
  EXPECT_TRUE(kBase.isPerpendicularTo(lineOf(0, 0, 0, 3), 0.001));
  EXPECT_FALSE(lineOf(0, 0, 1, 1).isPerpendicularTo(lineOf(0, 0, 1, -1), 0.001));
  EXPECT_FALSE(kBase == reversed);
  EXPECT_TRUE(kBase.isEqualTo(lineOf(0.5, -0.5, 10, 0), 0.5));
  const CQdrGeEntity2d& base = kBase;
  EXPECT_TRUE(base == lineOf(0.001, 0, 10, 0));
  EXPECT_FALSE(base == CQdrGeCircArc2d());
}

struct ClosestRow {
  const char* name;
  CQdrGeLine2d other;
  CQdrGePoint2d onThis;
  CQdrGePoint2d onOther;
};

TEST(Line2d, ClosestPointsOfTwoSegments) {
  const ClosestRow rows[] = {
      {"crossing", lineOf(4, -1, 4, 1), {4, 0}, {4, 0}},
      {"foot of the argument's start", lineOf(4, 1, 9, 7), {4, 0}, {4, 1}},
      {"foot of the argument's end", lineOf(9, 7, 4, 1), {4, 0}, {4, 1}},
      {"foot of this end", lineOf(9, 4, 13, 0), {10, 0}, {11.5, 1.5}},
      {"end to start", lineOf(13, 4, 20, 9), {10, 0}, {13, 4}},
      {"equal feet: the argument's start first", lineOf(2, 1, 8, 1), {2, 0}, {2, 1}},
      // Both of its ends are 5 from the end of this line, and no foot falls within a segment.
      {"equal ends: the argument's start first", lineOf(13, 4, 13, 4), {10, 0}, {13, 4}},
  };
  for (const ClosestRow& row : rows) {
    CQdrGePoint2d onOther;
    EXPECT_TRUE(isNear(kBase.closestPointTo(row.other, onOther, kTol), row.onThis)) << row.name;
    EXPECT_TRUE(isNear(onOther, row.onOther)) << row.name;
  }
  // A segment of no length at equal distance from both ends of this one: this start wins.
  CQdrGePoint2d onOther;
  const CQdrGeLine2d point = lineOf(3, 3, 3, 3);
  EXPECT_TRUE(isNear(point.closestPointTo(lineOf(3, 3, 3, 3), onOther, kTol), {3, 3}));
  EXPECT_TRUE(isNear(point.closestPointTo(CQdrGePoint2d(9, 9), kTol), {3, 3}));
}

TEST(Line2d, ClosestPointsOfASegmentAndAnArc) {
  struct {
    const char* name;
    CQdrGeCircArc2d arc;
    CQdrGePoint2d onLine, onArc;
  } const rows[] = {
      {"crossing", {{5, 1}, 2}, {5 + std::sqrt(3), 0}, {5 + std::sqrt(3), 0}},
      {"by the way to the foot", {{5, 5}, 2}, {5, 0}, {5, 3}},
      {"by the way to the end", {{13, 4}, 2, 200 * kDegree, 250 * kDegree}, {10, 0}, {11.8, 2.4}},
      {"a foot beyond the end still leads", {{13, 4}, 2}, {10, 0}, {13, 2}},
      {"by the end of the arc", {{5, 5}, 2, 0, qdr::kHalfPi}, {7, 0}, {7, 5}},
  };
  for (const auto& row : rows) {
    CQdrGePoint2d onArc;
    EXPECT_TRUE(isNear(kBase.closestPointTo(row.arc, onArc, kTol), row.onLine)) << row.name;
    EXPECT_TRUE(isNear(onArc, row.onArc)) << row.name;
  }
}

TEST(Line2d, PerpendicularsReachBeyondTheEnds) {
  CQdrGeVector2d fromFoot(9, 9);
  EXPECT_TRUE(kBase.perpVecFromPoint({3, 4}, fromFoot, kTol));
  EXPECT_TRUE(isNear(fromFoot, {0, 4})) << "from the foot to the point";
  EXPECT_TRUE(kBase.perpVecFromPoint({-30, -2}, fromFoot, kTol));
  EXPECT_TRUE(isNear(fromFoot, {0, -2}));
  EXPECT_FALSE(lineOf(1, 1, 1, 1).perpVecFromPoint({3, 4}, fromFoot, kTol));
  EXPECT_TRUE(isNear(fromFoot, {0, -2}));

  CQdrGeLine2d across;
  lineOf(0, 0, 2, 0).getPerpLine({1, 5}, across);
  EXPECT_TRUE(isNear(across.startPoint(), {1, 5 - 2e9}) && isNear(across.endPoint(), {1, 5 + 2e9}));
}

TEST(Line2d, OffsetsTowardASide) {
  struct {
    const char* name;
    CQdrGeLine2d line;
    CQdrGePoint2d side;
    double dist;
    CQdrGePoint2d start;
  } const rows[] = {
      {"above", kBase, {3, 7}, 2, {0, 2}},
      {"below, the side beyond the end", kBase, {30, -7}, 2, {0, -2}},
      {"negative goes away", kBase, {3, 7}, -2, {0, -2}},
      {"zero goes to the point", kBase, {3, 7}, 0, {0, 7}},
      {"a side on the line moves nothing", kBase, {3, 0}, 2, {0, 0}},
      {"no length goes toward the point", lineOf(1, 1, 1, 1), {4, 5}, 5, {4, 5}},
  };
  for (const auto& row : rows) {
    CQdrGeLine2d line = row.line;
    EXPECT_TRUE(line.offset(row.side, row.dist)) << row.name;
    EXPECT_TRUE(isNear(line.startPoint(), row.start)) << row.name;
    EXPECT_NEAR(line.length(), row.line.length(), 1e-12) << row.name;
  }
}

TEST(Line2d, OverlapsOnlyWhatRunsTheOtherWay) {
  struct {
    const char* name;
    CQdrGeLine2d other;
    bool shared;
    CQdrGeLine2d stretch;
  } const rows[] = {
      {"reversed copy", lineOf(10, 0, 0, 0), true, kBase},
      {"held by this", lineOf(7, 0, 2, 0), true, lineOf(7, 0, 2, 0)},
      {"holding this", lineOf(20, 0, -5, 0), true, kBase},
      {"over this end", lineOf(15, 0, 4, 0), true, lineOf(10, 0, 4, 0)},
      {"over this start", lineOf(4, 0, -5, 0), true, lineOf(0, 0, 4, 0)},
      {"the same way", kBase, false, {}},
      {"apart", lineOf(20, 0, 15, 0), false, {}},
      {"beside", lineOf(10, 1, 0, 1), false, {}},
  };
  for (const auto& row : rows) {
    CQdrGeLine2d* stretch = nullptr;
    EXPECT_EQ(kBase.overlap(row.other, stretch, 0.001), row.shared) << row.name;
    const std::unique_ptr<CQdrGeLine2d> owned(stretch);
    ASSERT_EQ(owned != nullptr, row.shared) << row.name;
    if (!owned) continue;
    EXPECT_TRUE(*owned == row.stretch) << row.name;
  }
}

TEST(Construction, KeepsItsDigitsFarFromTheOrigin) {
  const double far = 4e6;
  const CQdrGePoint2d center(far + 0.25, far - 0.5);
  // A circle of radius 5 through three points with plain coordinates.
  const auto found = qdr::bisectorCenter(
      center + CQdrGeVector2d(5, 0), center + CQdrGeVector2d(3, 4), center + CQdrGeVector2d(-4, 3));
  ASSERT_TRUE(found);
  EXPECT_TRUE(isNear(*found, center, 1e-8));
  EXPECT_FALSE(qdr::bisectorCenter({0, 0}, {1, 1}, {3, 3}));
  EXPECT_FALSE(qdr::bisectorCenter({0, 0}, {0, 0}, {3, 3}));
  EXPECT_FALSE(qdr::bisectorCenter({0, 0}, {1, 0}, {2, 0.9e-12}));
  EXPECT_TRUE(qdr::bisectorCenter({0, 0}, {1, 0}, {2, 1.1e-12}));
  const auto foot = qdr::footOnLine(lineOf(far, far, far + 3, far + 4), {far - 8, far + 6});
  ASSERT_TRUE(foot);
  EXPECT_TRUE(isNear(*foot, {far, far}, 1e-8));
  EXPECT_DOUBLE_EQ(qdr::signedArea({0, 0}, {4, 0}, {0, 3}), 6);
}

}  // namespace
