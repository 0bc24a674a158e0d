#pragma once

#include <cmath>

#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

class CFile;
class CQdrGePlane;

/// A displacement or direction in space. 24 bytes in a file.
class QDR_API CQdrGeVector3d {
 public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  /// The zero vector: no displacement.
  static const CQdrGeVector3d kIdentity;
  static const CQdrGeVector3d kXAxis;
  static const CQdrGeVector3d kYAxis;
  static const CQdrGeVector3d kZAxis;

  constexpr CQdrGeVector3d() = default;
  constexpr CQdrGeVector3d(double px, double py, double pz) : x(px), y(py), z(pz) {}

  /// As set(plane, v).
  CQdrGeVector3d(const CQdrGePlane& plane, const CQdrGeVector2d& v);
  constexpr CQdrGeVector3d(const CQdrGeVector3d&) = default;
  constexpr CQdrGeVector3d& operator=(const CQdrGeVector3d&) = default;
  constexpr virtual ~CQdrGeVector3d() {}

  constexpr CQdrGeVector3d& set(double px, double py, double pz) {
    x = px;
    y = py;
    z = pz;
    return *this;
  }

  /// x and y of `v`, and z = |v| s / c, c and s being cosine and sine of the angle between the
  /// plane's normal and the z axis.
  CQdrGeVector3d& set(const CQdrGePlane& plane, const CQdrGeVector2d& v);

  /// The vector laid into the plane, in coordinates of the plane: y = z / s and x the rest of its
  /// length, never negative, s being the sine of the angle between normal and z axis.
  CQdrGeVector2d convert2d(const CQdrGePlane& plane) const;

  constexpr CQdrGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
  constexpr CQdrGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
  constexpr CQdrGeVector3d operator+(const CQdrGeVector3d& v) const {
    return {x + v.x, y + v.y, z + v.z};
  }
  constexpr CQdrGeVector3d operator-(const CQdrGeVector3d& v) const {
    return {x - v.x, y - v.y, z - v.z};
  }
  constexpr CQdrGeVector3d operator-() const { return {-x, -y, -z}; }
  constexpr CQdrGeVector3d& operator*=(double s) { return *this = *this * s; }
  constexpr CQdrGeVector3d& operator/=(double s) { return *this = *this / s; }
  constexpr CQdrGeVector3d& operator+=(const CQdrGeVector3d& v) { return *this = *this + v; }
  constexpr CQdrGeVector3d& operator-=(const CQdrGeVector3d& v) { return *this = *this - v; }
  constexpr CQdrGeVector3d& negate() { return *this = -*this; }

  constexpr CQdrGeVector3d& setToSum(const CQdrGeVector3d& a, const CQdrGeVector3d& b) {
    return *this = a + b;
  }
  constexpr CQdrGeVector3d& setToProduct(const CQdrGeVector3d& v, double s) {
    return *this = v * s;
  }

  /// Index 0 to 2 over x, y, z, without a range check.
  constexpr double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }

  double length() const { return std::sqrt(lengthSqrd()); }
  constexpr double lengthSqrd() const { return x * x + y * y + z * z; }
  constexpr double dotProduct(const CQdrGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }

  /// Right-handed cross product.
  constexpr CQdrGeVector3d crossProduct(const CQdrGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }

  /// Unsigned angle in [0, pi] between the vectors, each normalised with 0.001 first; 0 when either
  /// is zero or the cosine falls outside [-1, 1].
  double angleTo(const CQdrGeVector3d& v) const;

  /// The vector over its length, or unchanged when its length is at most `tol`.
  CQdrGeVector3d normal(double tol = qdr::kVectorTolerance) const;
  CQdrGeVector3d& normalize(double tol = qdr::kVectorTolerance) { return *this = normal(tol); }

  /// Turns about the axis by Rodrigues' formula; the axis is taken as given and should have
  /// length 1.
  CQdrGeVector3d& rotateBy(double angle, const CQdrGeVector3d& axis);

  /// The vector laid into the plane less the normal times the length of what was taken off: the
  /// result lies on the side opposite to the normal, from whichever side the vector came.
  CQdrGeVector3d& mirror(const CQdrGePlane& plane);

  /// this - n (this . n), with `n` taken as given.
  CQdrGeVector3d orthoProject(const CQdrGeVector3d& n) const;

  /// 0, becomes 1 if y > x, then becomes 2 if z > y: z is compared with y, not with the largest so
  /// far, and signs count. (5, 1, 2) gives 2.
  int largestElement() const;

  /// True only for vectors that point the same way, as in 2D.
  bool isParallelTo(const CQdrGeVector3d& v, double tol = qdr::kVectorTolerance) const;

  /// True only for vectors that point in opposite ways, as in 2D.
  bool isCodirectionalTo(const CQdrGeVector3d& v, double tol = qdr::kVectorTolerance) const;

  /// |dot product| <= tol.
  bool isPerpendicularTo(const CQdrGeVector3d& v, double tol = qdr::kVectorTolerance) const;

  /// |length - 1| <= tol.
  bool isUnitLength(double tol = qdr::kVectorTolerance) const;

  /// length <= tol.
  bool isZeroLength(double tol = qdr::kVectorTolerance) const;

  /// |this - v| <= 0.001, whatever `tol` is.
  bool isEqualTo(const CQdrGeVector3d& v, double tol = qdr::kVectorTolerance) const;
  bool operator==(const CQdrGeVector3d& v) const { return isEqualTo(v); }

  /// x, y, z: 24 bytes.
  void save(CFile* file) const;
  void read(CFile* file);
};

inline constexpr CQdrGeVector3d CQdrGeVector3d::kIdentity{0.0, 0.0, 0.0};
inline constexpr CQdrGeVector3d CQdrGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline constexpr CQdrGeVector3d CQdrGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline constexpr CQdrGeVector3d CQdrGeVector3d::kZAxis{0.0, 0.0, 1.0};
