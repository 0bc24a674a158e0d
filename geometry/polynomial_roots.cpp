#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "geometry/polynomial.h"

namespace {

// Figures of single precision held as doubles; the roots carry their rounding.
constexpr double kThird = 0.3333333432674408;
constexpr double kTwentySeventh = 0.03703703731298447;
constexpr double kSqrt3 = 1.7320507764816284;
constexpr double kLn10 = 2.3025851249694824;
constexpr double kLog2E = 1.4426950216293335;

// A root of the inversion nearer to 0 than this has no usable reciprocal.
constexpr double kLeastReciprocal = 9.99999993922529e-09;
constexpr int kMaxHalvings = 2000;
constexpr double kInfinityMark = std::numeric_limits<double>::max();

double snapToZero(double value) {
  return std::abs(value) <= CQdrPolynomial::ZERO_TOLERANCE ? 0.0 : value;
}

double cubeRoot(double t) {
  return t >= 0.0 ? std::pow(t, kThird) : -std::pow(-t, kThird);
}

// Halvings that bring b - a to 10^-DIGITS_ACCURACY; 0 when nothing is left to halve.
int halvingCount(double a, double b) {
  if (!(b > a)) return 0;
  const double digits = CQdrPolynomial::DIGITS_ACCURACY * kLn10;
  const double count = std::ceil((std::log(b - a) + digits) * kLog2E);
  return static_cast<int>(std::clamp(count, 0.0, double(kMaxHalvings)));
}

// Bound on the magnitude of the roots after Cauchy, relative to the end coefficient `base`.
double cauchyBound(const CQdrPolynomial& p, double base, double otherEnd) {
  double bound = otherEnd;
  for (int i = 0; i < p.GetDegree(); ++i)
    bound = std::max(bound, std::abs(p[i]) + base);
  return bound / base;
}

std::vector<CQdrPolynomial> sturmChain(const CQdrPolynomial& p) {
  std::vector<CQdrPolynomial> chain{p, p.GetDerivative()};
  while (chain.back().GetDegree() > 0) {
    CQdrPolynomial quotient;
    CQdrPolynomial remainder;
    chain[chain.size() - 2].Divide(chain.back(), quotient, remainder);
    // Only a divisor without a leading term leaves a remainder of no smaller degree.
    if (remainder.GetDegree() >= chain.back().GetDegree()) break;
    chain.push_back(-remainder);
  }
  return chain;
}

double chainValue(const CQdrPolynomial& p, double x) {
  const int degree = p.GetDegree();
  if (degree >= 0 && x == -kInfinityMark) return degree % 2 == 0 ? p[degree] : -p[degree];
  if (degree >= 0 && x == kInfinityMark) return p[degree];
  return p(x);
}

int signChanges(const std::vector<CQdrPolynomial>& chain, double x) {
  int changes = 0;
  double previous = 0.0;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    double value = chainValue(chain[i], x);
    if (std::abs(value) < CQdrPolynomial::STURM_EPSILON) value = 0.0;
    if (i > 0 && (previous * value < 0.0 || previous == 0.0)) ++changes;
    previous = value;
  }
  return changes;
}

// Coefficient i of the monic form; a leading coefficient of exactly 1 is not divided by.
double monic(const CQdrPolynomial& p, int i) {
  const double leading = p[p.GetDegree()];
  return leading == 1.0 ? p[i] : p[i] / leading;
}

// Writes (base + sign s) / 2 + shift, then the same with the other sign, s being the root of
// `square`: one entry when s is 0, none when `square` is negative.
void appendPair(double base, double shift, double square, double sign, int& count, double* roots) {
  if (!(square >= 0.0)) return;
  const double s = sign * std::sqrt(square);
  roots[count++] = (base + s) * 0.5 + shift;
  if (s != 0.0) roots[count++] = (base - s) * 0.5 + shift;
}

}  // namespace

bool CQdrPolynomial::Bisection(double a, double b, double& root) const {
  double valueAtA = (*this)(a);
  if (std::abs(valueAtA) <= ZERO_TOLERANCE) {
    root = a;
    return true;
  }
  const double valueAtB = (*this)(b);
  if (std::abs(valueAtB) <= ZERO_TOLERANCE) {
    root = b;
    return true;
  }
  if (valueAtA * valueAtB > 0.0) return false;

  root = a;
  const bool isKnown = !std::isnan(valueAtA) && !std::isnan(valueAtB);
  const int rounds = isKnown ? halvingCount(a, b) : 0;
  for (int i = 0; i < rounds; ++i) {
    root = (a + b) * 0.5;
    const double value = (*this)(root);
    if (std::abs(value) <= ZERO_TOLERANCE) break;
    if (value * valueAtA >= 0.0) {
      a = root;
      valueAtA = value;
    } else {
      b = root;
    }
  }
  return true;
}

void CQdrPolynomial::GetRootsOnInterval(double a, double b, int& count, double* roots) const {
  count = 0;
  if (m_degree < 1) return;
  std::vector<double> ends{a, b};
  if (m_degree > 1) {
    int turningPoints = 0;
    GetDerivative().GetRootsOnInterval(a, b, turningPoints, roots);
    ends.insert(ends.begin() + 1, roots, roots + turningPoints);
  }
  std::vector<double> found;
  for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
    double root = 0.0;
    // A value of NaN marks no root, whatever the search answers.
    if (Bisection(ends[i], ends[i + 1], root) && !std::isnan((*this)(root))) found.push_back(root);
  }
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (i > 0 && std::abs(found[i] - found[i - 1]) <= ZERO_TOLERANCE) continue;
    roots[count++] = found[i];
  }
}

void CQdrPolynomial::GetAllRoots(int& count, double* roots) const {
  count = 0;
  if (m_degree < 1 || (*this)[m_degree] == 0.0) return;
  const double bound = GetRootBound();
  if (std::abs((*this)[0]) <= std::abs((*this)[m_degree])) {
    GetRootsOnInterval(-bound, bound, count, roots);
    return;
  }
  std::vector<double> reciprocals(static_cast<std::size_t>(m_degree));
  int found = 0;
  GetInversion().GetRootsOnInterval(-bound, bound, found, reciprocals.data());
  for (int i = 0; i < found; ++i) {
    const double reciprocal = reciprocals[static_cast<std::size_t>(found - 1 - i)];
    if (!(std::abs(reciprocal) >= kLeastReciprocal)) continue;
    roots[i] = 1.0 / reciprocal;
    ++count;
  }
}

double CQdrPolynomial::GetRootBound() const {
  if (m_degree < 0) return 0.0;
  const double constant = std::abs((*this)[0]);
  const double leading = std::abs((*this)[m_degree]);
  if (constant > leading) return cauchyBound(*this, constant, leading);
  if (leading == 0.0) return 0.0;
  return cauchyBound(*this, leading, constant);
}

int CQdrPolynomial::GetRootCount(double a, double b) const {
  if (m_degree == 0) return (*this)[0] == 0.0 ? -1 : 0;
  if (m_degree < 0) return 0;
  const std::vector<CQdrPolynomial> chain = sturmChain(*this);
  return signChanges(chain, a) - signChanges(chain, b);
}

bool CQdrPolynomial::RootsDegree2(int& count, double* roots) const {
  if (m_degree != 2) return false;
  count = 0;
  const double b = monic(*this, 1);
  const double c = monic(*this, 0);
  const double discriminant = snapToZero(b * b - 4.0 * c);
  appendPair(-b, 0.0, discriminant, -1.0, count, roots);
  return true;
}

bool CQdrPolynomial::RootsDegree3(int& count, double* roots) const {
  if (m_degree != 3) return false;
  count = 0;
  const double c = monic(*this, 2);
  const double b = monic(*this, 1);
  const double a = monic(*this, 0);

  // Substituting x - c / 3 leaves x^3 + p x + q.
  const double p = (3.0 * b - c * c) * kThird;
  const double q = (27.0 * a + 2.0 * c * c * c - 9.0 * b * c) * kTwentySeventh;
  const double shift = c * kThird;
  const double half = q / 2.0;
  const double discriminant = snapToZero(p * p * p * kTwentySeventh + q * q * 0.25);
  if (discriminant > 0.0) {
    const double s = std::sqrt(discriminant);
    roots[count++] = cubeRoot(-half + s) + cubeRoot(-half - s) - shift;
  } else if (discriminant == 0.0) {
    const double t = cubeRoot(-half);
    for (const double root : {2.0 * t, -t, -t})
      roots[count++] = root - shift;
  } else if (discriminant < 0.0) {
    const double r = std::sqrt(-p * kThird);
    const double angle = std::atan2(std::sqrt(-discriminant), -half) * kThird;
    const double cosine = std::cos(angle);
    const double sine = kSqrt3 * std::sin(angle);
    for (const double root : {2.0 * r * cosine, -r * (cosine + sine), -r * (cosine - sine)}) {
      roots[count++] = root - shift;
    }
  }
  return true;
}

bool CQdrPolynomial::RootsDegree4(int& count, double* roots) const {
  if (m_degree != 4) return false;
  count = 0;
  const double e = monic(*this, 3);
  const double c = monic(*this, 2);
  const double b = monic(*this, 1);
  const double a = monic(*this, 0);

  // Ferrari's resolvent.
  CQdrPolynomial resolvent(3);
  resolvent[3] = 1.0;
  resolvent[2] = -c;
  resolvent[1] = e * b - 4.0 * a;
  resolvent[0] = 4.0 * c * a - e * e * a - b * b;
  int resolved = 0;
  double resolventRoots[3] = {};
  resolvent.RootsDegree3(resolved, resolventRoots);
  if (resolved == 0) return true;

  const double y = resolventRoots[0];
  const double h = e * -0.25;
  const double square = snapToZero(e * e * 0.25 - c + y);
  if (square > 0.0) {
    const double r = std::sqrt(square);
    const double common = e * e * 0.75 - square - 2.0 * c;
    const double split = (4.0 * e * c - 8.0 * b - e * e * e) / (4.0 * r);
    appendPair(r, h, snapToZero(common + split), 1.0, count, roots);
    appendPair(-r, h, snapToZero(common - split), 1.0, count, roots);
  } else if (square == 0.0) {
    const double inner = y * y - 4.0 * a;
    if (!(inner >= -ZERO_TOLERANCE)) return true;
    // A root of a slightly negative value is NaN; the comparisons below then find nothing.
    const double m = std::sqrt(inner);
    const double common = e * e * 0.75 - 2.0 * c;
    const double outerSquare = common + 2.0 * m;
    const double innerSquare = common - 2.0 * m;
    if (outerSquare >= ZERO_TOLERANCE) appendPair(0.0, h, outerSquare, 1.0, count, roots);
    if (innerSquare >= ZERO_TOLERANCE) {
      // The inner pair is written as its plus root twice; the count is that of the true roots.
      const double root = h + std::sqrt(innerSquare) * 0.5;
      roots[count++] = root;
      roots[count++] = root;
    }
  }
  return true;
}

double CQdrPolynomial::SpecialCubeRoot(double a, double b, double c) {
  const double t = std::sqrt(4.0 * kThird * b / a);
  const double u = 4.0 * c / (a * t * t * t);
  const double v = std::pow(std::sqrt(u * u + 1.0) + u, kThird);
  return 0.5 * t * (v - 1.0 / v);
}
