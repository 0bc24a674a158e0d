#pragma once

#include <vector>

#include "geometry/internal/raw_offset.h"

namespace qdr {

/// The parts of an offset that keep the distance from the source, unchained: those of the wanted
/// side, and behind them, when `both`, those of the other one.
std::vector<VertexChain> offsetParts(const VertexChain& source, const OffsetRequest& request,
                                     bool both);

/// The same as chains, without open ones shorter than 0.05. Where chains of a closed source would
/// stay open, parts that are surplus in dead ends are left out.
std::vector<VertexChain> offsetChains(const VertexChain& source, const OffsetRequest& request,
                                      bool both);

}  // namespace qdr
