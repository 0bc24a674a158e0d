#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "geometry/polyline2d.h"

class CQdrDbEntity;
class CQdrGeCircArc2d;
class CQdrGeEllipArc2d;
class CQdrGeLine2d;

namespace qdr {

/// What a curve is crossed as: the curves that the kernel solves, and the polyline for the others.
using CrossingShape = std::variant<const CQdrGeLine2d*, const CQdrGeCircArc2d*,
                                   const CQdrGeEllipArc2d*, const CQdrGePolyline2d*>;

/// The shape of a curve; none for a cubic spline without a curve. It points into `curve`, or into
/// `scratch` where a polyline has to be made.
std::optional<CrossingShape> crossingShape(const CQdrGeEntity2d& curve, CQdrGePolyline2d& scratch);

/// The shape of an entity; none for one that is no curve.
std::optional<CrossingShape> crossingShape(const CQdrDbEntity& entity, CQdrGePolyline2d& scratch);

/// Crossings of a curve with a line, arc, elliptic arc or polyline, as the kernel finds them; they
/// are appended to `points`. `count` is 0 when there is none. `mode` is a CQdrGeEntity2d::Intersect
/// seen from `curve`; any other value finds nothing.
bool crossings(const CQdrGeEntity2d& curve, const CrossingShape& other, int& count,
               std::vector<CQdrGePoint2d>& points, int mode, double tol);

/// True when a side of the rectangle of two opposite corners crosses the curve; tried from the
/// first corner along y = const.
bool crossesRect(const CQdrGeEntity2d& curve, const CQdrGePoint2d& corner1,
                 const CQdrGePoint2d& corner2);

}  // namespace qdr
