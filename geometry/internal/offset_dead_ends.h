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
/// What bounds the offset closes by itself. Loose ends come from surplus slices: those that run
/// inside a sharp corner, or that a corner has carried through the source to its other side. They
/// are told by how often the raw offset turns round a place beside them. When the rest closes, all
/// of the surplus goes. Otherwise the raw offset lacks some of the border: of the surplus goes the
/// shortest way from each loose end to another, and ends without such a way stay loose.
///
/// `liesAlong` marks the segments that others run over.
std::vector<Slice> withoutDeadEnds(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                   const Clearance& source, int direction,
                                   const std::vector<Slice>& slices);

}  // namespace qdr
