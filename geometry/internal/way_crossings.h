#pragma once

#include <vector>

#include "geometry/line2d.h"
#include "geometry/point2d.h"

class CQdrGePolyline2d;

namespace qdr {

/// The crossings of a chain with a bounded line, segment after segment, as `intersectWith` of the
/// chain finds them within `tol` of both, repetitions included. Segments that lie clear of the
/// line on one side of it are passed over by two products, so that the walk costs little more than
/// a look at each vertex.
std::vector<CQdrGePoint2d> crossingsWithWay(const CQdrGePolyline2d& chain, const CQdrGeLine2d& way,
                                            double tol);

}  // namespace qdr
