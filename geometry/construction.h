#pragma once

#include <optional>

#include "geometry/point2d.h"
#include "platform/export.h"

class CQdrGeLine2d;

/// Points found by construction. All are evaluated relative to one of the points given, so that
/// far from the origin no digits are lost.
namespace qdr {

/// Area of the triangle, positive when the three points turn counter-clockwise.
QDR_API double signedArea(const CQdrGePoint2d& p, const CQdrGePoint2d& q, const CQdrGePoint2d& r);

/// Center of the circle through three points; none when they are collinear, by a cross product of
/// at most 1e-12 times the lengths of the two sides.
QDR_API std::optional<CQdrGePoint2d> bisectorCenter(const CQdrGePoint2d& p1,
                                                    const CQdrGePoint2d& p2,
                                                    const CQdrGePoint2d& p3);

/// Foot of the perpendicular from `point` on the infinite line; none for a line of no length.
QDR_API std::optional<CQdrGePoint2d> footOnLine(const CQdrGeLine2d& line,
                                                const CQdrGePoint2d& point);

}  // namespace qdr
