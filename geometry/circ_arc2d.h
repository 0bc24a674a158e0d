#pragma once

#include <vector>

#include "geometry/entity2d.h"
#include "geometry/matrix2d.h"
#include "geometry/point2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "platform/export.h"
#include "platform/points.h"

class CFile;
class CQdrGeEllipArc2d;
class CQdrGeLine2d;
class CQdrGePolyline2d;

/// A circle or circular arc. It runs counter-clockwise from start to end angle, both measured from
/// +x; there is no direction flag. The angles are not held normalised. A full circle is 0 to 2 pi.
///
/// The sweep is qdr::sweepBetween(start, end). Tests for a full turn go by |end - start| within
/// 0.001 of 0 or of 2 pi, called a whole circle below.
class QDR_API CQdrGeCircArc2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kCircArc;

  /// The unit circle about the origin.
  CQdrGeCircArc2d();
  CQdrGeCircArc2d(const CQdrGePoint2d& center, double radius);

  /// `clockwise` swaps the angles; then the direction of `reference` is taken off both, unless it
  /// is the x axis.
  CQdrGeCircArc2d(const CQdrGePoint2d& center, double radius, double startAng, double endAng,
                  const CQdrGeVector2d& reference = CQdrGeVector2d::kXAxis, bool clockwise = false);

  /// The arc of the circle through three points that leaves p2 out: the complement of what
  /// set(p1, p2, p3) gives.
  CQdrGeCircArc2d(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3);

  /// As set(p1, p2, value, isSagitta) on a unit circle.
  CQdrGeCircArc2d(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double value, bool isSagitta);

  CQdrGeCircArc2d(const CQdrGeCircArc2d& arc);
  CQdrGeCircArc2d& operator=(const CQdrGeCircArc2d& arc);

  /// Leaves the angles.
  CQdrGeCircArc2d& set(const CQdrGePoint2d& center, double radius);

  /// Differs from the constructor: a quarter turn is added to both angles when `reference` is the
  /// y axis, and every other vector is ignored; then `clockwise` swaps them.
  CQdrGeCircArc2d& set(const CQdrGePoint2d& center, double radius, double startAng, double endAng,
                       const CQdrGeVector2d& reference = CQdrGeVector2d::kXAxis,
                       bool clockwise = false);

  /// The arc from p1 through p2 to p3, stored counter-clockwise. Of collinear points the center
  /// stays as it was, and the radius is its distance from p1.
  CQdrGeCircArc2d& set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3);

  /// Arc over the chord p1 p2. With `isSagitta`, `value` is the bulge: positive bows to the right
  /// of the chord and is stored from p1 to p2, negative bows to the left and is stored from p2
  /// to p1. Without it, `value` is the tangent of a quarter of the included angle, and the angles
  /// stored are the directions from the ends toward the center, so the arc lies opposite the chord;
  /// for a half turn the center stays as it was.
  CQdrGeCircArc2d& set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double value,
                       bool isSagitta);

  void setCenter(const CQdrGePoint2d& center) { m_center = center; }
  void setRadius(double radius) { m_radius = radius; }
  void setAngles(double startAng, double endAng);

  /// A negative angle gets one full turn.
  void setStartAngle(double angle);
  void setEndAngle(double angle);

  /// The stored fields themselves: a property sheet hands out their addresses.
  const CQdrGePoint2d& center() const { return m_center; }
  const double& radius() const { return m_radius; }
  const double& startAng() const { return m_startAng; }
  const double& endAng() const { return m_endAng; }
  CQdrGePoint2d startPoint() const { return pointAtAngle(m_startAng); }
  CQdrGePoint2d endPoint() const { return pointAtAngle(m_endAng); }

  /// tan(sweep / 4), never negative; 0 when the sweep lies within 0.001 of 0 or of a full turn.
  double bulge() const;

  void getEllipse(CQdrGeEllipArc2d& result) const;

  /// Two vertices with widths unset: start with bulge(), negated if `clockwise`, and end with 0. A
  /// whole circle gives a closed polyline from angle 0 over angle pi, bulges 1 or -1, whatever its
  /// angles; of an arc the closed flag of `result` stays. `clockwise` changes the sign only; start
  /// and end keep their places.
  void asPolyline(CQdrGePolyline2d& result, int clockwise) const;

  /// Center coordinates, radius and both angles each differ by at most `tol`.
  bool isEqualTo(const CQdrGeCircArc2d& arc, const double& tol) const;

  /// Always false, also for an equal arc: through the base, arcs cannot be compared.
  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;

  /// Centers not `!=`, and radius and angles exactly equal.
  bool operator==(const CQdrGeCircArc2d& arc) const;

  /// Radius within `tol`, and direction, in [0, 2 pi], between the stored angles with a margin of
  /// 0.001 radians, whatever `tol`. An arc across +x asks for either side alone. Negative angles
  /// are compared as they stand: with a negative start such an arc holds its whole circle, and an
  /// arc with both angles negative that does not cross +x holds no point.
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;

  /// True inside the slice between the stored angles, each widened by `margin`, up to the radius
  /// plus `margin`. Slices across +x are not recognised.
  bool isInside(const CQdrGePoint2d& point, double margin) const;

  /// Inside the polyline of this arc, which only a whole circle closes.
  bool isInsidePoint(const CQdrGePoint2d& point) const override;

  /// Scales the center about `center` and multiplies the radius, by `sx` in the first form.
  CQdrGeCircArc2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeCircArc2d& scaleBy(double s, const CQdrGePoint2d& center) override;

  /// transformBy of the mirror matrix, then start and end change places, also of a whole circle.
  CQdrGeCircArc2d& mirror(const CQdrGeLine2d& line) override;

  /// Angles are reduced to less than a full turn either way and keep their sign; those of a whole
  /// circle stay as they are.
  CQdrGeCircArc2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeCircArc2d& translateBy(const CQdrGeVector2d& v) override;

  /// Transforms the center and, unless it is a whole circle, takes the angles from the transformed
  /// ends. The radius stays whatever the matrix.
  CQdrGeCircArc2d& transformBy(const CQdrGeMatrix2d& m) override;

  /// A sweep below 0.001 by |end - start| measures as the whole circle.
  double length() const override;

  /// 0 if |from - to| < tol or from lies outside [0, 1]; otherwise |from - to| of the length.
  double length(double from, double to, double tol) const override;

  /// Held to [0, 1] on an arc, taken round once on a whole circle.
  double paramAtDist(double from, double dist, bool forward, double tol) const override;
  double paramAtPoint(const CQdrGePoint2d& point, double tol) const override;
  double distAtParam(double param) const override;
  double distAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d pointAtDist(double dist) const override;
  CQdrGePoint2d pointAtParam(double param) const override;

  /// Outward; the point form takes any point, and leaves a vector of up to 0.001 unnormalised.
  CQdrGeVector2d normalAtParam(double param) const override;
  CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const override;

  /// The radius, not its reciprocal.
  double curvatureAtParam(double param) const override;
  double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const override;

  CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, double tol) const override;

  /// By the way from the center to its closest point on the line, else by the nearer end. Where
  /// the curves cross it is no shortest distance.
  CQdrGePoint2d closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                               double tol) const override;

  /// By the line of the centers, else by the argument's nearer end. No shortest distance in
  /// general.
  CQdrGePoint2d closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc, double tol) const;
  double distanceTo(const CQdrGeLine2d& line, double tol) const override;
  double distanceTo(const CQdrGePoint2d& point, double tol) const override;

  /// False when the radial through the point does not meet the arc in exactly one place.
  bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                        double tol) const override;

  /// Moves toward `side` by `dist`; 0 stands for the distance to `side`. False, with nothing
  /// changed, when `dist` is not below the radius, outward too.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// The tangent from `point`: `line` runs from it to the nearer touch point, the clockwise one if
  /// that is strictly nearer. True when the touch point is on the arc.
  bool tangent(const CQdrGePoint2d& point, CQdrGeLine2d& line, double tol) const;

  /// Up to two hits; of a line from left to right, or a vertical one, p1 is the one farther along
  /// +x, or +y. A line nearer the circle than `tol` allows by the discriminant gives one hit. With
  /// false the points may have been written.
  bool intersectWith(const CQdrGeLine2d& line, int& count, CQdrGePoint2d& p1, CQdrGePoint2d& p2,
                     Intersect mode, double tol) const;

  /// Up to two hits; p1 lies to the left of the way from this center to the other. Circles that
  /// touch from outside meet only where ends of the arcs fall together. `count` stays as it was
  /// when the circles do not meet at all, concentric ones included.
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, CQdrGePoint2d& p1, CQdrGePoint2d& p2,
                     Intersect mode, double tol) const;

  /// The argument's intersectWith with the mode swapped.
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& polyline, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;

  /// Points a fixed step of a full turn / n apart, the last exactly at the end angle, each times
  /// `scale` and truncated. `points` is cleared first. The angle is accumulated, so a full turn
  /// gives n + 1 or n + 2 points; never more than a million. With n below 1, the two ends.
  void getGrVertexArray(std::vector<CPoint>& points, int n, double scale) const;

  /// Radius, start angle, end angle, center: 44 bytes.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  CQdrGePoint2d pointAtAngle(double angle) const;
  bool isWhole() const;
  CQdrGeCircArc2d& setOverChord(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double bulge);

  double m_endAng;
  double m_startAng;
  double m_radius;
  CQdrGePoint2d m_center;
};
