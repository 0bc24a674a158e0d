#pragma once

#include "geometry/entity3d.h"
#include "geometry/point3d.h"
#include "geometry/tolerance.h"
#include "geometry/vector3d.h"
#include "platform/export.h"

class CFile;
class CQdrGePlane;

/// A finite segment in space from start to end; one of no length is legal. A parameter runs from 0
/// to 1 from start to end.
class QDR_API CQdrGeLine3d : public CQdrGeEntity3d {
 public:
  static constexpr QdrGe::Entity3DId kTypeId = QdrGe::kLine3d;

  /// From the origin along the axis, of length 1.
  static const CQdrGeLine3d kXAxis;
  static const CQdrGeLine3d kYAxis;
  static const CQdrGeLine3d kZAxis;

  /// Both ends at the origin.
  constexpr CQdrGeLine3d() : CQdrGeEntity3d(kTypeId) {}
  constexpr CQdrGeLine3d(const CQdrGePoint3d& start, const CQdrGePoint3d& end)
      : CQdrGeEntity3d(kTypeId), m_start(start), m_end(end) {}
  constexpr CQdrGeLine3d(const CQdrGePoint3d& start, const CQdrGeVector3d& v)
      : CQdrGeLine3d(start, start + v) {}
  constexpr CQdrGeLine3d(const CQdrGeLine3d&) = default;
  constexpr CQdrGeLine3d& operator=(const CQdrGeLine3d&) = default;
  constexpr ~CQdrGeLine3d() override {}

  CQdrGeLine3d& set(const CQdrGePoint3d& start, const CQdrGePoint3d& end);
  CQdrGeLine3d& set(const CQdrGePoint3d& start, const CQdrGeVector3d& v);
  void setStart(const CQdrGePoint3d& start) { m_start = start; }
  void setEnd(const CQdrGePoint3d& end) { m_end = end; }

  CQdrGePoint3d start() const { return m_start; }
  CQdrGePoint3d end() const { return m_end; }
  void getPoints(CQdrGePoint3d& start, CQdrGePoint3d& end) const;
  CQdrGePoint3d midPoint() const;

  /// End minus start, not normalised.
  CQdrGeVector3d direction() const { return m_end - m_start; }

  /// Both ends by CQdrGePoint3d::isEqualTo, start to start; `==` by the `==` of the points.
  bool isEqualTo(const CQdrGeLine3d& line, double tol) const;
  bool operator==(const CQdrGeLine3d& line) const;
  bool operator!=(const CQdrGeLine3d& line) const { return !(*this == line); }

  /// True only for lines that run the same way.
  bool isParallelTo(const CQdrGeLine3d& line, double tol = qdr::kVectorTolerance) const;

  /// True only for lines that run in opposite ways; where they lie is not examined.
  bool isColinearTo(const CQdrGeLine3d& line, double tol = qdr::kVectorTolerance) const;
  bool isPerpendicularTo(const CQdrGeLine3d& line, double tol = qdr::kVectorTolerance) const;

  CQdrGeLine3d& translateBy(const CQdrGeVector3d& v);
  CQdrGeLine3d& scaleBy(double s, const CQdrGePoint3d& center);
  CQdrGeLine3d& scaleBy(double sx, double sy, double sz, const CQdrGePoint3d& center);

  /// Turns about an axis of length 1 through the origin.
  CQdrGeLine3d& rotateBy(double angle, const CQdrGeVector3d& axis);

  /// CQdrGePoint3d::mirror of both ends.
  CQdrGeLine3d& mirror(const CQdrGePlane& plane);

  /// True when the distance to the segment, ends included, is below `tol`, strictly.
  bool isOn(const CQdrGePoint3d& point, double tol) const;

  double length() const { return m_start.distanceTo(m_end); }

  /// 0 if |from - to| < tol or if either parameter lies outside [0, 1].
  double length(double from, double to, double tol) const;

  /// Held down to 1 forward, up to 0 backward.
  double paramAtDist(double from, double dist, bool forward, double tol) const;

  /// -1 for a point off the line.
  double paramAtPoint(const CQdrGePoint3d& point, double tol) const;
  double distAtParam(double param) const { return length() * param; }

  /// -1 for a point off the line.
  double distAtPoint(const CQdrGePoint3d& point, double tol) const;
  CQdrGePoint3d pointAtDist(double dist) const;

  /// Not held to [0, 1].
  CQdrGePoint3d pointAtParam(double param) const { return m_start + direction() * param; }

  /// Foot of the perpendicular. False, with `result` as it is, when the foot lies more than `tol`
  /// beyond an end, and for a line of no length.
  bool closestPoint(const CQdrGePoint3d& point, CQdrGePoint3d& result, double tol) const;

  /// The foot, else the nearer end, the start in a tie.
  CQdrGePoint3d closestPointTo(const CQdrGePoint3d& point, double tol) const;

  /// The parameters of the closest points of both segments, each used as a length along the unit
  /// direction: the points found lie at most one unit from the starts, and are the closest ones
  /// only of segments of length 1. Lines whose cross term lies below `tol` are parallel; exactly
  /// parallel ones may give NaN.
  CQdrGePoint3d closestPointTo(const CQdrGeLine3d& line, CQdrGePoint3d& onLine, double tol) const;

  double distanceTo(const CQdrGePoint3d& point, double tol) const;
  double distanceTo(const CQdrGeLine3d& line, double tol) const;

  /// A line through `point` across this one that stands for an infinite one: it ends 1e9 times this
  /// length away on both sides and runs from the line toward the point. For a point on the line any
  /// perpendicular is taken.
  void getPerpLine(const CQdrGePoint3d& point, CQdrGeLine3d& result) const;

  /// The plane through `point` with the direction as normal.
  void getPerpPlane(const CQdrGePoint3d& point, CQdrGePlane& plane) const;

  /// The vector from the foot on the infinite line to the point. False, with `result` as it is, for
  /// a line of no length.
  bool perpVecFromPoint(const CQdrGePoint3d& point, CQdrGeVector3d& result, double tol) const;

  /// The vector of the plane across the line that has y = 1. Its coefficient a and c dx + a dz must
  /// not be 0: the result is not finite then.
  CQdrGeVector3d normalAtPlane(const CQdrGePlane& plane) const;

  /// As CQdrGePlane::intersectWith; of a line not along the plane, mode 1 takes any point and every
  /// other mode one within 0.001 of the segment.
  bool intersectWith(const CQdrGePlane& plane, CQdrGePoint3d& result, Intersect mode,
                     double tol) const;

  /// Start, end: 48 bytes.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  CQdrGePoint3d m_start;
  CQdrGePoint3d m_end;
};

inline constexpr CQdrGeLine3d CQdrGeLine3d::kXAxis{CQdrGePoint3d::kOrigin, CQdrGeVector3d::kXAxis};
inline constexpr CQdrGeLine3d CQdrGeLine3d::kYAxis{CQdrGePoint3d::kOrigin, CQdrGeVector3d::kYAxis};
inline constexpr CQdrGeLine3d CQdrGeLine3d::kZAxis{CQdrGePoint3d::kOrigin, CQdrGeVector3d::kZAxis};
