#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "geometry/line3d.h"
#include "geometry/plane.h"
#include "geometry/polyline3d.h"
#include "tests/geometry/geometry_support.h"

// The segment and the chain in space.

namespace {

constexpr double kTol = qdr::kCurveTolerance;
using Points = std::vector<CQdrGePoint3d>;

void expectPoint(const CQdrGePoint3d& actual, const CQdrGePoint3d& expected,
                 const std::string& name) {
  EXPECT_LE(actual.distanceTo(expected), 1e-9)
      << name << ": (" << actual.x << ", " << actual.y << ", " << actual.z << ")";
}

CQdrGeLine3d lineFrom(const CQdrGePoint3d& start, const CQdrGePoint3d& end) {
  return {start, end};
}

TEST(Line3d, MeasuresLikeTheLineInThePlane) {
  const CQdrGeLine3d line = lineFrom({1, 2, 3}, {3, 3, 5});  // length 3
  EXPECT_NEAR(line.length(), 3, 1e-12);
  EXPECT_NEAR(line.length(0.25, 0.75, kTol), 1.5, 1e-12);
  EXPECT_EQ(line.length(0, 2, kTol), 0);
  EXPECT_EQ(line.length(-0.1, 1, kTol), 0);
  expectPoint(line.pointAtParam(2), {5, 4, 7}, "beyond the end");
  expectPoint(line.pointAtDist(1.5), {2, 2.5, 4}, "middle");
  expectPoint(line.pointAtDist(9), {3, 3, 5}, "held to the end");
  EXPECT_NEAR(line.paramAtDist(0.5, 3, true, kTol), 1, 1e-12);
  EXPECT_NEAR(line.paramAtDist(0.5, 3, false, kTol), 0, 1e-12);
  EXPECT_NEAR(line.paramAtPoint({2, 2.5, 4}, 0.001), 0.5, 1e-12);
  EXPECT_NEAR(line.distAtPoint({2, 2.5, 4}, 0.001), 1.5, 1e-12);
  EXPECT_EQ(line.paramAtPoint({2, 2.5, 5}, 0.001), -1);
  EXPECT_EQ(line.distAtPoint({2, 2.5, 5}, 0.001), -1);
  EXPECT_EQ(line.direction().length(), 3);  // not normalised
  expectPoint(line.midPoint(), {2, 2.5, 4}, "midPoint");
}

TEST(Line3d, PointsNearIt) {
  const CQdrGeLine3d line = lineFrom({0, 0, 0}, {10, 0, 0});
  EXPECT_FALSE(line.isOn({5, 0, 0.5}, 0.5));  // strictly below the tolerance
  EXPECT_TRUE(line.isOn({5, 0, 0.5}, 0.5001));
  CQdrGePoint3d foot(7, 7, 7);
  EXPECT_TRUE(line.closestPoint({10.05, 0, 3}, foot, 0.1));
  expectPoint(foot, {10.05, 0, 3 - 3}, "a foot within the tolerance is not held to the end");
  EXPECT_FALSE(line.closestPoint({10.2, 0, 3}, foot, 0.1));
  expectPoint(foot, {10.05, 0, 0}, "left as it was");
  expectPoint(line.closestPointTo({12, 0, 3}, 0.1), {10, 0, 0}, "end");
  expectPoint(line.closestPointTo({-2, 0, 3}, 0.1), {0, 0, 0}, "start");
  expectPoint(lineFrom({1, 1, 1}, {1, 1, 1}).closestPointTo({4, 5, 1}, 0.1), {1, 1, 1},
              "no length");

  CQdrGeVector3d fromFoot;
  EXPECT_TRUE(line.perpVecFromPoint({12, 3, 4}, fromFoot, kTol));
  EXPECT_NEAR(fromFoot.length(), 5, 1e-12);  // the foot lies beyond the end
  EXPECT_NEAR(fromFoot.y, 3, 1e-12);
  EXPECT_FALSE(lineFrom({1, 1, 1}, {1, 1, 1}).perpVecFromPoint({4, 5, 1}, fromFoot, kTol));

  CQdrGeLine3d across;
  line.getPerpLine({5, 0, 2}, across);
  expectPoint(across.start() * 1e-9, {5e-9, 0, (2 - 1e10) * 1e-9}, "perpendicular below");
  expectPoint(across.end() * 1e-9, {5e-9, 0, (2 + 1e10) * 1e-9}, "perpendicular above");
  line.getPerpLine({5, 0, 0}, across);
  EXPECT_NEAR(across.direction().dotProduct(line.direction()) / across.length(), 0, 1e-9);
  EXPECT_NEAR(across.length(), 20e9, 1);
  CQdrGePlane plane;
  line.getPerpPlane({5, 1, 1}, plane);
  EXPECT_NEAR(plane.signedDistanceTo({8, 0, 0}), 3, 1e-12);
}

// Parameters are used as lengths along unit directions: the answer is the closest pair of segments
// of length 1 only.
TEST(Line3d, ClosestPairMovesAtMostOneUnit) {
  struct Row {
    const char* name;
    CQdrGeLine3d a, b;
    CQdrGePoint3d onA, onB;
  };
  const Row rows[] = {
      {"unit segments crossing at a height",
       lineFrom({0, 0, 0}, {1, 0, 0}),
       lineFrom({0.5, -0.5, 2}, {0.5, 0.5, 2}),
       {0.5, 0, 0},
       {0.5, 0, 2}},
      {"long segments: half of one unit",
       lineFrom({0, 0, 0}, {10, 0, 0}),
       lineFrom({5, -5, 2}, {5, 5, 2}),
       {0.5, 0, 0},
       {5, -4.5, 2}},
      {"clipped at both starts",
       lineFrom({0, 0, 0}, {1, 0, 0}),
       lineFrom({-1, 1, 0}, {-1, 2, 0}),
       {0, 0, 0},
       {-1, 1, 0}},
      {"clipped at both ends",
       lineFrom({0, 0, 0}, {1, 0, 0}),
       lineFrom({2, 2, 0}, {2, 1, 0}),
       {1, 0, 0},
       {2, 1, 0}},
  };
  for (const Row& row : rows) {
    CQdrGePoint3d onB;
    expectPoint(row.a.closestPointTo(row.b, onB, kTol), row.onA, row.name);
    expectPoint(onB, row.onB, row.name);
    EXPECT_NEAR(row.a.distanceTo(row.b, kTol), row.onA.distanceTo(row.onB), 1e-9) << row.name;
  }
}

TEST(Line3d, PlanesByMode) {
  const CQdrGePlane plane(0, 0, 1, -4);
  struct Row {
    const char* name;
    CQdrGeLine3d line;
    CQdrGeEntity3d::Intersect mode;
    bool hit;
  };
  const Row rows[] = {
      {"through", lineFrom({0, 0, 0}, {0, 0, 9}), CQdrGeEntity3d::kExtendNone, true},
      {"short", lineFrom({0, 0, 0}, {0, 0, 2}), CQdrGeEntity3d::kExtendNone, false},
      {"short, extended", lineFrom({0, 0, 0}, {0, 0, 2}), CQdrGeEntity3d::kExtendThis, true},
      {"short, mode both", lineFrom({0, 0, 0}, {0, 0, 2}), CQdrGeEntity3d::kExtendBoth, false},
      {"along, above", lineFrom({0, 0, 9}, {1, 0, 9}), CQdrGeEntity3d::kExtendNone, true},
      {"along, below", lineFrom({0, 0, 0}, {1, 0, 0}), CQdrGeEntity3d::kExtendThis, false},
  };
  for (const Row& row : rows) {
    CQdrGePoint3d result;
    EXPECT_EQ(row.line.intersectWith(plane, result, row.mode, 0.001), row.hit) << row.name;
  }
  // In the plane x + 2 y + 3 z = 0, across (4, 1, 0), with y = 1.
  const CQdrGePlane tilted(1, 2, 3, 0);
  const CQdrGeVector3d n = lineFrom({0, 0, 0}, {4, 1, 0}).normalAtPlane(tilted);
  EXPECT_EQ(n.y, 1);
  EXPECT_NEAR(n.z, (2 * 4 - 1.0) / (3 * 4), 1e-12);
  EXPECT_NEAR(tilted.valueAt(CQdrGePoint3d() + n), 0, 1e-12);
}

TEST(Line3d, ComparesWithTheReversedSenses) {
  const CQdrGeLine3d line = lineFrom({0, 0, 0}, {1, 0, 0});
  const CQdrGeLine3d back = lineFrom({5, 5, 0}, {3, 5, 0});
  EXPECT_FALSE(line.isParallelTo(back));
  EXPECT_TRUE(line.isColinearTo(back));
  EXPECT_TRUE(line.isPerpendicularTo(lineFrom({0, 0, 0}, {0, 1, 1})));
  EXPECT_TRUE(line.isEqualTo(lineFrom({0, 0, 0.1}, {1, 0, 0}), 0.1));
  EXPECT_FALSE(line == lineFrom({0, 0, 0.1}, {1, 0, 0}));
  // Through the base the kinds alone are compared.
  const CQdrGeEntity3d& asCurve = line;
  EXPECT_TRUE(asCurve == static_cast<const CQdrGeEntity3d&>(back));
  EXPECT_TRUE(asCurve != static_cast<const CQdrGeEntity3d&>(CQdrGePolyline3d()));
}

TEST(Curves3d, TransformsCopiesAndBytes) {
  CQdrGeLine3d line = lineFrom({1, 0, 0}, {2, 0, 1});
  line.rotateBy(qdr::kHalfPi, CQdrGeVector3d::kZAxis);  // about the origin
  expectPoint(line.start(), {0, 1, 0}, "turned");
  line.translateBy({1, 0, 0}).scaleBy(2, {0, 0, 0});
  expectPoint(line.end(), {2, 4, 2}, "moved and scaled");
  line.mirror(CQdrGePlane::kXYPlane);
  expectPoint(line.end(), {2, 4, -2}, "mirrored");
  EXPECT_EQ(bytesOf(line).size(), 48u);

  CQdrGePolyline3d chain(Points{{0, 0, 0}, {2, 0, 1}});
  chain.setClosed(true);
  chain.rotateBy(qdr::kHalfPi, CQdrGeVector3d::kZAxis).translateBy({0, 0, 1});
  expectPoint(chain.points()[1], {0, 2, 2}, "turned and moved");
  const std::string bytes = bytesOf(chain);
  EXPECT_EQ(bytes.size(), 5u + 2 * 24u);
  CQdrGePolyline3d back;
  readBytes(back, bytes);
  EXPECT_TRUE(back == chain);
  readBytes(back, bytes.substr(0, 30));
  EXPECT_EQ(back.numVerts(), 1);

  for (const CQdrGeEntity3d* curve :
       {static_cast<const CQdrGeEntity3d*>(&line), static_cast<const CQdrGeEntity3d*>(&chain)}) {
    const std::unique_ptr<CQdrGeEntity3d> copied(curve->copy());
    ASSERT_TRUE(copied);
    EXPECT_EQ(bytesOf(*copied), bytesOf(*curve));
  }
}

TEST(Polyline3d, ParametersRunByLength) {
  CQdrGePolyline3d chain(Points{{0, 0, 0}, {3, 0, 0}, {3, 0, 0}, {3, 4, 0}, {3, 4, 5}});
  EXPECT_NEAR(chain.length(), 12, 1e-12);
  EXPECT_NEAR(chain.length(0.25, 0.5, kTol), 3, 1e-12);
  EXPECT_EQ(chain.length(0.5, 0.25, kTol), 0);
  struct Row {
    double param;
    int segment;
    double fraction;
    CQdrGePoint3d point;
  };
  const Row rows[] = {
      {0, 0, 0, {0, 0, 0}},
      {0.25, 0, 1, {3, 0, 0}},
      {5.0 / 12, 2, 0.5, {3, 2, 0}},
      {1, 3, 1, {3, 4, 5}},
  };
  for (const Row& row : rows) {
    int segment = -1;
    EXPECT_NEAR(chain.segParamAtParam(row.param, segment), row.fraction, 1e-9) << row.param;
    EXPECT_EQ(segment, row.segment) << row.param;
    EXPECT_NEAR(chain.paramAtSegParam(row.segment, row.fraction), row.param, 1e-9) << row.param;
    EXPECT_NEAR(chain.paramAtPoint(row.point, 0.001), row.param, 1e-9) << row.param;
    expectPoint(chain.pointAtParam(row.param, kTol), row.point, std::to_string(row.param));
    expectPoint(chain.pointAtDist(row.param * 12), row.point, std::to_string(row.param));
  }
  expectPoint(chain.pointAtParam(0.9, 0.2), {3, 4, 5}, "within the tolerance of 1");
  expectPoint(chain.pointAtParam(1.5, kTol), {0, 0, 0}, "no segment reaches it");
  EXPECT_EQ(chain.paramAtPoint({9, 9, 9}, 0.001), -1);
  EXPECT_NEAR(chain.distAtPoint({9, 9, 9}, 0.001), -12, 1e-9);
  expectPoint(chain.closestPointTo({4, 2, 0}, kTol), {3, 2, 0}, "closest");
  EXPECT_NEAR(chain.distanceTo(CQdrGePoint3d(4, 2, 0), kTol), 1, 1e-9);
  CQdrGeVector3d v;
  EXPECT_TRUE(chain.perpVecFromPoint({4, 2, 0}, v, kTol));
  EXPECT_NEAR(v.x, 1, 1e-12);

  int count = 0;
  Points hits{{7, 7, 7}};
  EXPECT_TRUE(chain.intersectWith(CQdrGePlane(0, 1, 0, -2), count, hits,
                                  CQdrGeEntity3d::kExtendNone, 0.001));
  EXPECT_EQ(count, 2);  // the way up, and the last segment, which runs along on the far side
  EXPECT_EQ(hits.size(), 3u);
}

TEST(Polyline3d, EditsLikeTheChainInThePlane) {
  CQdrGePolyline3d chain(Points{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
  CQdrGePoint3d point(9, 9, 9);
  EXPECT_TRUE(chain.getPointAt(4, point));  // one past the end is let through
  EXPECT_EQ(point.x, 9);
  EXPECT_FALSE(chain.getPointAt(5, point));
  CQdrGeLine3d line;
  EXPECT_FALSE(chain.getLineSegAt(3, line));
  EXPECT_FALSE(chain.changeStart(1));
  chain.setClosed(true);
  EXPECT_TRUE(chain.getLineSegAt(3, line));
  expectPoint(line.end(), {0, 0, 0}, "closing segment");
  EXPECT_TRUE(chain.changeStart(2));
  EXPECT_EQ(chain.points()[0].x, 2);
  EXPECT_TRUE(chain.removeVertexAt(1, 2));
  EXPECT_EQ(chain.numVerts(), 2);
  EXPECT_FALSE(chain.removeVertexAt(2));
  EXPECT_TRUE(chain.removeVertexAt(0));
  CQdrGePolyline3d single(Points{{0, 0, 0}});
  single.setClosed(true);
  EXPECT_FALSE(single.isClosed());

  CQdrGePolyline3d ring(Points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0.001}});
  EXPECT_FALSE(ring.isClosed());
  EXPECT_TRUE(ring.closed(0.002));
  EXPECT_TRUE(ring.changeStart(1));
  EXPECT_TRUE(ring.isClosed());
  EXPECT_EQ(ring.numVerts(), 3);

  struct Row {
    const char* name;
    Points other;
    int where;
    std::vector<double> xs;
  };
  const Row rows[] = {
      {"start at this end", {{2.0005, 0, 0}, {5, 0, 0}}, 1, {0, 2, 5}},
      {"end at this end", {{5, 0, 0}, {2.0005, 0, 0}}, 2, {0, 2, 5}},
      {"end at this start", {{-5, 0, 0}, {0, 0, 0}}, 3, {-5, 0, 2}},
      {"start at this start", {{0, 0, 0}, {-5, 0, 0}}, 4, {-5, 0, 2}},
      {"apart", {{2.002, 0, 0}, {5, 0, 0}}, 0, {0, 2}},
  };
  for (const Row& row : rows) {
    CQdrGePolyline3d base(Points{{0, 0, 0}, {2, 0, 0}});
    int where = 0;
    EXPECT_EQ(base.appendPolyline(lineFrom(row.other[0], row.other[1]), where), row.where > 0)
        << row.name;
    EXPECT_EQ(where, row.where) << row.name;
    std::vector<double> xs;
    for (const CQdrGePoint3d& p : base.points())
      xs.push_back(p.x);
    EXPECT_EQ(xs, row.xs) << row.name;
  }
}

}  // namespace
