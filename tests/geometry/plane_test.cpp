#include "geometry/plane.h"

#include <cmath>
#include <string>
#include <vector>

#include "geometry/line3d.h"
#include "tests/geometry/geometry_support.h"

namespace {

CQdrGeLine3d lineFrom(const CQdrGePoint3d& start, const CQdrGePoint3d& end) {
  return {start, end};
}

void expectPoint(const CQdrGePoint3d& actual, const CQdrGePoint3d& expected,
                 const std::string& name, double tol = 1e-9) {
  EXPECT_LE(actual.distanceTo(expected), tol)
      << name << ": (" << actual.x << ", " << actual.y << ", " << actual.z << ")";
}

TEST(Plane, CoefficientsComeAsGiven) {
  struct Row {
    const char* name;
    CQdrGePlane plane;
    double a, b, c, d;
  };
  const Row rows[] = {
      {"point and normal", {{1, 2, 3}, CQdrGeVector3d(0, 0, 2)}, 0, 0, 2, -6},
      {"point and two vectors",
       {{1, 2, 3}, CQdrGeVector3d(2, 0, 0), CQdrGeVector3d(0, 3, 0)},
       0,
       0,
       6,
       -18},
      // (p1 - p2) x (p3 - p2) of a counter-clockwise triple points down.
      {"three points", {CQdrGePoint3d(1, 0, 4), CQdrGePoint3d(0, 0, 4), {0, 1, 4}}, 0, 0, 1, -4},
      {"three points the other way",
       {CQdrGePoint3d(0, 1, 4), CQdrGePoint3d(0, 0, 4), {1, 0, 4}},
       0,
       0,
       -1,
       4},
      {"xy", CQdrGePlane::kXYPlane, 0, 0, 1, 0},
      {"yz", CQdrGePlane::kYZPlane, 1, 0, 0, 0},
      {"zx", CQdrGePlane::kZXPlane, 0, 1, 0, 0},
      {"sw", CQdrGePlane::kSWPlane, -1, -1, 1, 0},
      {"se", CQdrGePlane::kSEPlane, 1, -1, 1, 0},
      {"nw", CQdrGePlane::kNWPlane, -1, 1, 1, 0},
      {"ne", CQdrGePlane::kNEPlane, 1, 1, 1, 0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.plane.a, row.a) << row.name;
    EXPECT_EQ(row.plane.b, row.b) << row.name;
    EXPECT_EQ(row.plane.c, row.c) << row.name;
    EXPECT_EQ(row.plane.d, row.d) << row.name;
  }
  const CQdrGePlane plane({0, 0, 3}, CQdrGeVector3d(0, 0, 2));
  EXPECT_NEAR(plane.signedDistanceTo({5, 5, 7}), 4, 1e-12);
  EXPECT_NEAR(plane.signedDistanceTo({5, 5, 1}), -2, 1e-12);
  EXPECT_EQ(plane.getNorm().z, 1);
  EXPECT_EQ(CQdrGePlane(0, 0, 0, 1).getNorm().length(), 0);
  EXPECT_EQ(CQdrGePlane(0, 0, 0.0005, 1).getNorm().z, 0.0005);  // too short to normalise
}

TEST(Plane, LineCrossingMeasuresWithTheCoefficients) {
  struct Row {
    const char* name;
    CQdrGePlane plane;
    CQdrGeLine3d line;
    bool hit;
    CQdrGePoint3d result;
  };
  const Row rows[] = {
      {"unit normal", {0, 0, 1, -4}, lineFrom({1, 1, 0}, {1, 1, 1}), true, {1, 1, 4}},
      {"from the other side", {0, 0, 1, -4}, lineFrom({1, 1, 9}, {1, 1, 8}), true, {1, 1, 4}},
      // 2 z - 4 = 0 stands at z = 2; the way is 4 by the coefficients.
      {"longer normal", {0, 0, 2, -4}, lineFrom({1, 1, 0}, {1, 1, 1}), true, {1, 1, 4}},
      {"along, above", {0, 0, 1, -4}, lineFrom({1, 1, 9}, {2, 1, 9}), true, {1, 1, 9}},
      {"along, in the plane", {0, 0, 1, -4}, lineFrom({1, 1, 4}, {2, 1, 4}), true, {1, 1, 4}},
      {"along, below", {0, 0, 1, -4}, lineFrom({1, 1, 0}, {2, 1, 0}), false, {1, 1, 0}},
      {"no length", {0, 0, 1, -4}, lineFrom({1, 1, 0}, {1, 1, 0}), false, {1, 1, 0}},
  };
  for (const Row& row : rows) {
    CQdrGePoint3d result;
    EXPECT_EQ(row.plane.intersectWith(row.line, result, 0.001), row.hit) << row.name;
    expectPoint(result, row.result, row.name);
  }
}

TEST(Plane, TwoPlanesGiveALineButAnswerFalse) {
  CQdrGeLine3d line;
  const CQdrGePlane tilted(1, 1, 1, 5);
  EXPECT_FALSE(tilted.intersectWith(CQdrGePlane(1, 2, -1, 7), line, 0.001));
  // y = x * -(1 * -1 - 1 * 1) / (1 * -1 - 2 * 1) = -2 x / 3, z = -(y + x) = -x / 3; d plays no
  // part.
  const double x = 3.4028234663852886e+38;
  EXPECT_EQ(line.start().x, 1.1754943508222875e-38);
  EXPECT_EQ(line.end().x, x);
  EXPECT_NEAR(line.end().y / x, -2.0 / 3, 1e-12);
  EXPECT_NEAR(line.end().z / x, -1.0 / 3, 1e-12);
  EXPECT_FALSE(tilted.intersectWith(tilted, line, 0.001));  // not finite, and false
}

TEST(Plane, StoredAs32Bytes) {
  const CQdrGePlane plane(1, -2, 3, 4.5);
  const std::string bytes = bytesOf(plane);
  ASSERT_EQ(bytes.size(), 32u);
  CQdrGePlane back;
  readBytes(back, bytes);
  EXPECT_EQ(bytesOf(back), bytes);
  EXPECT_EQ(back.b, -2);
}

}  // namespace
