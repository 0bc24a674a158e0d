#include "entities/internal/curve_crossings.h"

#include "entities/curve.h"
#include "geometry/circ_arc2d.h"
#include "geometry/cspline2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/rect2d.h"
#include "geometry/spiral.h"
#include "geometry/spline.h"

namespace {

using Intersect = CQdrGeEntity2d::Intersect;
using Points = std::vector<CQdrGePoint2d>;

template <class Curve, class Other>
bool cross(const Curve& curve, const Other& other, int& count, Points& points, Intersect mode,
           double tol) {
  return curve.intersectWith(other, count, points, mode, tol);
}

// What meets in two places at most the kernel answers point by point.
template <class Curve, class Other>
bool crossInPair(const Curve& arc, const Other& other, int& count, Points& points, Intersect mode,
                 double tol) {
  CQdrGePoint2d hits[2];
  if (!arc.intersectWith(other, count, hits[0], hits[1], mode, tol)) return false;
  points.insert(points.end(), hits, hits + (count > 1 ? 2 : 1));
  return true;
}

bool cross(const CQdrGeCircArc2d& arc, const CQdrGeLine2d& line, int& count, Points& points,
           Intersect mode, double tol) {
  return crossInPair(arc, line, count, points, mode, tol);
}

bool cross(const CQdrGeCircArc2d& arc, const CQdrGeCircArc2d& other, int& count, Points& points,
           Intersect mode, double tol) {
  return crossInPair(arc, other, count, points, mode, tol);
}

bool cross(const CQdrGeEllipArc2d& arc, const CQdrGeLine2d& line, int& count, Points& points,
           Intersect mode, double tol) {
  return crossInPair(arc, line, count, points, mode, tol);
}

}  // namespace

namespace qdr {

std::optional<CrossingShape> crossingShape(const CQdrGeEntity2d& curve, CQdrGePolyline2d& scratch) {
  switch (curve.type()) {
    case QdrGe::kLine:
      return static_cast<const CQdrGeLine2d*>(&curve);
    case QdrGe::kCircArc:
      return static_cast<const CQdrGeCircArc2d*>(&curve);
    case QdrGe::kEllipArc:
      return static_cast<const CQdrGeEllipArc2d*>(&curve);
    case QdrGe::kPolyline:
      return static_cast<const CQdrGePolyline2d*>(&curve);
    case QdrGe::kSpline:
      return &static_cast<const CQdrGeSpline&>(curve).polyline();
    case QdrGe::kSpiral:
      return &static_cast<const CQdrGeSpiral&>(curve).polyline();
    case QdrGe::kCSpline:
      if (!static_cast<const CQdrGeCSpline2d&>(curve).getGePolyline(scratch)) return std::nullopt;
      return &scratch;
    case QdrGe::kRect:
      static_cast<const CQdrGeRect2d&>(curve).getPolyline(scratch);
      return &scratch;
  }
  return std::nullopt;
}

std::optional<CrossingShape> crossingShape(const CQdrDbEntity& entity, CQdrGePolyline2d& scratch) {
  if (!entity.IsCurveEntity()) return std::nullopt;
  return crossingShape(*static_cast<const CQdrDbCurve&>(entity).curve(), scratch);
}

bool crossings(const CQdrGeEntity2d& curve, const CrossingShape& other, int& count, Points& points,
               int mode, double tol) {
  count = 0;
  const Intersect intersect = static_cast<Intersect>(mode);
  CQdrGePolyline2d scratch;
  const std::optional<CrossingShape> own = crossingShape(curve, scratch);
  if (!own || !isIntersectMode(intersect)) return false;
  const bool found = std::visit(
      [&](const auto* a, const auto* b) { return cross(*a, *b, count, points, intersect, tol); },
      *own, other);
  if (!found) count = 0;
  return found;
}

bool crossesRect(const CQdrGeEntity2d& curve, const CQdrGePoint2d& corner1,
                 const CQdrGePoint2d& corner2) {
  const CQdrGePoint2d corners[] = {
      corner1, {corner2.x, corner1.y}, corner2, {corner1.x, corner2.y}};
  Points points;
  for (int i = 0; i < 4; ++i) {
    const CQdrGeLine2d side(corners[i], corners[(i + 1) % 4]);
    int count = 0;
    if (crossings(curve, &side, count, points, CQdrGeEntity2d::kExtendNone, kCurveTolerance))
      return true;
    points.clear();
  }
  return false;
}

}  // namespace qdr
