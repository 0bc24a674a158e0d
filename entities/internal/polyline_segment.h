#pragma once

#include "geometry/circ_arc2d.h"
#include "geometry/polyline2d.h"

namespace qdr {

/// The ends of a segment in the order of travel.
enum class SegmentEnd { kStart, kEnd };

/// Bulge of arc segment `segment` when one of its ends moves to a point of its circle.
inline double bulgeUpTo(const CQdrGePolyline2d& chain, int segment, SegmentEnd end,
                        const CQdrGePoint2d& point) {
  CQdrGeCircArc2d arc;
  if (!chain.getArcSegAt(segment, arc)) return 0.0;
  const bool forward = chain.getBulgeAt(segment) > 0.0;
  const double angle = arc.center().angleTo(point);
  // The arc runs counter-clockwise, so against the travel of a negative bulge.
  if ((end == SegmentEnd::kStart) == forward)
    arc.setStartAngle(angle);
  else
    arc.setEndAngle(angle);
  return forward ? arc.bulge() : -arc.bulge();
}

}  // namespace qdr
