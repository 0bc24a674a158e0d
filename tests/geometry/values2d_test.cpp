#include <cmath>
#include <functional>
#include <limits>
#include <type_traits>

#include "geometry/angle.h"
#include "geometry/line2d.h"
#include "geometry/point2d.h"
#include "geometry/tolerance.h"
#include "tests/geometry/geometry_support.h"

namespace {

using qdr::kHalfPi;
using qdr::kPi;
using qdr::kTwoPi;

const double kNaN = std::nan("");

struct Verdict {
  const char* name;
  bool actual;
  bool expected;
};

template <std::size_t N>
void expectVerdicts(const Verdict (&rows)[N]) {
  for (const Verdict& row : rows)
    EXPECT_EQ(row.actual, row.expected) << row.name;
}

struct Number {
  const char* name;
  double actual;
  double expected;
};

template <std::size_t N>
void expectNumbers(const Number (&rows)[N], double tol = 1e-12) {
  for (const Number& row : rows)
    EXPECT_NEAR(row.actual, row.expected, tol) << row.name;
}

TEST(Point2d, ComparesStrictlyAtItsFixedToleranceAndLooselyAtAGivenOne) {
  const CQdrGePoint2d origin(0, 0);
  const CQdrGePoint2d atTolerance(1e-06, 0);
  expectVerdicts({
      {"exactly 1e-06 apart is not equal", origin == atTolerance, false},
      {"and not unequal either", origin != atTolerance, false},
      {"just below is equal", origin == CQdrGePoint2d(0, 0.99e-06), true},
      {"just above is unequal", origin != CQdrGePoint2d(0, 1.01e-06), true},
      {"isEqualTo takes the tolerance itself", origin.isEqualTo({3, 4}, 5.0), true},
      {"isOn too", origin.isOn({3, 4}, 5.0), true},
      {"and nothing beyond", origin.isOn({3, 4}, 4.999), false},
      {"no number is neither equal", origin == CQdrGePoint2d(kNaN, 0), false},
      {"nor unequal", origin != CQdrGePoint2d(kNaN, 0), false},
  });
}

TEST(Vector2d, ComparisonsHaveSensesOfTheirOwn) {
  const CQdrGeVector2d right(1, 0), left(-1, 0), up(0, 1), diagonal(1, 1);
  const double tol = 0.001;
  expectVerdicts({
      {"parallel means the same way", right.isParallelTo({5, 0}, tol), true},
      {"opposite ways are not parallel", right.isParallelTo(left, tol), false},
      {"codirectional means opposite ways", right.isCodirectionalTo({-7, 0}, tol), true},
      {"the same way is not codirectional", right.isCodirectionalTo({5, 0}, tol), false},
      {"perpendicular takes v.x twice", diagonal.isPerpendicularTo({1, -1}, tol), false},
      {"v.y plays no part", up.isPerpendicularTo({0, 9}, tol), true},
      {"axes are perpendicular", right.isPerpendicularTo(up, tol), true},
      {"isEqualTo ignores its tolerance", right.isEqualTo({1.5, 0}, 1.0), false},
      {"a thousandth apart is equal", up == CQdrGeVector2d(0.001, 1), true},
      {"a little more is not", up != CQdrGeVector2d(0.0011, 1), true},
      {"unit length at the tolerance", CQdrGeVector2d(1.5, 0).isUnitLength(0.5), true},
      {"zero length at the tolerance", CQdrGeVector2d(0, 0.5).isZeroLength(0.5), true},
      {"longer is greater", diagonal > right, true},
      {"equal lengths are not greater", left > right, false},
      {"nor less", left < right, false},
      {"shorter is less", right < diagonal, true},
  });
}

TEST(Vector2d, AnglesAndLengths) {
  expectNumbers({
      {"down is three quarters", CQdrGeVector2d(0, -1).angle(), 3 * kHalfPi},
      {"zero vector", CQdrGeVector2d(0, 0).angle(), 0},
      {"a tiny negative direction is a full turn", CQdrGeVector2d(1, -1e-300).angle(), kTwoPi},
      {"angleTo is unsigned", CQdrGeVector2d(0, 1).angleTo({1, 0}), kHalfPi},
      {"angleTo of opposite vectors", CQdrGeVector2d(2, 0).angleTo({-1, 0}), kPi},
      {"angleTo of the zero vector", CQdrGeVector2d(0, 0).angleTo({1, 0}), 0},
      {"angle constructor gives the unit vector", CQdrGeVector2d(kHalfPi).y, 1},
      {"setAngle scales", CQdrGeVector2d().setAngle(kPi, 3).x, -3},
      {"normal divides", CQdrGeVector2d(0, 4).normal(0.001).y, 1},
      {"normal leaves what is at its tolerance", CQdrGeVector2d(0.5, 0).normal(0.5).x, 0.5},
      {"point sees point, in [0, 2 pi)", CQdrGePoint2d(1, 1).angleTo({1, 0}), 3 * kHalfPi},
  });
}

// Rounding takes the cosine of opposite vectors past -1 for some of them; those measure 0.
TEST(Vector2d, AngleToIsZeroWhereTheCosineLeavesItsRange) {
  int outside = 0;
  for (int i = 1; i < 200; ++i) {
    const CQdrGeVector2d v(0.1 * i, 0.3 * i + 0.7);
    const CQdrGeVector2d w = v * -3.0;
    const double cosine = v.dotProduct(w) / (v.length() * w.length());
    outside += cosine < -1.0;
    EXPECT_NEAR(v.angleTo(w), cosine < -1.0 ? 0.0 : kPi, 1e-7) << i;
  }
  EXPECT_GT(outside, 0);
}

TEST(Point2d, TagFollowsCopiesOnly) {
  CQdrGePoint2d tagged(1, 2);
  tagged.tag = 7;
  CQdrGePoint2d copied(tagged);
  CQdrGePoint2d assigned(9, 9);
  assigned = tagged;
  EXPECT_EQ(copied.tag, 7);
  EXPECT_EQ(assigned.tag, 7);
  copied.set(3, 4).transformBy(CQdrGeMatrix2d::kIdentity);
  copied += CQdrGeVector2d(1, 1);
  EXPECT_EQ(copied.tag, 7);
  QdrXY pair(5, 6);
  assigned = pair;
  EXPECT_EQ(assigned.tag, 0);
  EXPECT_TRUE(isNear(assigned, CQdrGePoint2d(5, 6)));
  EXPECT_EQ((tagged + CQdrGeVector2d(1, 0)).tag, 0);
}

TEST(Point2d, RoundsHalfUpIntoIntegers) {
  EXPECT_EQ(CQdrGePoint2d(-1.7, 2.5).asCPoint(), CPoint(-1, 3));
  EXPECT_EQ(CQdrGePoint2d(1e30, kNaN).asCPoint(), CPoint(2147483647, 0));
}

TEST(Values2d, IndexTwoIsOneForEveryTransform) {
  CQdrGePoint2d p(3, 4), q;
  CQdrGeVector2d v(5, 6), w;
  EXPECT_EQ(p[0] + 10 * p[1] + 100 * p[2], 143);
  EXPECT_EQ(v[0] + 10 * v[1] + 100 * v[2], 165);
  EXPECT_EQ(&p[2], &q[2]);
  EXPECT_EQ(&v[2], &w[2]);
}

TEST(Values2d, TransformsMovePointsAndVectorsAlike) {
  const auto shift = CQdrGeMatrix2d::translation({10, 20});
  EXPECT_TRUE(isNear(CQdrGeVector2d(1, 2).transformBy(shift), {11, 22}));
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 2).transformBy(shift), {11, 22}));
  EXPECT_TRUE(isNear(CQdrGeVector2d(1, 0).rotateBy(kHalfPi), {0, 1}));
  EXPECT_TRUE(isNear(CQdrGeVector2d(3, 1).perpVector(), {-1, 3}));
  // Half a thousandth of dx makes the mirror line vertical, and its end gives the place.
  EXPECT_TRUE(isNear(CQdrGeVector2d(1, 2).mirror({0.0005, 1}), {-0.999, 2}));
  EXPECT_TRUE(isNear(CQdrGeVector2d(1, 2).mirror({1, 1}), {2, 1}));
  EXPECT_TRUE(isNear(CQdrGePoint2d(2, 1).rotateBy(kPi, {1, 1}), {0, 1}));
  EXPECT_TRUE(isNear(CQdrGePoint2d(3, 5).scaleBy(2, 3, {1, 1}), {5, 13}));
  EXPECT_TRUE(isNear(CQdrGePoint2d(3, 0).mirror(lineOf(1, 0, 1, 5)), {-1, 0}));

  CQdrGePoint2d p(3, 4);
  p.setToProduct(shift, CQdrGePoint2d(1, 2));
  EXPECT_TRUE(isNear(p, {3, 4})) << "the matrix form leaves its object alone";
  CQdrGeVector2d v(3, 4);
  v.setToProduct(shift, CQdrGeVector2d(1, 2));
  EXPECT_TRUE(isNear(v, {3, 4})) << "the matrix form leaves its object alone";
  v.setToProduct(CQdrGeVector2d(1, 2), 3.0);
  EXPECT_TRUE(isNear(v, {3, 6}));
  EXPECT_TRUE(CQdrGeMatrix2d(CQdrGeVector2d(10, 20)) == shift);
}

TEST(Point2d, RotationLeavesAPointEqualToTheCenter) {
  CQdrGePoint2d close(0.9e-06, 0);
  close.rotateBy(kPi, CQdrGePoint2d::kOrigin);
  EXPECT_EQ(close.x, 0.9e-06);
}

// The perpendicular of (0, 1) to the x axis is (0, -1); turned by 0.3 it is (sin 0.3, -cos 0.3).
TEST(Point2d, SlantsTowardALine) {
  const CQdrGeLine2d axis = lineOf(0, 0, 10, 0);
  EXPECT_TRUE(isNear(CQdrGePoint2d(0, 1).slantBy(axis, 0.3, true), {std::tan(0.3), 0}));
  EXPECT_TRUE(
      isNear(CQdrGePoint2d(0, 1).slantBy(axis, 0.3, false), {std::sin(0.3), 1 - std::cos(0.3)}));
  EXPECT_TRUE(isNear(CQdrGePoint2d(2, 1).slantBy(lineOf(5, 5, 5, 5), 0.3, true), {2, 1}));
}

struct MatrixRow {
  const char* name;
  CQdrGeMatrix2d matrix;
  CQdrGePoint2d from;
  CQdrGePoint2d to;
};

// Images by hand. A slant of 45 degrees along x through (0, 1) moves (0, 3) by its height 2; along
// y through (1, 0), (3, 0) lies 2 to the right, and moves down.
TEST(Matrix2d, StaticFormsMapByHand) {
  const CQdrGeLine2d steep = lineOf(1000, 0, 1000.002, 1e5);
  const MatrixRow rows[] = {
      {"rotation", CQdrGeMatrix2d::rotation(kHalfPi, {1, 1}), {3, 1}, {1, 3}},
      {"uniform scaling", CQdrGeMatrix2d::scaling(2, {1, 1}), {3, 2}, {5, 3}},
      {"scaling by axis", CQdrGeMatrix2d::scaling(2, -1, {1, 1}), {3, 2}, {5, 0}},
      {"slant along x", CQdrGeMatrix2d::slant(kPi / 4, {0, 1}, {1, 0}), {0, 3}, {2, 3}},
      {"slant along y", CQdrGeMatrix2d::slant(kPi / 4, {1, 0}, {0, 1}), {3, 0}, {3, -2}},
      {"slant of a quarter turn", CQdrGeMatrix2d::slant(kHalfPi, {0, 1}, {1, 0}), {0, 3}, {0, 3}},
      {"slant beyond", CQdrGeMatrix2d::slant(-2, {0, 1}, {1, 0}), {0, 3}, {0, 3}},
      {"mirror in a point", CQdrGeMatrix2d::mirroring(CQdrGePoint2d(1, 2)), {4, 6}, {-2, -2}},
      {"mirror in a diagonal", CQdrGeMatrix2d::mirroring(lineOf(0, 1, 1, 2)), {3, 0}, {-1, 4}},
      {"mirror in a vertical", CQdrGeMatrix2d::mirroring(lineOf(3, 0, 3, 9)), {1, 4}, {5, 4}},
      {"near vertical goes by its end",
       CQdrGeMatrix2d::mirroring(lineOf(0, 0, 9e-4, 1)),
       {1, 0},
       {-0.9982, 0}},
      {"steep lines keep their digits", CQdrGeMatrix2d::mirroring(steep), {1000, 0}, {1000, 0}},
  };
  for (const MatrixRow& row : rows)
    EXPECT_TRUE(isNear(CQdrGePoint2d(row.from).transformBy(row.matrix), row.to)) << row.name;
}

TEST(Matrix2d, SettersComposeFromTheLeft) {
  CQdrGeMatrix2d m(true);
  m.setToRotation(kHalfPi, CQdrGePoint2d::kOrigin);
  m.setToRotation(kHalfPi, CQdrGePoint2d::kOrigin);
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 2).transformBy(m), {-1, -2}))
      << "two quarters, one half turn";
  m.setToTranslation({10, 0});
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 2).transformBy(m), {9, -2})) << "moved after turning";
  m.setToScaling(2, 3, CQdrGePoint2d::kOrigin);
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 2).transformBy(m), {18, -6}));

  const auto turn = CQdrGeMatrix2d::rotation(kHalfPi, CQdrGePoint2d::kOrigin);
  const auto shift = CQdrGeMatrix2d::translation({1, 0});
  CQdrGeMatrix2d product(true);
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 0).transformBy(turn * shift), {0, 2}));
  product = turn;
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 0).transformBy(product *= shift), {0, 2}));
  product = turn;
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 0).transformBy(product.preMultBy(shift)), {1, 1}));
  EXPECT_TRUE(product.setToProduct(product, product) == (shift * turn * shift * turn));
}

TEST(Matrix2d, InverseUndoesAndSingularGivesZeros) {
  CQdrGeMatrix2d m(true);
  m.setToSlant(0.4, {3, 1}, {1, 2}).setToRotation(1, {2, 5}).setToScaling(2, 0.5, {7, 7});
  EXPECT_TRUE((m * m.inverse()).isEqualTo(CQdrGeMatrix2d::kIdentity, 1e-12));
  EXPECT_TRUE((m.inverse() * m).isEqualTo(CQdrGeMatrix2d::kIdentity, 1e-12));

  CQdrGeMatrix2d swapping(false);  // needs a row exchange in every column
  swapping(0, 1) = swapping(1, 2) = swapping(2, 0) = 1;
  EXPECT_TRUE(swapping.inverse().isEqualTo(swapping.transpose(), 1e-15));

  for (const bool zeroRow : {true, false}) {
    CQdrGeMatrix2d singular(true);
    singular(1, 0) = singular(1, 1) = zeroRow ? 0 : 1;
    singular(0, 1) = 1;  // without a zero row, rows 0 and 1 are equal
    EXPECT_EQ(singular.inverse(), CQdrGeMatrix2d(false)) << zeroRow;
    EXPECT_TRUE(singular.isSingular(0.0)) << zeroRow;
    EXPECT_FALSE(singular.inverse().isEqualTo(CQdrGeMatrix2d::kIdentity, 0.001));
  }
}

TEST(Matrix2d, KeepsItsOwnMeasures) {
  CQdrGeMatrix2d m(true);  // rows (1 2 3), (0 1 4), (5 6 0)
  m(0, 1) = 2, m(0, 2) = 3, m(1, 2) = 4, m(2, 0) = 5, m(2, 1) = 6, m(2, 2) = 0;
  // 1 (1 0 - 4 6) - 2 (0 0 - 1 5) + 3 (0 6 - 1 5) = -24 + 10 - 15; the true one is 1.
  EXPECT_DOUBLE_EQ(m.det(), -29);

  CQdrGeMatrix2d ortho(true);
  ortho(0, 1) = -5;
  expectVerdicts({
      {"signed: a large negative product passes", ortho.isScaledOrtho(0.001), true},
      {"m00 m01 + m01 m11", CQdrGeMatrix2d::slant(0.1, {0, 0}, {1, 0}).isScaledOrtho(0.15), false},
      {"lengths play no part",
       CQdrGeMatrix2d::scaling(2, 9, CQdrGePoint2d::kOrigin).isUniScaledOrtho(0.001), true},
      {"a difference equal to the tolerance fails",
       CQdrGeMatrix2d::translation({0.5, 0}).isEqualTo(CQdrGeMatrix2d::kIdentity, 0.5), false},
      {"below it passes",
       CQdrGeMatrix2d::translation({0.4, 0}).isEqualTo(CQdrGeMatrix2d::kIdentity, 0.5), true},
  });
  expectNumbers({
      {"scale takes the longer column",
       CQdrGeMatrix2d::scaling(3, 2, CQdrGePoint2d::kOrigin).scale(), 3},
      {"second column", CQdrGeMatrix2d::scaling(3, 4, CQdrGePoint2d::kOrigin).scale(), 4},
      {"translation aside", CQdrGeMatrix2d::translation({9, 9}).scale(), 1},
  });

  CQdrGePoint2d origin;
  CQdrGeVector2d xAxis, yAxis;
  CQdrGeMatrix2d frame(false);
  frame.setCoordSystem({1, 2}, {3, 4}, {5, 6}).getCoordSystem(origin, xAxis, yAxis);
  EXPECT_TRUE(isNear(CQdrGePoint2d(1, 1).transformBy(frame), {9, 12}));
  EXPECT_TRUE(isNear(origin, {1, 2}) && isNear(xAxis, {3, 4}) && isNear(yAxis, {5, 6}));
}

TEST(Values2d, BytesAreFieldsInOrder) {
  CQdrGePoint2d p(1.5, -2);
  p.tag = 0x01020304;
  const std::string expected("\0\0\0\0\0\0\xF8\x3F\0\0\0\0\0\0\0\xC0\x04\x03\x02\x01", 20);
  EXPECT_EQ(bytesOf(p), expected);
  EXPECT_EQ(bytesOf(CQdrGeVector2d(1.5, -2)), expected.substr(0, 16));

  CQdrGePoint2d back(9, 9);
  readBytes(back, expected);
  EXPECT_TRUE(back.x == 1.5 && back.y == -2 && back.tag == p.tag);
  CQdrGePoint2d cut(9, 9);
  readBytes(cut, expected.substr(0, 8));
  EXPECT_TRUE(cut.x == 1.5 && cut.y == 9 && cut.tag == 0) << "a short read keeps the rest";
}

// Constants must stand before any constructor of another file runs.
static_assert(CQdrGePoint2d::kOrigin.x == 0 && CQdrGePoint2d::kOrigin.tag == 0);
static_assert(CQdrGeVector2d::kXAxis.x == 1 && CQdrGeVector2d::kYAxis.y == 1);
static_assert(CQdrGeVector2d::kIdentity.x == 0 && CQdrGeMatrix2d::kIdentity(2, 2) == 1);
static_assert(std::is_trivially_copyable_v<CQdrGeVector2d>);

}  // namespace
