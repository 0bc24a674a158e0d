#include <cmath>

#include "geometry/angle.h"
#include "geometry/plane.h"
#include "geometry/point3d.h"
#include "tests/geometry/geometry_support.h"

namespace {

template <class Triple>
::testing::AssertionResult isAt(const Triple& actual, double x, double y, double z) {
  const CQdrGeVector3d apart(actual.x - x, actual.y - y, actual.z - z);
  if (apart.length() <= 1e-12) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "(" << actual.x << ", " << actual.y << ", " << actual.z << ")";
}

// A plane through the origin that leans about the x axis, with plain numbers for the cosine and
// sine of its slope.
const CQdrGePlane kLeaning(0.0, -0.6, 0.8, 0.0);

TEST(Vector3d, TurnsAndMeasures) {
  EXPECT_TRUE(
      isAt(CQdrGeVector3d(1, 0, 0).rotateBy(qdr::kHalfPi, CQdrGeVector3d::kZAxis), 0, 1, 0));
  // An axis of length 2 is taken as given: the sine term doubles, the axis term is four times.
  EXPECT_TRUE(isAt(CQdrGeVector3d(1, 0, 1).rotateBy(qdr::kHalfPi, {0, 0, 2}), 0, 2, 4));
  EXPECT_TRUE(isAt(CQdrGeVector3d(1, 2, 3).crossProduct({4, 5, 6}), -3, 6, -3));
  EXPECT_NEAR(CQdrGeVector3d(0, 2, 0).angleTo({0, 0, 5}), qdr::kHalfPi, 1e-12);
  EXPECT_EQ(CQdrGeVector3d().angleTo({0, 0, 5}), 0);
}

TEST(Vector3d, ComparesAsIn2dButWithTheTrueDotProduct) {
  const CQdrGeVector3d x(1, 0, 0);
  EXPECT_TRUE(x.isParallelTo({3, 0, 0}, 0.001));
  EXPECT_FALSE(x.isParallelTo({-3, 0, 0}, 0.001));
  EXPECT_TRUE(x.isCodirectionalTo({-3, 0, 0}, 0.001));
  EXPECT_TRUE(CQdrGeVector3d(1, 1, 0).isPerpendicularTo({1, -1, 7}, 0.001));
  EXPECT_FALSE(CQdrGeVector3d(1, 1, 1).isPerpendicularTo({1, -1, 7}, 0.001));
  EXPECT_FALSE(x.isEqualTo({1.5, 0, 0}, 1.0)) << "0.001 stands whatever is given";
}

TEST(Vector3d, LargestElementComparesNeighboursOnly) {
  EXPECT_EQ(CQdrGeVector3d(5, 1, 2).largestElement(), 2);
  EXPECT_EQ(CQdrGeVector3d(1, 5, 2).largestElement(), 1);
  EXPECT_EQ(CQdrGeVector3d(5, 2, 1).largestElement(), 0);
  EXPECT_EQ(CQdrGeVector3d(1, -9, -9).largestElement(), 0);
}

TEST(Values3d, PlanesMirrorToOneSideAndProjectAway) {
  const CQdrGePlane raised(0, 0, 1, -10);  // z = 10
  EXPECT_TRUE(isAt(CQdrGeVector3d(1, 2, 3).mirror(raised), 1, 2, -3));
  EXPECT_TRUE(isAt(CQdrGeVector3d(1, 2, -3).mirror(raised), 1, 2, -3)) << "always opposite n";
  EXPECT_TRUE(isAt(CQdrGePoint3d(1, 2, 3).mirror(raised), 1, 2, -3)) << "the offset plays no part";
  EXPECT_TRUE(isAt(CQdrGePoint3d(1, 2, 13).orthoProject(raised), 1, 2, 16)) << "moves away";
  EXPECT_TRUE(isAt(CQdrGeVector3d(1, 2, 3).orthoProject({0, 0, 2}), 1, 2, -9)) << "n as given";
}

// Cosine 0.8 and sine 0.6 against z: z = |(3, 4)| 0.6 / 0.8. Back, (0, 0.8, 0.6) lies in the plane
// one unit up its slope: y = 0.6 / 0.6, x = sqrt(1 - 1).
TEST(Values3d, PlanesRaiseAndFlatten) {
  EXPECT_TRUE(isAt(CQdrGeVector3d(kLeaning, CQdrGeVector2d(3, 4)), 3, 4, 3.75));
  EXPECT_TRUE(isAt(CQdrGePoint3d(kLeaning, CQdrGePoint2d(-3, 4)), -3, 4, 3.75));
  EXPECT_TRUE(isNear(CQdrGeVector3d(0, 0.8, 0.6).convert2d(kLeaning), {0, 1}, 1e-7));
  EXPECT_TRUE(isNear(CQdrGeVector3d(-2, 0.8, 0.6).convert2d(kLeaning), {2, 1}))
      << "x is never negative";
  const CQdrGePlane shifted(0.0, -0.6, 0.8, -4.0);  // meets the z axis at 5
  EXPECT_TRUE(isNear(CQdrGePoint3d(-2, 0.8, 5.6).convert2d(shifted), {2, 1}));
}

TEST(Point3d, MovesAboutAPointAndCompares) {
  EXPECT_TRUE(isAt(CQdrGePoint3d(2, 0, 0).rotateBy(qdr::kHalfPi, {0, 0, 1}, {1, 0, 5}), 1, 1, 0));
  EXPECT_TRUE(isAt(CQdrGePoint3d(2, 3, 4).scaleBy(2, 3, 4, {1, 1, 1}), 3, 7, 13));
  CQdrGePoint3d own(2, 3, 4);
  EXPECT_TRUE(isAt(own.scaleBy(5, own), 2, 3, 4));
  const CQdrGePoint3d atTolerance(0, 0, 1.1920928955078125e-07);
  EXPECT_FALSE(atTolerance == CQdrGePoint3d::kOrigin);
  EXPECT_FALSE(atTolerance != CQdrGePoint3d::kOrigin);
}

TEST(Values3d, BytesAreFieldsInOrder) {
  const std::string expected("\0\0\0\0\0\0\xF8\x3F\0\0\0\0\0\0\0\xC0\0\0\0\0\0\0\x10\x40", 24);
  EXPECT_EQ(bytesOf(CQdrGePoint3d(1.5, -2, 4)), expected);
  EXPECT_EQ(bytesOf(CQdrGeVector3d(1.5, -2, 4)), expected);
  CQdrGePoint3d point;
  CQdrGeVector3d vector;
  readBytes(point, expected);
  readBytes(vector, expected);
  EXPECT_TRUE(isAt(point, 1.5, -2, 4) && isAt(vector, 1.5, -2, 4));
}

}  // namespace
