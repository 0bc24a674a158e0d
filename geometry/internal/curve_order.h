#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/box.h"

namespace qdr {

/// The positions of the boxes in the order in which a Hilbert curve over their bounds passes their
/// middles; boxes in one cell of the curve, 65536 a side, keep the order given.
std::vector<std::uint32_t> curveOrder(std::span<const Box> boxes);

}  // namespace qdr
