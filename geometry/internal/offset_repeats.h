#pragma once

#include <vector>

#include "geometry/internal/offset_curve.h"

namespace qdr {

/// The slices, given in the order of travel, without the stretches that run over earlier ones.
///
/// `liesAlong` marks the segments that others run over. A repeated stretch stays where a chain
/// would break without it: when the number of slice ends is even at both of its ends, as in a dead
/// end that the offset enters and leaves by one line.
std::vector<Slice> withoutRepeats(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                  const std::vector<Slice>& slices);

/// The same of stretches that run the way of the earlier ones, whatever would break.
std::vector<Slice> withoutParallels(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                    const std::vector<Slice>& slices);

}  // namespace qdr
