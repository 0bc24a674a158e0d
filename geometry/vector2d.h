#pragma once

#include <cmath>

#include "geometry/matrix2d.h"
#include "geometry/tolerance.h"
#include "geometry/xy.h"
#include "platform/export.h"

class CFile;

/// A displacement or direction in the drawing plane. A plain value of two doubles, 16 bytes in
/// memory and in a file.
class QDR_API CQdrGeVector2d : public QdrXY {
 public:
  /// The zero vector: no displacement.
  static const CQdrGeVector2d kIdentity;
  static const CQdrGeVector2d kXAxis;
  static const CQdrGeVector2d kYAxis;

  constexpr CQdrGeVector2d() = default;
  constexpr CQdrGeVector2d(double px, double py) : QdrXY(px, py) {}
  explicit constexpr CQdrGeVector2d(const QdrXY& pair) : QdrXY(pair) {}

  /// The unit vector (cos angle, sin angle).
  explicit CQdrGeVector2d(double angle) : QdrXY(std::cos(angle), std::sin(angle)) {}

  constexpr CQdrGeVector2d operator*(double s) const { return {x * s, y * s}; }
  constexpr CQdrGeVector2d operator/(double s) const { return {x / s, y / s}; }
  constexpr CQdrGeVector2d operator+(const CQdrGeVector2d& v) const { return {x + v.x, y + v.y}; }
  constexpr CQdrGeVector2d operator-(const CQdrGeVector2d& v) const { return {x - v.x, y - v.y}; }
  constexpr CQdrGeVector2d operator-() const { return {-x, -y}; }
  constexpr CQdrGeVector2d& operator*=(double s) { return *this = *this * s; }
  constexpr CQdrGeVector2d& operator/=(double s) { return *this = *this / s; }
  constexpr CQdrGeVector2d& operator+=(const CQdrGeVector2d& v) { return *this = *this + v; }
  constexpr CQdrGeVector2d& operator-=(const CQdrGeVector2d& v) { return *this = *this - v; }
  constexpr CQdrGeVector2d& negate() { return *this = -*this; }

  constexpr CQdrGeVector2d& setToSum(const CQdrGeVector2d& a, const CQdrGeVector2d& b) {
    return *this = a + b;
  }
  constexpr CQdrGeVector2d& setToProduct(const CQdrGeVector2d& v, double s) {
    return *this = v * s;
  }

  /// Has no effect on this vector: only a temporary copy of `v` is transformed.
  CQdrGeVector2d& setToProduct(const CQdrGeMatrix2d& m, const CQdrGeVector2d& v);

  /// Index 0 is x, 1 is y, 2 is 1.0; no range check. The cell behind index 2 of the reference form
  /// is one for all vectors and is never to be written.
  constexpr double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : 1.0); }
  double& operator[](int i);

  double length() const { return std::sqrt(lengthSqrd()); }
  constexpr double lengthSqrd() const { return x * x + y * y; }
  constexpr double dotProduct(const CQdrGeVector2d& v) const { return x * v.x + y * v.y; }

  /// The vector turned a quarter turn counter-clockwise, of the same length.
  constexpr CQdrGeVector2d perpVector() const { return {-y, x}; }

  /// Direction in [0, 2 pi]; 0 for the zero vector, and 2 pi only for a tiny negative direction.
  double angle() const;

  /// Unsigned angle in [0, pi] between the vectors; 0 when either is zero, and 0 too when rounding
  /// takes the cosine of opposite vectors past -1.
  double angleTo(const CQdrGeVector2d& v) const;

  /// (cos angle, sin angle) times `length`.
  CQdrGeVector2d& setAngle(double angle, double length);

  /// The vector over its length, or unchanged when its length is at most `tol`.
  CQdrGeVector2d normal(double tol = qdr::kVectorTolerance) const {
    const double size = length();
    return size <= tol ? *this : *this / size;
  }
  CQdrGeVector2d& normalize(double tol = qdr::kVectorTolerance) { return *this = normal(tol); }

  /// Matrix times (x, y, 1) without its third entry: the translation of `m` moves a vector as it
  /// moves a point.
  constexpr CQdrGeVector2d& transformBy(const CQdrGeMatrix2d& m) {
    return *this = CQdrGeVector2d(m(0, 0) * x + m(0, 1) * y + m(0, 2),
                                  m(1, 0) * x + m(1, 1) * y + m(1, 2));
  }
  CQdrGeVector2d& rotateBy(double angle);

  /// Reflection in the line from the origin along `axis`.
  CQdrGeVector2d& mirror(const CQdrGeVector2d& axis);

  /// The translation by this vector.
  operator CQdrGeMatrix2d() const;

  /// True only for vectors that point the same way: |normal(this) - normal(v)| <= tol. The name
  /// promises more than lines and fillets rely on.
  bool isParallelTo(const CQdrGeVector2d& v, double tol = qdr::kVectorTolerance) const;

  /// True only for vectors that point in opposite ways: |normal(this) + normal(v)| <= tol.
  bool isCodirectionalTo(const CQdrGeVector2d& v, double tol = qdr::kVectorTolerance) const;

  /// |x v.x + y v.x| <= tol. v.x stands in both products, v.y plays no part: this is not the dot
  /// product.
  bool isPerpendicularTo(const CQdrGeVector2d& v, double tol = qdr::kVectorTolerance) const;

  /// |length - 1| <= tol.
  bool isUnitLength(double tol = qdr::kVectorTolerance) const;

  /// length <= tol.
  bool isZeroLength(double tol = qdr::kVectorTolerance) const;

  /// |this - v| <= 0.001, whatever `tol` is.
  bool isEqualTo(const CQdrGeVector2d& v, double tol = qdr::kVectorTolerance) const;
  bool operator==(const CQdrGeVector2d& v) const { return isEqualTo(v); }

  /// Order by length, strictly.
  bool operator>(const CQdrGeVector2d& v) const { return v.length() < length(); }
  bool operator<(const CQdrGeVector2d& v) const { return v.length() > length(); }

  /// x, y: 16 bytes.
  void save(CFile* file) const;
  void read(CFile* file);
};

inline constexpr CQdrGeVector2d CQdrGeVector2d::kIdentity{0.0, 0.0};
inline constexpr CQdrGeVector2d CQdrGeVector2d::kXAxis{1.0, 0.0};
inline constexpr CQdrGeVector2d CQdrGeVector2d::kYAxis{0.0, 1.0};

static_assert(sizeof(CQdrGeVector2d) == 16);
