#include "geometry/polynomial.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

std::size_t coefficientCount(int degree) {
  return degree < 0 ? 0 : std::size_t(degree) + 1;
}

std::unique_ptr<double[]> zeroCoefficients(int degree) {
  return degree < 0 ? nullptr : std::make_unique<double[]>(coefficientCount(degree));
}

// The coefficients below the leading one, divided by it.
std::vector<double> monicTail(const CQdrPolynomial& p) {
  std::vector<double> tail;
  for (int i = 0; i < p.GetDegree(); ++i)
    tail.push_back(p[i] / p[p.GetDegree()]);
  return tail;
}

bool hasLeadingTerm(const CQdrPolynomial& p) {
  return p.GetDegree() >= 0 && p[p.GetDegree()] != 0.0;
}

// One step of the reduction: from the n lower coefficients of a monic polynomial those of the monic
// polynomial one degree lower whose roots lie in the left half plane exactly when those of the
// first do and its coefficient n - 1 is positive (Routh's criterion).
std::vector<double> routhReduced(const std::vector<double>& c) {
  const std::size_t n = c.size();
  const double top = c[n - 1];
  std::vector<double> reduced(n);
  reduced[0] = 2.0 * c[0] * top;
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const double coupled = (n - i) % 2 == 0 ? c[i - 1] : 0.0;
    reduced[i] = 2.0 * (top * c[i] - coupled);
  }
  reduced[n - 1] = 2.0 * top * top;
  while (!reduced.empty() && reduced.back() == 0.0)
    reduced.pop_back();
  if (reduced.empty()) return reduced;
  const double leading = reduced.back();
  reduced.pop_back();
  for (double& value : reduced)
    value /= leading;
  return reduced;
}

}  // namespace

CQdrPolynomial::CQdrPolynomial(int degree)
    : m_degree(std::max(degree, -1)), m_coefficients(zeroCoefficients(degree)) {}

CQdrPolynomial::CQdrPolynomial(const CQdrPolynomial& other)
    : m_degree(other.m_degree), m_coefficients(zeroCoefficients(other.m_degree)) {
  std::copy_n(other.m_coefficients.get(), coefficientCount(m_degree), m_coefficients.get());
}

CQdrPolynomial::CQdrPolynomial(CQdrPolynomial&& other) noexcept
    : m_degree(std::exchange(other.m_degree, -1)),
      m_coefficients(std::move(other.m_coefficients)) {}

CQdrPolynomial& CQdrPolynomial::operator=(const CQdrPolynomial& other) {
  if (this != &other) *this = CQdrPolynomial(other);
  return *this;
}

CQdrPolynomial& CQdrPolynomial::operator=(CQdrPolynomial&& other) noexcept {
  std::swap(m_degree, other.m_degree);
  std::swap(m_coefficients, other.m_coefficients);
  return *this;
}

CQdrPolynomial::~CQdrPolynomial() = default;

void CQdrPolynomial::SetDegree(int degree) {
  *this = CQdrPolynomial(degree);
}

double CQdrPolynomial::operator()(double x) const {
  if (m_degree < 0) return 0.0;
  const CQdrPolynomial& c = *this;
  double value = c[m_degree];
  for (int i = m_degree - 1; i >= 0; --i)
    value = value * x + c[i];
  return value;
}

CQdrPolynomial CQdrPolynomial::GetDerivative() const {
  if (m_degree < 1) return CQdrPolynomial();
  CQdrPolynomial derivative(m_degree - 1);
  for (int i = 0; i < m_degree; ++i)
    derivative[i] = (i + 1) * (*this)[i + 1];
  return derivative;
}

CQdrPolynomial CQdrPolynomial::GetInversion() const {
  CQdrPolynomial inversion(m_degree);
  for (int i = 0; i <= m_degree; ++i)
    inversion[i] = (*this)[m_degree - i];
  return inversion;
}

void CQdrPolynomial::Compress(double tol) {
  while (m_degree >= 0 && std::abs((*this)[m_degree]) <= tol)
    --m_degree;
  if (m_degree < 0) return;
  const double leading = (*this)[m_degree];
  for (int i = 0; i <= m_degree; ++i)
    (*this)[i] /= leading;
}

CQdrPolynomial CQdrPolynomial::operator+(const CQdrPolynomial& other) const {
  const bool isLonger = m_degree >= other.m_degree;
  CQdrPolynomial sum(isLonger ? *this : other);
  const CQdrPolynomial& added = isLonger ? other : *this;
  for (int i = 0; i <= added.m_degree; ++i)
    sum[i] += added[i];
  return sum;
}

CQdrPolynomial CQdrPolynomial::operator-(const CQdrPolynomial& other) const {
  return *this + -other;
}

CQdrPolynomial CQdrPolynomial::operator-() const {
  CQdrPolynomial negated(*this);
  for (int i = 0; i <= m_degree; ++i)
    negated[i] = -negated[i];
  return negated;
}

CQdrPolynomial CQdrPolynomial::operator*(const CQdrPolynomial& other) const {
  if (m_degree < 0 || other.m_degree < 0) return CQdrPolynomial();
  CQdrPolynomial product(m_degree + other.m_degree);
  for (int i = 0; i <= m_degree; ++i) {
    for (int j = 0; j <= other.m_degree; ++j)
      product[i + j] += (*this)[i] * other[j];
  }
  return product;
}

CQdrPolynomial CQdrPolynomial::operator*(double factor) const {
  CQdrPolynomial product(*this);
  for (int i = 0; i <= m_degree; ++i)
    product[i] *= factor;
  return product;
}

void CQdrPolynomial::Divide(const CQdrPolynomial& divisor, CQdrPolynomial& quotient,
                            CQdrPolynomial& remainder) const {
  CQdrPolynomial work(*this);
  const int lower = divisor.m_degree;
  const int quotientDegree = m_degree - lower;
  if (quotientDegree < 0 || !hasLeadingTerm(divisor)) {
    quotient = CQdrPolynomial(0);
    remainder = std::move(work);
    return;
  }
  CQdrPolynomial result(quotientDegree);
  const double inverseLeading = 1.0 / divisor[lower];
  for (int k = quotientDegree; k >= 0; --k) {
    result[k] = inverseLeading * work[lower + k];
    for (int j = lower + k - 1; j >= k; --j)
      work[j] -= result[k] * divisor[j - k];
  }
  int kept = lower - 1;
  while (kept >= 1 && std::abs(work[kept]) < REMAINDER_EPSILON)
    --kept;
  if (kept == 0 && std::abs(work[0]) < REMAINDER_EPSILON) work[0] = 0.0;
  work.m_degree = kept;
  quotient = std::move(result);
  remainder = std::move(work);
}

bool CQdrPolynomial::AlldoublePartsNegative() const {
  if (!hasLeadingTerm(*this)) return false;
  return AlldoublePartsNegative(m_degree, monicTail(*this).data());
}

bool CQdrPolynomial::AlldoublePartsPositive() const {
  CQdrPolynomial mirrored(*this);
  for (int i = 1; i <= m_degree; i += 2)
    mirrored[i] = -mirrored[i];
  return mirrored.AlldoublePartsNegative();
}

bool CQdrPolynomial::AlldoublePartsNegative(int n, const double* c) {
  std::vector<double> lower(c, c + std::max(n, 0));
  while (!lower.empty()) {
    if (!(lower.back() > 0.0)) return false;
    if (lower.size() == 1) return true;
    lower = routhReduced(lower);
  }
  return true;
}
