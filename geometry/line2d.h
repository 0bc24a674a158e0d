#pragma once

#include <vector>

#include "geometry/entity2d.h"
#include "geometry/matrix2d.h"
#include "geometry/point2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

class CFile;
class CQdrGeCircArc2d;
class CQdrGeEllipArc2d;
class CQdrGePolyline2d;

/// A finite segment from start to end; one of no length is legal. Unbounded behaviour is asked
/// for per call through the Intersect mode.
class QDR_API CQdrGeLine2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kLine;

  /// From the origin to (1, 0) and to (0, 1).
  static const CQdrGeLine2d kXAxis;
  static const CQdrGeLine2d kYAxis;

  /// Both ends at the origin.
  constexpr CQdrGeLine2d() : CQdrGeEntity2d(kTypeId) {}
  constexpr CQdrGeLine2d(const CQdrGePoint2d& start, const CQdrGePoint2d& end)
      : CQdrGeEntity2d(kTypeId), m_start(start), m_end(end) {}
  constexpr CQdrGeLine2d(const CQdrGePoint2d& start, const CQdrGeVector2d& v)
      : CQdrGeLine2d(start, start + v) {}
  constexpr CQdrGeLine2d(const CQdrGeLine2d& line) : CQdrGeLine2d(line.m_start, line.m_end) {}
  CQdrGeLine2d& operator=(const CQdrGeLine2d& line) { return set(line.m_start, line.m_end); }

  /// The points may be ends of this line.
  CQdrGeLine2d& set(const CQdrGePoint2d& start, const CQdrGePoint2d& end) {
    const CQdrGePoint2d newEnd = end;
    m_start = start;
    m_end = newEnd;
    return *this;
  }
  CQdrGeLine2d& set(const CQdrGePoint2d& start, const CQdrGeVector2d& v) {
    return set(start, start + v);
  }

  /// The stored ends themselves: a property sheet hands out the addresses of their coordinates.
  const CQdrGePoint2d& startPoint() const { return m_start; }
  const CQdrGePoint2d& endPoint() const { return m_end; }
  void getPoints(CQdrGePoint2d& start, CQdrGePoint2d& end) const;
  CQdrGePoint2d midPoint() const;

  /// End minus start over the length, with no test for zero.
  CQdrGeVector2d direction() const { return (m_end - m_start) / length(); }

  // Comparison. Ends are compared start to start and end to end: a reversed line is not equal.

  /// Each of the four coordinates differs by at most `tol`.
  bool isEqualTo(const CQdrGeLine2d& line, const double& tol) const;
  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;

  /// The `==` of both ends; `!=` holds when either end is `!=`.
  bool operator==(const CQdrGeLine2d& line) const;
  bool operator!=(const CQdrGeLine2d& line) const;

  /// True only for lines that run the same way.
  bool isParallelTo(const CQdrGeLine2d& line, double tol = qdr::kVectorTolerance) const;

  /// True only for lines that run in opposite ways; where they lie is not examined.
  bool isColinearTo(const CQdrGeLine2d& line, double tol = qdr::kVectorTolerance) const;

  /// CQdrGeVector2d::isPerpendicularTo of (end - start) of both, with its one-sided product.
  bool isPerpendicularTo(const CQdrGeLine2d& line, double tol = qdr::kVectorTolerance) const;

  /// 1 when the distance to the segment, ends included, is below `tol`, strictly.
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;

  CQdrGeLine2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeLine2d& scaleBy(double s, const CQdrGePoint2d& center) override;
  CQdrGeLine2d& mirror(const CQdrGeLine2d& line) override;
  CQdrGeLine2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeLine2d& translateBy(const CQdrGeVector2d& v) override;
  CQdrGeLine2d& transformBy(const CQdrGeMatrix2d& m) override;

  double length() const override { return m_start.distanceTo(m_end); }

  /// 0 if |from - to| < tol or if either parameter lies outside [0, 1].
  double length(double from, double to, double tol) const override;
  double paramAtDist(double from, double dist, bool forward, double tol) const override;
  double paramAtPoint(const CQdrGePoint2d& point, double tol) const override;
  double distAtParam(double param) const override;

  /// Distance from the start to the point, which need not be on the line.
  double distAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d pointAtDist(double dist) const override;

  /// Not held to [0, 1]: 2 lies a length beyond the end.
  CQdrGePoint2d pointAtParam(double param) const override {
    return m_start + (m_end - m_start) * param;
  }

  /// The normal to the right of the direction, at every parameter and point.
  CQdrGeVector2d normalAtParam(double param) const override;
  CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const override;

  CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, double tol) const override;

  /// A crossing, else the nearest pair of a foot and an end or of two ends; of pairs at exactly
  /// equal distance feet come before ends, this start before this end, the argument's start before
  /// its end.
  CQdrGePoint2d closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                               double tol) const override;

  /// A crossing, else the nearest of the places where the arc meets the ways from its center to the
  /// line, to its start and to its end, and of the arc's ends.
  CQdrGePoint2d closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc, double tol) const;

  double distanceTo(const CQdrGeLine2d& line, double tol) const override;
  double distanceTo(const CQdrGePoint2d& point, double tol) const override;
  double curvatureAtParam(double param) const override;
  double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const override;

  /// The foot may lie beyond the ends. False only for a line of no length.
  bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                        double tol) const override;

  /// A line through `point` across this one that stands for an infinite one: it ends 1e9 times
  /// this length away on both sides and runs to the left of this direction.
  void getPerpLine(const CQdrGePoint2d& point, CQdrGeLine2d& result) const;

  /// The stretch shared with a line that runs the opposite way, as a new line that the caller owns.
  /// False, with `result` as it is, for lines that run the same way even when they coincide.
  bool overlap(const CQdrGeLine2d& line, CQdrGeLine2d*& result, double tol) const;

  /// Moves the line toward `side` by `dist`, away from it if negative; exactly 0 stands for the
  /// distance to `side`. Always true.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// Crossing of the two lines. `result` holds the crossing of the infinite lines even when the
  /// answer is false because the mode refuses it. Lines that lie along each other, parallel lines
  /// and lines of no length never meet, and then `result` stays as it is.
  bool intersectWith(const CQdrGeLine2d& line, CQdrGePoint2d& result, Intersect mode,
                     double tol) const;

  /// As above; a hit sets `count` to 1 and is appended to `points`, a miss changes neither.
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;

  /// The argument's intersectWith with the mode swapped. `points` is cleared first.
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& polyline, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;

  /// Start, then end: 40 bytes.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 protected:
  /// The foot of the point if it falls on the segment; else false, with `result` as it is.
  bool closestPoint(const CQdrGePoint2d& point, CQdrGePoint2d& result) const {
    const CQdrGeVector2d along = m_end - m_start;
    const double param = (point - m_start).dotProduct(along) / along.lengthSqrd();
    // Not a number, for a segment of no length, fails too.
    if (!(param >= 0.0 && param <= 1.0)) return false;
    result = m_start + along * param;
    return true;
  }

 private:
  CQdrGePoint2d m_start;
  CQdrGePoint2d m_end;
};
