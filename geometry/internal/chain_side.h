#pragma once

#include "geometry/point2d.h"

class CQdrGePolyline2d;

namespace qdr {

/// True when `side` lies left of the travel of the nearest segment, judged by the whole line of a
/// straight one: also where a vertex is nearest, or a place beyond an end. False without a segment.
bool isLeftOfChain(const CQdrGePolyline2d& chain, const CQdrGePoint2d& side);

/// A place just beside the middle of straight segment `i`, left or right of the travel: the offset
/// of a chain takes it for that side of the whole chain, with nothing in doubt.
CQdrGePoint2d placeBeside(const CQdrGePolyline2d& chain, int i, bool left);

/// Index of the first straight segment of some length, -1 without one.
int firstStraightSegment(const CQdrGePolyline2d& chain);

}  // namespace qdr
