#pragma once

#include <span>
#include <vector>

#include "geometry/internal/offset_curve.h"
#include "geometry/internal/part_judge.h"

namespace qdr {

/// What of the fallen slices is to be kept besides the slices that stand.
///
/// A fallen slice is cut further at the exact border of the distance round the source, and its
/// parts are judged one by one. Beyond a crossing it often runs on for a little way inside a sharp
/// corner, which lies outside that border: a part is surplus when it ends at a crossing where two
/// others meet already. Of several that compete for a crossing the longest is taken. Parts shorter
/// than 0.05 are no result.
///
/// Far from the gaps the raw offset has all of the border, and a fallen slice is not looked at;
/// with null it is unknown where they are.
std::vector<Slice> keptOfFallen(const OffsetCurve& curve, PartJudge& judge, const BorderGaps* gaps,
                                const std::vector<Slice>& fallen, const std::vector<Slice>& kept);

}  // namespace qdr
