#pragma once

#include "geometry/point3d.h"
#include "geometry/vector3d.h"
#include "platform/export.h"

class CFile;
class CQdrGeLine3d;

/// The unbounded plane a x + b y + c z + d = 0. The coefficients are taken as given: they are not
/// scaled to a unit normal, and all zero is a legal value that contains every point.
class QDR_API CQdrGePlane {
 public:
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  double d = 0.0;

  /// Planes through the origin, named by their axes or by the way they face.
  static const CQdrGePlane kXYPlane;
  static const CQdrGePlane kYZPlane;
  static const CQdrGePlane kZXPlane;
  static const CQdrGePlane kSWPlane;
  static const CQdrGePlane kSEPlane;
  static const CQdrGePlane kNWPlane;
  static const CQdrGePlane kNEPlane;

  /// All coefficients 0.
  constexpr CQdrGePlane() = default;
  constexpr CQdrGePlane(double ca, double cb, double cc, double cd) : a(ca), b(cb), c(cc), d(cd) {}

  /// As the set forms.
  CQdrGePlane(const CQdrGePoint3d& point, const CQdrGeVector3d& normal);
  CQdrGePlane(const CQdrGePoint3d& point, const CQdrGeVector3d& u, const CQdrGeVector3d& v);
  CQdrGePlane(const CQdrGePoint3d& p1, const CQdrGePoint3d& p2, const CQdrGePoint3d& p3);

  constexpr CQdrGePlane(const CQdrGePlane&) = default;
  constexpr CQdrGePlane& operator=(const CQdrGePlane&) = default;
  constexpr virtual ~CQdrGePlane() {}

  /// a, b, c, d: 32 bytes.
  virtual void save(CFile* file) const;
  virtual void read(CFile* file);

  /// The plane through `point`; a, b, c are the components of `normal` as given.
  CQdrGePlane& set(const CQdrGePoint3d& point, const CQdrGeVector3d& normal);

  /// The plane through `point` with the normal u x v.
  CQdrGePlane& set(const CQdrGePoint3d& point, const CQdrGeVector3d& u, const CQdrGeVector3d& v);

  /// The plane through `p2` with the normal (p1 - p2) x (p3 - p2): a triple that turns
  /// counter-clockwise as seen from +z has its normal along -z.
  CQdrGePlane& set(const CQdrGePoint3d& p1, const CQdrGePoint3d& p2, const CQdrGePoint3d& p3);

  /// (a, b, c) over its length, or unchanged when that is at most 0.001.
  CQdrGeVector3d getNorm() const { return CQdrGeVector3d(a, b, c).normal(); }

  /// Distance, positive on the side of the normal.
  double signedDistanceTo(const CQdrGePoint3d& p) const;

  /// Value of the plane's equation at the point: the signed distance times the length of (a, b, c).
  double valueAt(const CQdrGePoint3d& p) const { return a * p.x + b * p.y + c * p.z + d; }

  /// The point where the infinite line meets the plane. The way along the line is measured with
  /// valueAt, so the point lies on the plane only when (a, b, c) has length 1. A line whose unit
  /// direction has less than `tol` along the normal runs along the plane: `result` is its start,
  /// and the answer is -valueAt(start) < tol, without a sign test, so true for any distance on the
  /// normal's side.
  bool intersectWith(const CQdrGeLine3d& line, CQdrGePoint3d& result, double tol) const;

  /// Two points of the line in which both planes, moved to the origin, meet, at x =
  /// 1.1754943508222875e-38 and 3.4028234663852886e+38: d plays no part. The answer compares their
  /// directions and is false for all planes but those whose rounding carries a cosine past 1.001.
  bool intersectWith(const CQdrGePlane& plane, CQdrGeLine3d& line, double tol) const;
};

inline constexpr CQdrGePlane CQdrGePlane::kXYPlane{0.0, 0.0, 1.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kYZPlane{1.0, 0.0, 0.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kZXPlane{0.0, 1.0, 0.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kSWPlane{-1.0, -1.0, 1.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kSEPlane{1.0, -1.0, 1.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kNWPlane{-1.0, 1.0, 1.0, 0.0};
inline constexpr CQdrGePlane CQdrGePlane::kNEPlane{1.0, 1.0, 1.0, 0.0};
