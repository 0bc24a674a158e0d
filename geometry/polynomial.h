#pragma once

#include <cstddef>
#include <memory>

#include "platform/export.h"

/// Dense polynomial with real coefficients: arithmetic, division and its real roots.
///
/// Coefficient i belongs to x^i, i running from 0 to the degree. Degree -1 is the empty polynomial;
/// it evaluates to 0 and has no roots. Copies are deep. Root searches never change the polynomial.
///
/// Every array of roots belongs to the caller and has room for `degree` entries. The accuracy of a
/// root is that of the tolerances below, about six decimals, not that of double.
class QDR_API CQdrPolynomial {
 public:
  /// Decimal digits of absolute accuracy that a bisection reaches.
  static constexpr int DIGITS_ACCURACY = 6;
  /// Values of this magnitude or less count as 0 in root tests and discriminants.
  static constexpr double ZERO_TOLERANCE = 9.999999974752427e-07;
  /// Leading terms of a remainder below this magnitude are dropped.
  static constexpr double REMAINDER_EPSILON = 9.999999974752427e-07;
  /// Values of a Sturm chain below this magnitude count as 0.
  static constexpr double STURM_EPSILON = 9.999999747378752e-05;

  /// All coefficients 0; a negative degree gives the empty polynomial.
  explicit CQdrPolynomial(int degree = -1);
  CQdrPolynomial(const CQdrPolynomial& other);
  CQdrPolynomial(CQdrPolynomial&& other) noexcept;
  CQdrPolynomial& operator=(const CQdrPolynomial& other);
  CQdrPolynomial& operator=(CQdrPolynomial&& other) noexcept;
  ~CQdrPolynomial();

  /// Starts over with `degree` + 1 coefficients of 0; the earlier ones are lost.
  void SetDegree(int degree);
  int GetDegree() const { return m_degree; }

  /// Coefficient of x^i. The index is not checked.
  double operator[](int i) const { return m_coefficients[static_cast<std::size_t>(i)]; }
  double& operator[](int i) { return m_coefficients[static_cast<std::size_t>(i)]; }

  /// Value at x by Horner's rule, 0 for the empty polynomial.
  double operator()(double x) const;

  /// One degree lower; a degree below 1 has the empty polynomial as its derivative.
  CQdrPolynomial GetDerivative() const;

  /// Coefficients in reverse order: x^n p(1/x), whose roots are the reciprocals.
  CQdrPolynomial GetInversion() const;

  /// Drops leading coefficients of magnitude `tol` or less, then divides the kept ones by the
  /// leading coefficient. The degree is -1 afterwards when every coefficient went.
  void Compress(double tol);

  /// A sum has the larger degree of the two, also when leading terms cancel.
  CQdrPolynomial operator+(const CQdrPolynomial& other) const;
  CQdrPolynomial operator-(const CQdrPolynomial& other) const;
  CQdrPolynomial operator-() const;
  /// The degrees add up; a product with the empty polynomial is empty.
  CQdrPolynomial operator*(const CQdrPolynomial& other) const;
  CQdrPolynomial operator*(double factor) const;

  /// this = quotient * divisor + remainder. Leading terms of the remainder below REMAINDER_EPSILON
  /// are dropped down to its constant term; a constant divisor leaves the empty remainder. A
  /// divisor of larger degree, an empty one or one whose leading coefficient is 0 gives the
  /// quotient 0 and this polynomial as remainder. The outputs may be this polynomial or the
  /// divisor.
  void Divide(const CQdrPolynomial& divisor, CQdrPolynomial& quotient,
              CQdrPolynomial& remainder) const;

  /// Root between a and b by halving to 10^-DIGITS_ACCURACY. An end whose value is within
  /// ZERO_TOLERANCE is the root at once, a before b. False, with `root` untouched, when both ends
  /// have values of one sign. An interval with b <= a, with NaN in it or too short to halve answers
  /// a and true.
  bool Bisection(double a, double b, double& root) const;

  /// Distinct real roots in [a, b] in ascending order, found between the turning points.
  /// `roots` holds the turning points while the search runs; entries from `count` on are undefined.
  void GetRootsOnInterval(double a, double b, int& count, double* roots) const;

  /// All distinct real roots. In ascending order when the constant term is no larger in magnitude
  /// than the leading coefficient. Otherwise the roots of the inversion are found and inverted: the
  /// positive roots come first, then the negative ones, each group ascending, and a root above 1e8
  /// in magnitude leaves a gap at its position although `count` shrinks. A leading coefficient of 0
  /// gives count 0.
  void GetAllRoots(int& count, double* roots) const;

  /// Bound of the search of GetAllRoots: on the magnitude of the roots, or on that of their
  /// reciprocals when the constant term is larger than the leading coefficient. 0 without a bound.
  double GetRootBound() const;

  /// Number of distinct real roots from a to b by Sturm's theorem: a zero in the chain counts as a
  /// change of sign to the next member, so a root at a counts and a root at b does not.
  /// -1.7976931348623157e+308 and 1.7976931348623157e+308 stand for the infinities. The zero
  /// constant has count -1.
  int GetRootCount(double a, double b) const;

  /// Real roots in closed form. False when the degree is another one; `count` is then untouched.
  bool RootsDegree2(int& count, double* roots) const;
  /// Repeated roots are written as often as they occur: count is 1 or 3.
  bool RootsDegree3(int& count, double* roots) const;
  /// A double root is written once, except in a polynomial with two equal quadratic factors, whose
  /// second pair of roots is the plus root twice.
  bool RootsDegree4(int& count, double* roots) const;

  /// The real root of a x^3 + b x = c, for a and b of like sign, in hyperbolic form.
  static double SpecialCubeRoot(double a, double b, double c);

  /// True when every root has a negative (positive) real part; true for a constant, which has no
  /// roots, false for the empty polynomial and for a leading coefficient of 0.
  bool AlldoublePartsNegative() const;
  bool AlldoublePartsPositive() const;

 protected:
  /// The same question about x^n + c[n - 1] x^(n - 1) + ... + c[0], given its n lower coefficients.
  static bool AlldoublePartsNegative(int n, const double* c);

 private:
  int m_degree = -1;
  std::unique_ptr<double[]> m_coefficients;
};
