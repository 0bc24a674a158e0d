#pragma once

#include <cstddef>
#include <vector>

#include "geometry/internal/raw_offset.h"

namespace qdr {

/// Joins chains whose ends lie nearer than 0.002 to each other, as appendPolyline does.
///
/// The first chain takes the earliest other one that meets an end of it, then the earliest of the
/// rest, until none meets; then the first of the rest does the same. Chains that close on
/// themselves neither take nor are taken, unless their ends are up to 0.002 apart and another one
/// leads on from just there.
///
/// `joinedTo`, when given, takes for each chain the index of the joined one that it is part of.
std::vector<VertexChain> joinedChains(std::vector<VertexChain> chains,
                                      std::vector<std::size_t>* joinedTo = nullptr);

}  // namespace qdr
