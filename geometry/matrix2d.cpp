#include "geometry/matrix2d.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/angle.h"
#include "geometry/line2d.h"
#include "geometry/point2d.h"
#include "geometry/vector2d.h"

namespace {

// The matrix with this linear part that leaves `fixed` where it is.
CQdrGeMatrix2d aboutPoint(double m00, double m01, double m10, double m11,
                          const CQdrGePoint2d& fixed) {
  CQdrGeMatrix2d result(true);
  result(0, 0) = m00;
  result(0, 1) = m01;
  result(1, 0) = m10;
  result(1, 1) = m11;
  result(0, 2) = fixed.x - (m00 * fixed.x + m01 * fixed.y);
  result(1, 2) = fixed.y - (m10 * fixed.x + m11 * fixed.y);
  return result;
}

}  // namespace

CQdrGeMatrix2d CQdrGeMatrix2d::operator*(const CQdrGeMatrix2d& m) const {
  CQdrGeMatrix2d product(false);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      for (int k = 0; k < 3; ++k)
        product(row, column) += (*this)(row, k) * m(k, column);
  return product;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::operator*=(const CQdrGeMatrix2d& m) {
  return *this = *this * m;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::preMultBy(const CQdrGeMatrix2d& m) {
  return *this = m * *this;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToProduct(const CQdrGeMatrix2d& a, const CQdrGeMatrix2d& b) {
  return *this = a * b;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToTranslation(const CQdrGeVector2d& v) {
  return preMultBy(translation(v));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToRotation(double angle, const CQdrGePoint2d& center) {
  return preMultBy(rotation(angle, center));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToScaling(double s, const CQdrGePoint2d& center) {
  return preMultBy(scaling(s, center));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToScaling(double sx, double sy, const CQdrGePoint2d& center) {
  return preMultBy(scaling(sx, sy, center));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToSlant(double angle, const CQdrGePoint2d& point,
                                           const CQdrGeVector2d& direction) {
  return preMultBy(slant(angle, point, direction));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToMirroring(const CQdrGePoint2d& point) {
  return preMultBy(mirroring(point));
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setToMirroring(const CQdrGeLine2d& line) {
  return preMultBy(mirroring(line));
}

CQdrGeMatrix2d CQdrGeMatrix2d::translation(const CQdrGeVector2d& v) {
  return CQdrGeMatrix2d(true).setTranslation(v);
}

CQdrGeMatrix2d CQdrGeMatrix2d::rotation(double angle, const CQdrGePoint2d& center) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return aboutPoint(c, -s, s, c, center);
}

CQdrGeMatrix2d CQdrGeMatrix2d::scaling(double s, const CQdrGePoint2d& center) {
  return scaling(s, s, center);
}

CQdrGeMatrix2d CQdrGeMatrix2d::scaling(double sx, double sy, const CQdrGePoint2d& center) {
  return aboutPoint(sx, 0.0, 0.0, sy, center);
}

CQdrGeMatrix2d CQdrGeMatrix2d::slant(double angle, const CQdrGePoint2d& point,
                                     const CQdrGeVector2d& direction) {
  if (!(angle > -qdr::kHalfPi && angle < qdr::kHalfPi)) return kIdentity;
  // R(d) S R(-d) multiplied out, S being the shear of tan(angle) along x.
  const CQdrGeVector2d along(direction.angle());
  const double t = std::tan(angle);
  const double mixed = along.x * along.y * t;
  return aboutPoint(1.0 - mixed, along.x * along.x * t, -along.y * along.y * t, 1.0 + mixed, point);
}

CQdrGeMatrix2d CQdrGeMatrix2d::mirroring(const CQdrGePoint2d& point) {
  return scaling(-1.0, point);
}

CQdrGeMatrix2d CQdrGeMatrix2d::mirroring(const CQdrGeLine2d& line) {
  const CQdrGeVector2d along = line.endPoint() - line.startPoint();
  if (std::abs(along.x) < qdr::kVectorTolerance)
    return aboutPoint(-1.0, 0.0, 0.0, 1.0, line.endPoint());
  // Cosine and sine of twice the line's angle, about a point of the line: a steep line keeps its
  // digits, which its intercept with the y axis would not.
  const double c = (along.x * along.x - along.y * along.y) / along.lengthSqrd();
  const double s = 2.0 * along.x * along.y / along.lengthSqrd();
  return aboutPoint(c, s, s, -c, line.startPoint());
}

CQdrGeMatrix2d CQdrGeMatrix2d::inverse() const {
  CQdrGeMatrix2d decomposed = *this;
  CQdrGeMatrix2d result(false);
  int index[3];
  if (!LU_Decompose(decomposed.m_entries, index)) return result;
  for (int column = 0; column < 3; ++column) {
    double b[3] = {0.0, 0.0, 0.0};
    b[column] = 1.0;
    LU_Backsub(decomposed.m_entries, index, b);
    for (int row = 0; row < 3; ++row)
      result(row, column) = b[row];
  }
  return result;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::invert() {
  return *this = inverse();
}

CQdrGeMatrix2d CQdrGeMatrix2d::transpose() const {
  return CQdrGeMatrix2d(*this).transposeIt();
}

CQdrGeMatrix2d& CQdrGeMatrix2d::transposeIt() {
  for (int row = 1; row < 3; ++row)
    for (int column = 0; column < row; ++column)
      std::swap(m_entries[row][column], m_entries[column][row]);
  return *this;
}

double CQdrGeMatrix2d::det() const {
  const auto& [a, b, c] = m_entries;
  return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[1] * c[0]) +
         a[2] * (b[0] * c[1] - b[1] * c[0]);
}

bool CQdrGeMatrix2d::isSingular(double tol) const {
  return std::abs(det()) <= tol;
}

double CQdrGeMatrix2d::scale() const {
  const auto& m = m_entries;
  const double first = std::sqrt(m[0][0] * m[0][0] + m[1][0] * m[1][0]);
  const double second = std::sqrt(m[0][1] * m[0][1] + m[1][1] * m[1][1]);
  return second < first ? first : second;
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setTranslation(const CQdrGeVector2d& v) {
  m_entries[0][2] = v.x;
  m_entries[1][2] = v.y;
  return *this;
}

CQdrGeVector2d CQdrGeMatrix2d::translation() const {
  return {m_entries[0][2], m_entries[1][2]};
}

CQdrGeMatrix2d& CQdrGeMatrix2d::setCoordSystem(const CQdrGePoint2d& origin,
                                               const CQdrGeVector2d& xAxis,
                                               const CQdrGeVector2d& yAxis) {
  *this = kIdentity;
  for (int row = 0; row < 2; ++row) {
    m_entries[row][0] = xAxis[row];
    m_entries[row][1] = yAxis[row];
    m_entries[row][2] = origin[row];
  }
  return *this;
}

void CQdrGeMatrix2d::getCoordSystem(CQdrGePoint2d& origin, CQdrGeVector2d& xAxis,
                                    CQdrGeVector2d& yAxis) const {
  const auto& m = m_entries;
  origin.set(m[0][2], m[1][2]);
  xAxis.set(m[0][0], m[1][0]);
  yAxis.set(m[0][1], m[1][1]);
}

bool CQdrGeMatrix2d::isScaledOrtho(double tol) const {
  const auto& m = m_entries;
  return m[0][0] * m[0][1] + m[0][1] * m[1][1] <= tol;
}

bool CQdrGeMatrix2d::isUniScaledOrtho(double tol) const {
  return isScaledOrtho(tol);
}

bool CQdrGeMatrix2d::isEqualTo(const CQdrGeMatrix2d& m, double tol) const {
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      if (!(std::abs((*this)(row, column) - m(row, column)) < tol)) return false;
  return true;
}

bool CQdrGeMatrix2d::operator==(const CQdrGeMatrix2d& m) const {
  return isEqualTo(m, qdr::kVectorTolerance);
}

// Crout's method with implicit scaling of the rows (W. H. Press et al., Numerical Recipes, 1992,
// section 2.3), without its substitute for a zero pivot.
bool CQdrGeMatrix2d::LU_Decompose(double a[3][3], int index[3]) {
  double scale[3];
  for (int row = 0; row < 3; ++row) {
    const double largest =
        std::max({std::abs(a[row][0]), std::abs(a[row][1]), std::abs(a[row][2])});
    if (largest == 0.0) return false;
    scale[row] = 1.0 / largest;
  }
  for (int j = 0; j < 3; ++j) {
    int pivot = j;
    double best = 0.0;
    for (int i = 0; i < 3; ++i) {
      for (int k = 0; k < std::min(i, j); ++k)
        a[i][j] -= a[i][k] * a[k][j];
      // On a tie the later row wins.
      if (i < j || !(scale[i] * std::abs(a[i][j]) >= best)) continue;
      best = scale[i] * std::abs(a[i][j]);
      pivot = i;
    }
    if (pivot != j) {
      std::swap(a[pivot], a[j]);
      scale[pivot] = scale[j];
    }
    index[j] = pivot;
    if (a[j][j] == 0.0) return false;
    for (int i = j + 1; i < 3; ++i)
      a[i][j] *= 1.0 / a[j][j];
  }
  return true;
}

void CQdrGeMatrix2d::LU_Backsub(const double a[3][3], const int index[3], double b[3]) {
  int firstNonZero = -1;
  for (int i = 0; i < 3; ++i) {
    double sum = b[index[i]];
    b[index[i]] = b[i];
    if (firstNonZero >= 0) {
      for (int j = firstNonZero; j < i; ++j)
        sum -= a[i][j] * b[j];
    } else if (sum != 0.0) {
      firstNonZero = i;
    }
    b[i] = sum;
  }
  for (int i = 2; i >= 0; --i) {
    for (int j = i + 1; j < 3; ++j)
      b[i] -= a[i][j] * b[j];
    b[i] /= a[i][i];
  }
}
