#pragma once

#include <cmath>
#include <cstdint>

#include "geometry/matrix2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "geometry/xy.h"
#include "platform/export.h"
#include "platform/points.h"

class CFile;
class CQdrGeLine2d;

/// A point of the drawing plane with a 32-bit tag that the kernel only copies and stores. Copying
/// a point copies the tag; every other construction clears it, and so does assignment from a pair.
/// `set` and arithmetic in place leave it alone. Never deleted through a base pointer.
class QDR_API CQdrGePoint2d {
 public:
  double x = 0.0;
  double y = 0.0;
  std::int32_t tag = 0;

  static const CQdrGePoint2d kOrigin;

  constexpr CQdrGePoint2d() = default;
  constexpr CQdrGePoint2d(double px, double py) : x(px), y(py) {}
  constexpr CQdrGePoint2d(const QdrXY& pair) : x(pair.x), y(pair.y) {}
  CQdrGePoint2d(const CPoint& point) : x(point.x), y(point.y) {}
  constexpr CQdrGePoint2d(const CQdrGePoint2d&) = default;
  constexpr CQdrGePoint2d& operator=(const CQdrGePoint2d&) = default;
  constexpr CQdrGePoint2d& operator=(QdrXY& pair) { return *this = CQdrGePoint2d(pair); }

  /// x, y, tag: 20 bytes.
  virtual void save(CFile* file) const;
  virtual void read(CFile* file);

  constexpr CQdrGePoint2d& set(double px, double py) {
    x = px;
    y = py;
    return *this;
  }

  constexpr CQdrGeVector2d asVector() const { return {x, y}; }

  /// (x + 0.5, y + 0.5), each truncated toward zero: (-1.7, 2.5) gives (-1, 3).
  CPoint asCPoint() const;

  constexpr CQdrGePoint2d operator*(double s) const { return {x * s, y * s}; }
  constexpr CQdrGePoint2d operator/(double s) const { return {x / s, y / s}; }
  constexpr CQdrGePoint2d operator+(const CQdrGeVector2d& v) const { return {x + v.x, y + v.y}; }
  constexpr CQdrGePoint2d operator-(const CQdrGeVector2d& v) const { return {x - v.x, y - v.y}; }
  constexpr CQdrGePoint2d& operator*=(double s) { return set(x * s, y * s); }
  constexpr CQdrGePoint2d& operator/=(double s) { return set(x / s, y / s); }
  constexpr CQdrGePoint2d& operator+=(const CQdrGeVector2d& v) { return set(x + v.x, y + v.y); }
  constexpr CQdrGePoint2d& operator-=(const CQdrGeVector2d& v) { return set(x - v.x, y - v.y); }

  /// The vector from `p` to this point.
  constexpr CQdrGeVector2d operator-(const CQdrGePoint2d& p) const { return {x - p.x, y - p.y}; }

  constexpr CQdrGePoint2d& setToSum(const CQdrGePoint2d& p, const CQdrGeVector2d& v) {
    return set(p.x + v.x, p.y + v.y);
  }

  /// Has no effect on this point: only a temporary copy of `p` is transformed.
  CQdrGePoint2d& setToProduct(const CQdrGeMatrix2d& m, const CQdrGePoint2d& p);

  /// Index 0 is x, 1 is y, 2 is 1.0; no range check. The cell behind index 2 of the reference form
  /// is one for all points and is never to be written.
  constexpr double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : 1.0); }
  double& operator[](int i);

  /// Matrix times (x, y, 1) without its third entry.
  constexpr CQdrGePoint2d& transformBy(const CQdrGeMatrix2d& m) {
    return set(m(0, 0) * x + m(0, 1) * y + m(0, 2), m(1, 0) * x + m(1, 1) * y + m(1, 2));
  }

  /// Turns about `center`; a point equal to it by `==` stays as it is.
  CQdrGePoint2d& rotateBy(double angle, const CQdrGePoint2d& center);

  /// Reflection in the infinite line through both ends of `line`. It turns about the origin, so
  /// a step that meets a point within 1e-06 of the origin leaves it unturned.
  CQdrGePoint2d& mirror(const CQdrGeLine2d& line);
  CQdrGePoint2d& scaleBy(double s, const CQdrGePoint2d& center);
  CQdrGePoint2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center);

  /// Moves the point by its vector to the line turned by `angle`; with `keepLength` that vector is
  /// stretched by 1 / cos(angle), which puts the point on the line. A line of no length moves
  /// nothing.
  CQdrGePoint2d& slantBy(const CQdrGeLine2d& line, double angle, bool keepLength);

  double distanceTo(const CQdrGePoint2d& p) const { return (*this - p).length(); }

  /// Direction of `p` as seen from this point, in [0, 2 pi].
  double angleTo(const CQdrGePoint2d& p) const { return (p - *this).angle(); }

  /// Distance < 1e-06, strictly, and distance > 1e-06, strictly: points exactly that far apart are
  /// neither equal nor unequal.
  bool operator==(const CQdrGePoint2d& p) const { return distanceTo(p) < qdr::kPointTolerance; }
  bool operator!=(const CQdrGePoint2d& p) const { return distanceTo(p) > qdr::kPointTolerance; }

  /// Distance <= tol; both names ask the same.
  bool isEqualTo(const CQdrGePoint2d& p, double tol) const { return distanceTo(p) <= tol; }
  bool isOn(const CQdrGePoint2d& p, double tol) const { return distanceTo(p) <= tol; }
};

inline constexpr CQdrGePoint2d CQdrGePoint2d::kOrigin{0.0, 0.0};
