#pragma once

#include <vector>

#include "database/property.h"
#include "geometry/ellip_arc2d.h"

class CDC;

// What an ellipse and an elliptic arc have in common as entities: both show the axes of their
// geometry as vectors of the length of the radii.
namespace qdr {

CQdrGeVector2d majorVector(const CQdrGeEllipArc2d& ellipse);
CQdrGeVector2d minorVector(const CQdrGeEllipArc2d& ellipse);

/// Takes direction and major radius from the vector, and sets the minor axis at a right angle to
/// it; the minor radius stays. A vector of length 0 changes nothing.
void setMajorVector(CQdrGeEllipArc2d& ellipse, const CQdrGeVector2d& major);

/// The four ends of the axes, counter-clockwise from that of the major vector.
std::vector<CQdrGePoint2d> quadrantPoints(const CQdrGeEllipArc2d& ellipse);

/// Polar angle of a point as the geometry keeps angles: about the center, from the major axis, in
/// [0, 2 pi].
double angleInFrame(const CQdrGeEllipArc2d& ellipse, const CQdrGePoint2d& point);

/// Rows of group "Shape".
std::vector<Property> ellipseRows(const CQdrGeEllipArc2d& ellipse);

/// Draws logical points as circular arcs, each through three neighbours; three in a line and a
/// pair that is left over give lines.
void drawAsArcs(CDC& dc, const std::vector<CPoint>& points);

}  // namespace qdr
