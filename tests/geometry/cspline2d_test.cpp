#include "geometry/cspline2d.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/spline_curve.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Points = std::vector<CQdrGePoint2d>;

Points samplesOf(CQdrGeCSpline2d spline, double step) {
  spline.setResolution(step);
  const Points* samples = nullptr;
  return spline.getCurve(samples) < 0 ? Points() : *samples;
}

void expectPoints(const Points& actual, const Points& expected, const std::string& name) {
  ASSERT_EQ(actual.size(), expected.size()) << name;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_TRUE(isNear(actual[i], expected[i])) << name << ", point " << i;
  }
}

TEST(SplineCurve, SegmentsComeFromTheTruncatedChord) {
  struct Row {
    const char* name;
    double step;
    CQdrGeVector2d chord;
    int segments;
  };
  const double nan = std::nan("");
  const Row rows[] = {
      {"larger component", 1, {3, -7.9}, 7},
      {"truncated before the division", 0.5, {1.9, 0}, 2},
      {"truncated after the division", 2, {7, 0}, 3},
      {"shorter than the step", 10, {7, 0}, 1},
      {"chord below 1", 0.1, {0.9, 0}, 1},
      {"step 0 is 0.5", 0, {2, 0}, 4},
      {"negative step", -3, {2, 0}, 4},
      {"step that is no number", nan, {2, 0}, 4},
      {"at most a million", 1e-9, {2, 0}, 1000000},
      {"chord that is no number", 1, {nan, nan}, 1},
  };
  for (const Row& row : rows) {
    CSplineCurve curve(row.step);
    curve.set(row.chord, {0, 0}, {0, 0});
    EXPECT_EQ(curve.segments(), row.segments) << row.name;
  }
}

TEST(CSpline, HugeCurvesHaveABoundedNumberOfSamples) {
  CQdrGeCSpline2d curve(Points{{0, 0}, {2e9, 0}, {2e9, 1e9}, {0, 1e9}});
  curve.setClosed(true);
  const Points* samples = nullptr;
  const int count = curve.getCurve(samples);
  EXPECT_LE(count, CQdrGeCSpline2d::kMaxSamples + 1);
  EXPECT_GE(count, CQdrGeCSpline2d::kMaxSamples - 4);
  EXPECT_EQ(samples->back(), (CQdrGePoint2d(0, 0)));
  const double length = curve.length();
  curve.releaseCurve();
  EXPECT_EQ(curve.length(), length);
  EXPECT_EQ(curve.getVertexControlPtIndex(count / 2), 2);
}

TEST(CSpline, SamplesFollowTwoSweepsOfTheTangents) {
  struct Row {
    std::string name;
    Points control;
    double step;
    Points samples;
  };
  // With tangents A and B a span of chord C has its middle at C / 2 + (A - B) / 8, its quarters at
  // 0.15625 C + 0.140625 A - 0.046875 B and 0.84375 C + 0.046875 A - 0.140625 B.
  const std::vector<Row> rows = {
      // Sweeps of (6, 6): (0, 3), then (3, 6).
      {"two points",
       {{0, 0}, {4, 0}},
       1,
       {{0, 0}, {0.765625, 0}, {1.625, 0}, {2.671875, 0}, {4, 0}}},
      // Sweeps of (4.5, 4.5, 4.5): (0, 2.25, 2.25), then (2.25, 3.9375, 3.375).
      {"even chords",
       {{0, 0}, {3, 0}, {6, 0}},
       1.5,
       {{0, 0}, {1.2890625, 0}, {3, 0}, {4.5703125, 0}, {6, 0}}},
      // Ratio 0.5. Sweeps of (3, 6, 6): (-3, 3, 3), then (0, 7.5, 4.5); the first span ends
      // in 3.75.
      {"uneven chords, upward", {{0, 0}, {0, 2}, {0, 6}}, 2, {{0, 0}, {0, 2}, {0, 4.375}, {0, 6}}},
      {"one point", {{1, 1}}, 1, {}},
      {"a chord of no length", {{0, 0}, {0, 0}}, 1, {{0, 0}, {0, 0}}},
  };
  for (const Row& row : rows) {
    expectPoints(samplesOf(CQdrGeCSpline2d(row.control), row.step), row.samples, row.name);
  }
  expectPoints(samplesOf(CQdrGeCSpline2d({{0, 0}, {0, 2}, {0, 6}}), 1),
               {{0, 0}, {0, 0.53125}, {0, 2}, {0, 3.4687500}, {0, 4.375}, {0, 5.0937500}, {0, 6}},
               "first span");
}

TEST(CSpline, AClosedCurveWrapsItsSystemRound) {
  CQdrGeCSpline2d square({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  square.setClosed(true);
  // By symmetry the tangents are the mean chords 0.75 (d[i - 1] + d[i]), here (3, -3), (3, 3), ...
  expectPoints(
      samplesOf(square, 2),
      {{0, 0}, {2, -0.75}, {4, 0}, {4.75, 2}, {4, 4}, {2, 4.75}, {0, 4}, {-0.75, 2}, {0, 0}},
      "square");
}

TEST(CSpline, BreaksSplitTheCurveIntoStretches) {
  const Points control = {{0, 0}, {4, 0}, {4, 8}, {0, 8}};
  CQdrGeCSpline2d broken;
  broken.set(control, {0, 1, 0, 0});
  Points expected = samplesOf(CQdrGeCSpline2d({control[0], control[1]}), 1);
  const Points rest = samplesOf(CQdrGeCSpline2d({control[1], control[2], control[3]}), 1);
  expected.insert(expected.end(), rest.begin() + 1, rest.end());
  expectPoints(samplesOf(broken, 1), expected, "open");

  // Closed: from the break at (4, 0) round to it again, smooth at the seam of the list.
  broken.setClosed(true);
  expectPoints(
      samplesOf(broken, 1),
      samplesOf(CQdrGeCSpline2d({control[1], control[2], control[3], control[0], control[1]}), 1),
      "closed");
}

TEST(CSpline, ClosingDropsADoubledEnd) {
  struct Row {
    const char* name;
    CQdrGePoint2d last;
    bool closedBefore;
    int countAfter;
  };
  const Row rows[] = {
      {"coincident", {0, 0.0005}, true, 2},
      {"near enough to count as closed only", {0, 0.015}, true, 3},
      {"apart", {0, 0.03}, false, 3},
  };
  for (const Row& row : rows) {
    CQdrGeCSpline2d spline({{0, 0}, {4, 4}, row.last});
    EXPECT_EQ(spline.closed(), row.closedBefore) << row.name;
    EXPECT_FALSE(spline.isClosed());
    spline.setClosed(true);
    EXPECT_EQ(spline.numCtrlVerts(), row.countAfter) << row.name;
    EXPECT_TRUE(spline.closed()) << row.name;
    spline.setClosed(false);
    EXPECT_EQ(spline.numCtrlVerts(), row.countAfter) << row.name;
  }
}

TEST(CSpline, ControlPointsCarryOptionsThroughEdits) {
  CQdrGeCSpline2d spline(1.0);
  spline.appendCtrlPt({0, 0});
  spline.appendCtrlPt({4, 0}, 1);
  EXPECT_TRUE(spline.addCtrlPt(1, {2, 0}, 7));
  EXPECT_FALSE(spline.addCtrlPt(4, {2, 0}));
  EXPECT_TRUE(spline.setPointAt(1, {2, 1}));  // keeps the option
  EXPECT_EQ(spline.getCtrlOption(1), 7);
  EXPECT_TRUE(spline.setPointAt(1, {2, 1}, 0));
  EXPECT_EQ(spline.ctrlOptions(), (std::vector<unsigned char>{0, 0, 1}));
  spline.reverse();
  EXPECT_EQ(spline.ctrlOptions(), (std::vector<unsigned char>{1, 0, 0}));
  EXPECT_EQ(spline.ctrlPoints()[0].x, 4);
  EXPECT_TRUE(spline.removeCtrlPtAt(0));
  EXPECT_FALSE(spline.hasCtrlOption());
  EXPECT_EQ(spline.getCtrlOption(5), 0);
  EXPECT_FALSE(spline.setControlOption(5, 1));
}

TEST(CSpline, IndexViewsOfTheControlList) {
  CQdrGeCSpline2d spline({{0, 0}, {4, 0}, {8, 0}, {12, 0}});
  spline.setResolution(2);  // two samples a span
  EXPECT_TRUE(spline.addRealControlPoint(1));
  EXPECT_TRUE(spline.addRealControlPoint(3));
  EXPECT_FALSE(spline.addRealControlPoint(4));
  EXPECT_EQ(spline.numRealCtrlVerts(), 2);
  const int real[] = {-1, 1, 3, -1};
  for (int i = -1; i < 3; ++i)
    EXPECT_EQ(spline.getRealControlPtIndex(i), real[i + 1]) << i;
  EXPECT_EQ(spline.getControlPtIndex({8, 0.1}, 0.2), 2);
  EXPECT_EQ(spline.getControlPtIndex({8, 0.3}, 0.2), -1);
  const int ofSample[] = {-1, 0, 0, 1, 1, 2, 2, 3, -1};
  for (int i = -1; i < 8; ++i)
    EXPECT_EQ(spline.getVertexControlPtIndex(i), ofSample[i + 1]) << i;
  spline.clearRealControl();
  EXPECT_EQ(spline.numRealCtrlVerts(), 0);

  CQdrGePolyline2d part;
  EXPECT_TRUE(spline.getSubGePolyline(part, 1, 3));
  EXPECT_EQ(part.numVerts(), 5);
  EXPECT_TRUE(isNear(part.points().front(), CQdrGePoint2d(4, 0)));
  EXPECT_TRUE(isNear(part.points().back(), CQdrGePoint2d(12, 0)));
  EXPECT_FALSE(spline.getSubGePolyline(part, 2, 2));
  EXPECT_FALSE(spline.getSubGePolyline(part, 0, 4));

  // Closed and broken at 2: the samples begin there, and a stretch may run over their end.
  spline.setClosed(true);
  spline.addRealControlPoint(2);
  EXPECT_TRUE(spline.getSubGePolyline(part, 1, 3));
  EXPECT_EQ(part.numVerts(), 5);
  EXPECT_TRUE(isNear(part.points()[2], CQdrGePoint2d(8, 0)));
  EXPECT_TRUE(isNear(part.points().back(), CQdrGePoint2d(12, 0)));
  EXPECT_EQ(spline.getVertexControlPtIndex(0), 2);
}

TEST(CSpline, AppendingJoinsEndsWithin002) {
  struct Row {
    const char* name;
    Points other;
    bool joined;
    int where;
    std::vector<double> xs;
  };
  const Row rows[] = {
      {"its start at this end", {{4.01, 0}, {6, 0}, {9, 0}}, true, 1, {0, 2, 4, 6, 9}},
      {"its end at this end", {{9, 0}, {6, 0}, {4.01, 0}}, true, 2, {0, 2, 4, 6, 9}},
      {"its end at this start", {{-9, 0}, {-6, 0}, {0.01, 0}}, true, 3, {-9, -6, 0, 2, 4}},
      {"its start at this start", {{0.01, 0}, {-6, 0}, {-9, 0}}, true, 4, {-9, -6, 0, 2, 4}},
      {"0.03 apart", {{4.03, 0}, {9, 0}}, false, -5, {0, 2, 4}},
      {"closed by its ends", {{4, 0}, {9, 0}, {4, 0.01}}, false, -5, {0, 2, 4}},
  };
  for (const Row& row : rows) {
    CQdrGeCSpline2d spline;
    spline.set({{0, 0}, {2, 0}, {4, 0}}, {0, 1, 0});
    int where = -5;
    EXPECT_EQ(spline.appendCSpline(CQdrGeCSpline2d(row.other), where), row.joined) << row.name;
    EXPECT_EQ(where, row.where) << row.name;
    std::vector<double> xs;
    for (const CQdrGePoint2d& p : spline.ctrlPoints())
      xs.push_back(p.x);
    EXPECT_EQ(xs, row.xs) << row.name;
    EXPECT_EQ(spline.getCtrlOption(spline.getControlPtIndex({2, 0}, 0.1)), 1) << row.name;
  }
  CQdrGeCSpline2d spline({{0, 0}, {4, 0}});
  int where = 0;
  EXPECT_TRUE(spline.appendCSpline(lineOf(9, 0, 4, 0), where));
  EXPECT_EQ(where, 2);
  EXPECT_EQ(spline.ctrlPoints()[2].x, 9);
  // A quarter turn from (9, 0): every 15 degrees to (10, 1).
  EXPECT_TRUE(spline.appendCSpline(CQdrGeCircArc2d({9, 1}, 1, 1.5 * qdr::kPi, qdr::kTwoPi), where));
  EXPECT_EQ(where, 1);
  ASSERT_EQ(spline.numCtrlVerts(), 9);
  EXPECT_TRUE(isNear(spline.ctrlPoints()[3],
                     CQdrGePoint2d(9 + std::sin(qdr::kPi / 12), 1 - std::cos(qdr::kPi / 12)),
                     1e-6));
  EXPECT_TRUE(isNear(spline.ctrlPoints()[8], CQdrGePoint2d(10, 1)));
}

TEST(CSpline, OffsetMovesControlPointsToTheOffsetCurve) {
  CQdrGeCSpline2d spline({{0, 0}, {5, 0}, {10, 0}});
  spline.setResolution(1);
  ASSERT_TRUE(spline.offset({5, 3}, 2));
  expectPoints(spline.ctrlPoints(), {{0, 2}, {5, 2}, {10, 2}}, "straight");
  CQdrGePolyline2d moved;
  ASSERT_TRUE(spline.getOffsetPolyline(moved, -1));
  EXPECT_TRUE(isNear(moved.points().front(), CQdrGePoint2d(0, 1)));

  // A ring keeps its distance and its number of control points.
  Points ring;
  for (int i = 0; i < 12; ++i)
    ring.push_back(CQdrGePoint2d() + CQdrGeVector2d(i * qdr::kPi / 6) * 10);
  CQdrGeCSpline2d closed(ring);
  closed.setClosed(true);
  ASSERT_TRUE(closed.offset({0, 0}, 3));
  ASSERT_EQ(closed.numCtrlVerts(), 12);
  for (const CQdrGePoint2d& p : closed.ctrlPoints())
    EXPECT_NEAR(p.asVector().length(), 7, 0.05);

  CQdrGeCSpline2d single({{1, 1}});
  EXPECT_FALSE(single.offset({2, 2}, 1));
  EXPECT_EQ(single.numCtrlVerts(), 1);
}

TEST(CSpline, SamplesFollowEveryChange) {
  CQdrGeCSpline2d spline({{0, 0}, {10, 0}});
  EXPECT_NEAR(spline.length(), 10, 1e-9);
  spline.setPointAt(1, {20, 0});
  EXPECT_NEAR(spline.length(), 20, 1e-9);
  CQdrGePolyline2d chain;
  ASSERT_TRUE(spline.getGePolyline(chain));
  EXPECT_EQ(chain.numVerts(), 41);  // a step of 0.5 without a resolution
  spline.setResolution(5);
  ASSERT_TRUE(spline.getGePolyline(chain));
  EXPECT_EQ(chain.numVerts(), 5);
  EXPECT_FALSE(chain.isClosed());
  EXPECT_EQ(spline.curvatureAtParam(0.5), 0);
  const Points* samples = nullptr;
  EXPECT_EQ(CQdrGeCSpline2d().getCurve(samples), -1);
  EXPECT_EQ(samples, nullptr);
}

TEST(CSpline, StoresPointsAndOptionsInPairs) {
  CQdrGeCSpline2d spline;
  spline.set({{1, 2}, {3, 4}}, {0, 9});
  spline.setClosed(true);
  const std::string bytes = bytesOf(spline);
  ASSERT_EQ(bytes.size(), 5u + 2 * 21u);
  EXPECT_EQ(bytes[0], 1);
  EXPECT_EQ(bytes[1], 2);
  EXPECT_EQ(bytes[5 + 20], 0);
  EXPECT_EQ(bytes[5 + 41], 9);
  CQdrGeCSpline2d back;
  readBytes(back, bytes);
  EXPECT_TRUE(back.isEqualTo(spline, 1e-12));
  readBytes(back, bytes.substr(0, 5 + 30));
  EXPECT_EQ(back.numCtrlVerts(), 1);
}

}  // namespace
