#pragma once

#include <vector>

#include "geometry/internal/offset_curve.h"
#include "geometry/internal/part_judge.h"

namespace qdr {

/// Whether the source neither crosses nor touches itself.
bool isSimple(const Clearance& source);

/// The marked slices and all that are connected with them over ends that meet.
std::vector<bool> connectedWith(const std::vector<Slice>& slices,
                                const std::vector<bool>& isMarked);

/// The slices of the raw offset of a simple closed source without what leads from one loose end to
/// another. An end is loose where an odd number of slices ends, so that their chains cannot all
/// close.
///
/// What bounds the offset closes by itself. Loose ends come from slices that run inside a sharp
/// corner, or that a corner has carried through the source to its other side. They are told by how
/// often raw offset and source turn round a place beside them. What is on the other side goes. Of
/// what a corner covers goes the shortest way from each loose end to another, and nothing else, so
/// that corners which cover all of an offset leave something of it; where there is no such way, as
/// at a border that the raw offset lacks, the ends stay loose.
///
/// `liesAlong` marks the segments that others run over.
std::vector<Slice> withoutDeadEnds(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                   const Clearance& source, int direction,
                                   const std::vector<Slice>& slices);

}  // namespace qdr
