#include "geometry/polynomial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// Roots carry single-precision constants and stop at values of 1e-6.
constexpr double kRootTol = 1e-5;

// Coefficients from the constant term up.
CQdrPolynomial poly(const std::vector<double>& coefficients) {
  CQdrPolynomial p(static_cast<int>(coefficients.size()) - 1);
  for (std::size_t i = 0; i < coefficients.size(); ++i)
    p[static_cast<int>(i)] = coefficients[i];
  return p;
}

std::vector<double> coefficientsOf(const CQdrPolynomial& p) {
  std::vector<double> result;
  for (int i = 0; i <= p.GetDegree(); ++i)
    result.push_back(p[i]);
  return result;
}

CQdrPolynomial fromRoots(const std::vector<double>& roots) {
  CQdrPolynomial p = poly({1.0});
  for (const double root : roots)
    p = p * poly({-root, 1.0});
  return p;
}

void expectNear(const std::vector<double>& actual, const std::vector<double>& expected, double tol,
                const std::string& name) {
  ASSERT_EQ(actual.size(), expected.size()) << name;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], tol) << name << ", entry " << i;
  }
}

std::vector<double> allRoots(const CQdrPolynomial& p) {
  std::vector<double> roots(static_cast<std::size_t>(std::max(p.GetDegree(), 0)), kNaN);
  int count = -7;
  p.GetAllRoots(count, roots.data());
  roots.resize(static_cast<std::size_t>(count));
  return roots;
}

std::vector<double> rootsOn(const CQdrPolynomial& p, double a, double b) {
  std::vector<double> roots(static_cast<std::size_t>(std::max(p.GetDegree(), 0)), kNaN);
  int count = -7;
  p.GetRootsOnInterval(a, b, count, roots.data());
  roots.resize(static_cast<std::size_t>(count));
  return roots;
}

TEST(Polynomial, ArithmeticKeepsDegreesAndOrder) {
  const CQdrPolynomial p = poly({1.0, 2.0, 3.0});
  const CQdrPolynomial q = poly({4.0, -5.0});
  EXPECT_EQ(coefficientsOf(p + q), (std::vector{5.0, -3.0, 3.0}));
  EXPECT_EQ(coefficientsOf(q - p), (std::vector{3.0, -7.0, -3.0}));
  EXPECT_EQ(coefficientsOf(p * q), (std::vector{4.0, 3.0, 2.0, -15.0}));
  EXPECT_EQ(coefficientsOf(p * -2.0), (std::vector{-2.0, -4.0, -6.0}));
  EXPECT_EQ(coefficientsOf(p - p), (std::vector{0.0, 0.0, 0.0}));  // leading zeros stay
  EXPECT_EQ(p(-2.0), 9.0);                                         // 1 - 4 + 12
  EXPECT_EQ(coefficientsOf(p.GetDerivative()), (std::vector{2.0, 6.0}));
  EXPECT_EQ(coefficientsOf(p.GetInversion()), (std::vector{3.0, 2.0, 1.0}));

  CQdrPolynomial copy(p);
  copy[0] = 9.0;
  EXPECT_EQ(p[0], 1.0);
  copy.SetDegree(1);
  EXPECT_EQ(coefficientsOf(copy), (std::vector{0.0, 0.0}));
}

TEST(Polynomial, CompressDropsSmallLeadersAndDivides) {
  CQdrPolynomial p = poly({0.25, 2.0});
  p.Compress(0.5);
  EXPECT_EQ(coefficientsOf(p), (std::vector{0.125, 1.0}));
  p = poly({4.0, 2.0, 0.5});  // a leader equal to the tolerance goes
  p.Compress(0.5);
  EXPECT_EQ(coefficientsOf(p), (std::vector{2.0, 1.0}));
  p = poly({0.1, 0.1});
  p.Compress(0.5);
  EXPECT_EQ(p.GetDegree(), -1);
}

TEST(Polynomial, DivideGivesQuotientAndTrimmedRemainder) {
  struct Row {
    std::string name;
    std::vector<double> dividend, divisor, quotient, remainder;
  };
  const std::vector<Row> rows = {
      {"exact", {2, -3, 1}, {-1, 1}, {-2, 1}, {0}},
      {"leading coefficient not 1", {1, 0, 4}, {1, 2}, {-1, 2}, {2}},  // (2x + 1)(2x - 1) + 2
      {"divisor of larger degree", {1, 2}, {0, 0, 1}, {0}, {1, 2}},
      {"remainder term below 1e-6 goes", {3, 5e-7, 0, 1}, {0, 0, 1}, {0, 1}, {3}},
      {"constant below 1e-6 becomes 0", {5e-7, 0, 1}, {0, 1}, {0, 1}, {0}},
      {"divisor with leading 0", {1, 2, 3}, {1, 0}, {0}, {1, 2, 3}},
      {"constant divisor leaves nothing", {2, 4}, {2}, {1, 2}, {}},
      {"empty divisor", {2, 4}, {}, {0}, {2, 4}},
  };
  for (const Row& row : rows) {
    CQdrPolynomial quotient;
    CQdrPolynomial remainder;
    poly(row.dividend).Divide(poly(row.divisor), quotient, remainder);
    EXPECT_EQ(coefficientsOf(quotient), row.quotient) << row.name;
    EXPECT_EQ(coefficientsOf(remainder), row.remainder) << row.name;
  }
}

TEST(Polynomial, BisectionAnswersEndsFirstAndRefusesOneSign) {
  struct Row {
    std::string name;
    std::vector<double> p;
    double a, b;
    bool found;
    double root;
  };
  const std::vector<Row> rows = {
      {"root at a before any halving", {-1, 1}, 1.0, 5.0, true, 1.0},
      {"root at b", {-5, 1}, 1.0, 5.0, true, 5.0},
      {"root at both: a wins", {-1, 0, 1}, -1.0, 1.0, true, -1.0},
      {"inside", {-2, 0, 1}, 0.0, 2.0, true, 1.4142135623730951},
      {"one sign", {1, 0, 1}, -1.0, 1.0, false, 77.0},
      {"reversed interval answers a", {-2, 1}, 5.0, 1.0, true, 5.0},
      // log2(1e-7 * 1e6) is negative: not one halving, so a comes back.
      {"interval below the accuracy", {-5e-8 * 1e9, 1e9}, 0.0, 1e-7, true, 0.0},
  };
  for (const Row& row : rows) {
    double root = 77.0;
    EXPECT_EQ(poly(row.p).Bisection(row.a, row.b, root), row.found) << row.name;
    EXPECT_NEAR(root, row.root, 1e-6) << row.name;
  }
}

TEST(Polynomial, RootsOnIntervalStandBetweenTurningPoints) {
  struct Row {
    std::string name;
    std::vector<double> p;
    double a, b;
    std::vector<double> roots;
  };
  const std::vector<Row> rows = {
      {"line without a sign change", {1, 1}, 0.0, 5.0, {}},
      {"line", {-3, 1}, 0.0, 5.0, {3.0}},
      {"double root is found once", {4, -4, 1}, -1.0, 10.0, {2.0}},
      {"root on the interval's end", {2, -3, 1}, 1.0, 1.5, {1.0}},
      {"ascending", {6, -5, -2, 1}, -5.0, 5.0, {-2.0, 1.0, 3.0}},
      {"constant", {0}, -1.0, 1.0, {}},
  };
  for (const Row& row : rows) {
    expectNear(rootsOn(poly(row.p), row.a, row.b), row.roots, kRootTol, row.name);
  }
}

TEST(Polynomial, AllRootsOfAnInversionComePositiveFirstAndMayLeaveAGap) {
  // |constant| > |leading|: 2, 5 | -3 in this order.
  expectNear(allRoots(fromRoots({-3.0, 2.0, 5.0})), {2.0, 5.0, -3.0}, 1e-3, "order");
  // |constant| <= |leading|: ascending.
  expectNear(allRoots(poly({0.25, 0.0, -1.25, 0.0, 1.0})), {-1.0, -0.5, 0.5, 1.0}, kRootTol, "asc");

  // 1e-9 x^3 - x^2 + 1: the reciprocals -1, 0 and 1, of which 0 leaves position 1 as it was.
  std::vector<double> roots(3, 77.0);
  int count = 0;
  poly({1.0, 0.0, -1.0, 1e-9}).GetAllRoots(count, roots.data());
  EXPECT_EQ(count, 2);
  expectNear(roots, {1.0, 77.0, -1.0}, kRootTol, "gap");
}

TEST(Polynomial, RootBoundIsRelativeToTheLargerEndCoefficient) {
  EXPECT_EQ(poly({2.0, -6.0, 4.0}).GetRootBound(), 2.5);  // (6 + 4) / 4
  EXPECT_EQ(poly({4.0, -6.0, 2.0}).GetRootBound(), 2.5);  // (6 + 4) / 4, on the reciprocals
  EXPECT_EQ(CQdrPolynomial().GetRootBound(), 0.0);
  EXPECT_EQ(poly({0.0, 0.0}).GetRootBound(), 0.0);
}

TEST(Polynomial, SturmCountsDistinctRootsInHalfOpenIntervals) {
  struct Row {
    std::string name;
    std::vector<double> p;
    double a, b;
    int count;
  };
  const std::vector<Row> rows = {
      {"all", {-6, 11, -6, 1}, -kMax, kMax, 3},
      {"part", {-6, 11, -6, 1}, 1.5, kMax, 2},
      {"double root counts once", {4, -4, 1}, -kMax, kMax, 1},
      {"none", {1, 0, 1}, -kMax, kMax, 0},
      {"root at a counts", {-1, 1}, 1.0, 2.0, 1},
      {"root at b does not", {-1, 1}, 0.0, 1.0, 0},
      {"zero constant", {0}, 0.0, 1.0, -1},
      {"other constant", {3}, 0.0, 1.0, 0},
      {"empty", {}, 0.0, 1.0, 0},
      {"leading zeros end the chain", {1, 2, 0, 0}, 0.0, 1.0, 0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(poly(row.p).GetRootCount(row.a, row.b), row.count) << row.name;
  }
}

TEST(Polynomial, ClosedFormsWriteRootsInTheirOrder) {
  struct Row {
    std::string name;
    std::vector<double> p;
    std::vector<double> roots;
  };
  const std::vector<Row> rows = {
      {"quadratic, minus root first", {4, -6, 2}, {1.0, 2.0}},
      {"quadratic, double", {1, -2, 1}, {1.0}},
      {"quadratic, none", {1, 0, 1}, {}},
      // Discriminant 4e-7 counts as 0.
      {"quadratic, discriminant within 1e-6", {-1e-7, 0, 1}, {0.0}},
      {"cubic, one", {-8, 0, 0, 1}, {2.0}},
      {"cubic, three", {-6, 11, -6, 1}, {3.0, 1.0, 2.0}},
      {"cubic, triple", {-8, 12, -6, 1}, {2.0, 2.0, 2.0}},
      {"cubic, double twice", {-2, 5, -4, 1}, {2.0, 1.0, 1.0}},  // (x - 1)^2 (x - 2)
      {"quartic, four", {24, -50, 35, -10, 1}, {4.0, 3.0, 2.0, 1.0}},
      {"quartic, two equal squares", {-1, 0, 0, 0, 1}, {1.0, -1.0}},
      {"quartic, none", {4, 0, 5, 0, 1}, {}},  // (x^2 + 1)(x^2 + 4)
      {"quadratic, leading 0", {1, 1, 0}, {}},
  };
  for (const Row& row : rows) {
    const CQdrPolynomial p = poly(row.p);
    std::vector<double> roots(4, kNaN);
    int count = -7;
    EXPECT_EQ(p.RootsDegree2(count, roots.data()), p.GetDegree() == 2) << row.name;
    EXPECT_EQ(p.RootsDegree3(count, roots.data()), p.GetDegree() == 3) << row.name;
    EXPECT_EQ(p.RootsDegree4(count, roots.data()), p.GetDegree() == 4) << row.name;
    ASSERT_GE(count, 0) << row.name;
    roots.resize(static_cast<std::size_t>(count));
    expectNear(roots, row.roots, kRootTol, row.name);
  }
}

TEST(Polynomial, TheInnerPairOfEqualQuadraticsIsThePlusRootTwice) {
  // x^4 - x^2 + a: with a = 1e-7 the resolvent's root -1 + 8 a counts as -1, and the inner square
  // is 2 - 2 sqrt((1 - 8 a)^2 - 4 a), about 20 a.
  std::vector<double> roots(4, kNaN);
  int count = 0;
  poly({1e-7, 0, -1, 0, 1}).RootsDegree4(count, roots.data());
  ASSERT_EQ(count, 4);
  expectNear(roots, {1.0, -1.0, std::sqrt(20e-7) / 2, std::sqrt(20e-7) / 2}, 5e-5, "roots");
  EXPECT_EQ(roots[2], roots[3]);
}

TEST(Polynomial, SpecialCubeRootSolvesTheReducedCubic) {
  EXPECT_NEAR(CQdrPolynomial::SpecialCubeRoot(1.0, 3.0, 4.0), 1.0, kRootTol);
  EXPECT_NEAR(CQdrPolynomial::SpecialCubeRoot(2.0, 1.0, 18.0), 2.0, kRootTol);
}

TEST(Polynomial, RealPartsAreJudgedOverAllRoots) {
  struct Row {
    std::string name;
    std::vector<double> p;
    bool negative, positive;
  };
  const std::vector<Row> rows = {
      {"-1, -2", {2, 3, 1}, true, false},
      {"-1, -2 times -2", {-4, -6, -2}, true, false},
      {"1, 2", {2, -3, 1}, false, true},
      {"-1, 2", {-2, -1, 1}, false, false},
      {"i, -i", {1, 0, 1}, false, false},
      {"-1 three times", {1, 3, 3, 1}, true, false},
      {"-1 and 0.5 +- 1.9i", {4, 3, 0, 1}, false, false},
      {"1, 2, 3", {-6, 11, -6, 1}, false, true},
      {"constant", {3}, true, true},
      {"empty", {}, false, false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(poly(row.p).AlldoublePartsNegative(), row.negative) << row.name;
    EXPECT_EQ(poly(row.p).AlldoublePartsPositive(), row.positive) << row.name;
  }
}

TEST(Polynomial, RootsMultipliedOutAreFoundAgain) {
  const unsigned seed = 20260701;
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> gap(0.4, 2.0);
  for (int round = 0; round < 400; ++round) {
    const int degree = 1 + round % 5;
    std::vector<double> roots;
    double root = -4.0 + gap(random);
    for (int i = 0; i < degree; ++i) {
      // A root near 0 makes the bound on the reciprocals large and its own reciprocal inexact.
      if (std::abs(root) < 0.2) root += 0.4;
      roots.push_back(root);
      root += gap(random);
    }
    const std::string name = "seed " + std::to_string(seed) + ", round " + std::to_string(round);
    const CQdrPolynomial p = fromRoots(roots) * 3.0;
    std::vector<double> found = allRoots(p);
    std::sort(found.begin(), found.end());
    expectNear(found, roots, 2e-4, name);
    EXPECT_EQ(p.GetRootCount(-kMax, kMax), degree) << name;
    EXPECT_EQ(p.GetRootCount(-kMax, roots.front() + 0.1), 1) << name;
    EXPECT_EQ(p.AlldoublePartsPositive(), roots.front() > 0.0) << name;
    EXPECT_EQ(p.AlldoublePartsNegative(), roots.back() < 0.0) << name;
  }
}

TEST(Polynomial, DegenerateInputEndsWithoutRoots) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(CQdrPolynomial()(3.0), 0.0);
  EXPECT_EQ(CQdrPolynomial(-5).GetDegree(), -1);
  EXPECT_EQ(CQdrPolynomial().GetDerivative().GetDegree(), -1);
  EXPECT_TRUE(allRoots(CQdrPolynomial()).empty());
  EXPECT_TRUE(allRoots(poly({1.0, 2.0, 0.0})).empty());  // leading 0
  EXPECT_TRUE(allRoots(poly({kNaN, 1.0, 1.0})).empty());
  EXPECT_TRUE(rootsOn(poly({1.0, 2.0, kNaN}), -1.0, 1.0).empty());

  double root = 0.0;
  EXPECT_TRUE(poly({-2.0, 1.0}).Bisection(-infinity, infinity, root));
  EXPECT_TRUE(poly({-2.0, 1.0}).Bisection(kNaN, 3.0, root));
  EXPECT_TRUE(std::isnan(root));

  int count = -7;
  double roots[4];
  EXPECT_TRUE(poly({kNaN, 0.0, 0.0, 0.0, 1.0}).RootsDegree4(count, roots));
  EXPECT_EQ(count, 0);
}

}  // namespace
