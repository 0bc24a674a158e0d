#pragma once

#include "geometry/point2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector3d.h"
#include "platform/export.h"

class CFile;
class CQdrGePlane;

/// A point in space. 24 bytes in a file.
class QDR_API CQdrGePoint3d {
 public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const CQdrGePoint3d kOrigin;

  constexpr CQdrGePoint3d() = default;
  constexpr CQdrGePoint3d(double px, double py, double pz) : x(px), y(py), z(pz) {}

  /// As set(plane, p).
  CQdrGePoint3d(const CQdrGePlane& plane, const CQdrGePoint2d& p);
  constexpr CQdrGePoint3d(const CQdrGePoint3d&) = default;
  constexpr CQdrGePoint3d& operator=(const CQdrGePoint3d&) = default;
  constexpr virtual ~CQdrGePoint3d() {}

  /// x, y, z: 24 bytes.
  virtual void save(CFile* file) const;
  virtual void read(CFile* file);

  constexpr CQdrGePoint3d& set(double px, double py, double pz) {
    x = px;
    y = py;
    z = pz;
    return *this;
  }

  /// As CQdrGeVector3d::set(plane, v); the plane's offset plays no part.
  CQdrGePoint3d& set(const CQdrGePlane& plane, const CQdrGePoint2d& p);

  /// 2D form of the vector from (0, 0, -d / c) to orthoProject(plane).
  CQdrGePoint2d convert2d(const CQdrGePlane& plane) const;

  constexpr CQdrGeVector3d asVector() const { return {x, y, z}; }

  constexpr CQdrGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
  constexpr CQdrGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
  constexpr CQdrGePoint3d operator+(const CQdrGeVector3d& v) const {
    return {x + v.x, y + v.y, z + v.z};
  }
  constexpr CQdrGePoint3d operator-(const CQdrGeVector3d& v) const {
    return {x - v.x, y - v.y, z - v.z};
  }
  constexpr CQdrGePoint3d& operator*=(double s) { return *this = *this * s; }
  constexpr CQdrGePoint3d& operator/=(double s) { return *this = *this / s; }
  constexpr CQdrGePoint3d& operator+=(const CQdrGeVector3d& v) { return *this = *this + v; }
  constexpr CQdrGePoint3d& operator-=(const CQdrGeVector3d& v) { return *this = *this - v; }

  /// The vector from `p` to this point.
  constexpr CQdrGeVector3d operator-(const CQdrGePoint3d& p) const {
    return {x - p.x, y - p.y, z - p.z};
  }

  constexpr CQdrGePoint3d& setToSum(const CQdrGePoint3d& p, const CQdrGeVector3d& v) {
    return *this = p + v;
  }

  /// Index 0 to 2 over x, y, z, without a range check.
  constexpr double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }

  /// Turns about the axis through `point`; the axis is taken as given and should have length 1.
  CQdrGePoint3d& rotateBy(double angle, const CQdrGeVector3d& axis,
                          const CQdrGePoint3d& point = CQdrGePoint3d(0.0, 0.0, 0.0));
  CQdrGePoint3d& scaleBy(double s, const CQdrGePoint3d& point);
  CQdrGePoint3d& scaleBy(double sx, double sy, double sz, const CQdrGePoint3d& point);

  /// The vector's mirror applied to asVector(): the plane's offset plays no part.
  CQdrGePoint3d& mirror(const CQdrGePlane& plane);

  /// this + normal * signed distance: a point off the plane moves away from it, to twice the
  /// distance.
  CQdrGePoint3d orthoProject(const CQdrGePlane& plane) const;

  double distanceTo(const CQdrGePoint3d& p) const { return (*this - p).length(); }

  /// Distance < 1.1920928955078125e-07, strictly.
  bool operator==(const CQdrGePoint3d& p) const { return distanceTo(p) < qdr::kCurveTolerance; }

  /// The negation of distance <= 1.1920928955078125e-07.
  bool operator!=(const CQdrGePoint3d& p) const { return !(distanceTo(p) <= qdr::kCurveTolerance); }

  /// Distance <= tol; both names ask the same.
  bool isEqualTo(const CQdrGePoint3d& p, double tol) const { return distanceTo(p) <= tol; }
  bool isOn(const CQdrGePoint3d& p, double tol) const { return distanceTo(p) <= tol; }
};

inline constexpr CQdrGePoint3d CQdrGePoint3d::kOrigin{0.0, 0.0, 0.0};
