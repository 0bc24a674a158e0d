#include "geometry/spline.h"

#include <cmath>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Points = std::vector<CQdrGePoint2d>;

void expectChain(const CQdrGePolyline2d& chain, const Points& points,
                 const std::vector<double>& bulges, const std::string& name, double tol = 1e-9) {
  ASSERT_EQ(chain.points().size(), points.size()) << name;
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_TRUE(isNear(chain.points()[i], points[i], tol)) << name << ", vertex " << i;
    EXPECT_NEAR(chain.bulges()[i], bulges[i], tol) << name << ", bulge " << i;
  }
}

TEST(Spline, EachCornerIsRoundedFromTheShorterSide) {
  const double eighth = std::tan(qdr::kPi / 8);  // a quarter turn
  struct Row {
    std::string name;
    double fit;
    Points control, chain;
    std::vector<double> bulges;
  };
  const std::vector<Row> rows = {
      {"left turn, second side shorter: 0.25 * 4",
       0.25,
       {{0, 0}, {10, 0}, {10, 4}},
       {{0, 0}, {9, 0}, {10, 1}, {10, 4}},
       {0, eighth, 0, 0}},
      {"right turn, first side shorter",
       0.25,
       {{0, 0}, {4, 0}, {4, -10}},
       {{0, 0}, {3, 0}, {4, -1}, {4, -10}},
       {0, -eighth, 0, 0}},
      {"two corners",
       0.5,
       {{0, 0}, {4, 0}, {4, 4}, {8, 4}},
       {{0, 0}, {2, 0}, {4, 2}, {4, 2}, {6, 4}, {8, 4}},
       {0, eighth, 0, -eighth, 0, 0}},
      {"two points stay", 0.25, {{0, 0}, {4, 0}}, {{0, 0}, {4, 0}}, {0, 0}},
      {"straight on",
       0.25,
       {{0, 0}, {4, 0}, {8, 0}},
       {{0, 0}, {4, 0}, {4, 0}, {8, 0}},
       {0, 0, 0, 0}},
      {"straight back",
       0.25,
       {{0, 0}, {4, 0}, {1, 0}},
       {{0, 0}, {4, 0}, {4, 0}, {1, 0}},
       {0, 0, 0, 0}},
      {"a side of no length",
       0.25,
       {{0, 0}, {4, 0}, {4, 0}},
       {{0, 0}, {4, 0}, {4, 0}, {4, 0}},
       {0, 0, 0, 0}},
      {"turn below 0.001 keeps its places but no bulge",
       0.25,
       {{0, 0}, {4, 0}, {8, 0.002}},
       {{0, 0}, {3, 0}, {5, 0.0005}, {8, 0.002}},
       {0, 0, 0, 0}},
  };
  for (const Row& row : rows) {
    CQdrGeSpline spline(row.control);
    spline.storeFitParam(row.fit);
    expectChain(spline.polyline(), row.chain, row.bulges, row.name, 1e-6);
  }
}

TEST(Spline, AReversedSplineKeepsItsShape) {
  const unsigned seed = 91;
  Random random(seed);
  for (int round = 0; round < 50; ++round) {
    Points control;
    for (int i = 0; i < 3 + round % 5; ++i)
      control.push_back(random.point(10));
    CQdrGeSpline spline(control);
    CQdrGePolyline2d expected = spline.polyline();
    expected.reverse();
    spline.reverse();
    expectChain(spline.polyline(), expected.points(), expected.bulges(),
                "seed " + std::to_string(seed) + ", round " + std::to_string(round));
  }
}

TEST(Spline, FitParameterIsStoredOnlyAboveOne) {
  CQdrGeSpline spline({{0, 0}, {4, 0}, {4, 4}});
  EXPECT_EQ(spline.getFitParam(), 0.49);
  for (const double refused : {0.3, 1.0, std::nan("")}) {
    EXPECT_TRUE(spline.setFitParam(refused));
    EXPECT_EQ(spline.getFitParam(), 0.49);
  }
  EXPECT_TRUE(spline.setFitParam(1.5));
  EXPECT_EQ(spline.getFitParam(), 1.5);
  // Both tangent points lie 1.5 sides from the corner, beyond the ends of the sides.
  EXPECT_TRUE(isNear(spline.polyline().points()[1], CQdrGePoint2d(-2, 0)));
}

TEST(Spline, ApproximationFollowsChangesAndKeepsItsFlag) {
  CQdrGeSpline spline({{0, 0}, {4, 0}, {4, 4}});
  EXPECT_EQ(spline.polyline().numVerts(), 4);
  spline.setGePolylineToCtrlPoint();
  EXPECT_EQ(spline.polyline().numVerts(), 3);
  spline.setClosed(true);
  spline.appendCtrlPt({0, 4});
  EXPECT_EQ(spline.polyline().numVerts(), 6);
  EXPECT_TRUE(spline.polyline().isClosed());

  CQdrGePolyline2d stored(Points{{7, 7}, {8, 8}});
  spline.storeGePolyline(stored);
  EXPECT_TRUE(spline.polyline() == stored);
  EXPECT_FALSE(spline.isClosed());
  const CQdrGeSpline copy(spline);
  EXPECT_TRUE(copy.polyline() == stored);
  spline.translateBy({1, 0});
  EXPECT_EQ(spline.polyline().numVerts(), 6);
  EXPECT_TRUE(isNear(spline.polyline().points()[0], CQdrGePoint2d(1, 0)));
}

TEST(Spline, ControlPointsAreEditedByIndex) {
  CQdrGeSpline spline;
  CQdrGePolyline2d chain;
  EXPECT_FALSE(spline.getGePolyline(chain));
  EXPECT_TRUE(spline.AddCtrlPt(0, {1, 0}));
  EXPECT_TRUE(spline.AddCtrlPt(1, {3, 0}));
  EXPECT_TRUE(spline.AddCtrlPt(1, {2, 0}));
  EXPECT_FALSE(spline.AddCtrlPt(4, {9, 0}));
  EXPECT_FALSE(spline.AddCtrlPt(-1, {9, 0}));
  EXPECT_FALSE(spline.removeCtrlPtAt(3));
  EXPECT_TRUE(spline.setPointAt(2, {5, 0}));
  EXPECT_FALSE(spline.setPointAt(3, {5, 0}));
  CQdrGePoint2d point;
  for (int i = 0; const double x : {1, 2, 5}) {
    EXPECT_TRUE(spline.getCtrlPtAt(i++, point));
    EXPECT_EQ(point.x, x);
  }
  EXPECT_FALSE(spline.getCtrlPtAt(3, point));
  EXPECT_TRUE(spline.removeCtrlPtAt(1));
  EXPECT_EQ(spline.numCtrlVerts(), 2);
  EXPECT_FALSE(spline.closed());
  spline.appendCtrlPt({1.001, 0});
  EXPECT_TRUE(spline.closed());
  spline.setSize(10);
  EXPECT_EQ(spline.numCtrlVerts(), 0);
}

TEST(Spline, OffsetMovesTheControlPolygon) {
  struct Row {
    std::string name;
    CQdrGePoint2d side;
    double dist;
    bool done;
    Points control;
  };
  const std::vector<Row> rows = {
      {"inside the corner", {5, 1}, 1, true, {{0, 1}, {9, 1}, {9, 10}}},
      {"outside", {5, -1}, 1, true, {{0, -1}, {11, -1}, {11, 10}}},
      {"beyond the end", {12, 14}, 1, true, {{0, -1}, {11, -1}, {11, 10}}},
      // Between curve and corner: outside the curve, though inside the control polygon.
      {"behind the rounding", {9.5, 0.5}, 1, true, {{0, -1}, {11, -1}, {11, 10}}},
  };
  for (const Row& row : rows) {
    CQdrGeSpline spline({{0, 0}, {10, 0}, {10, 10}});
    ASSERT_EQ(spline.offset(row.side, row.dist), row.done) << row.name;
    expectChain(CQdrGePolyline2d(spline.ctrlPoints()), row.control, {0, 0, 0}, row.name, 1e-6);
  }
  CQdrGeSpline point({{1, 1}, {1, 1}});
  EXPECT_FALSE(point.offset({2, 2}, 1));
  EXPECT_EQ(point.numCtrlVerts(), 2);
}

TEST(Spline, StoresFitParameterAndPointsOnly) {
  const CQdrGeSpline spline({{0, 0}, {4, 0}, {4, 4}});
  const std::string bytes = bytesOf(spline);
  EXPECT_EQ(bytes.size(), 12u + 3 * 20u);
  CQdrGeSpline back({{1, 1}});
  readBytes(back, bytes);
  EXPECT_TRUE(back == spline);
  EXPECT_TRUE(back.polyline() == spline.polyline());
  readBytes(back, bytes.substr(0, 12 + 25));  // a count of 3, one whole point behind it
  EXPECT_EQ(back.numCtrlVerts(), 1);
}

}  // namespace
