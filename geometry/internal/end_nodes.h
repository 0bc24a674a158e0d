#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/internal/offset_curve.h"

namespace qdr {

/// The places where slices end, those nearer than 0.002 to each other taken as one node.
class EndNodes {
 public:
  explicit EndNodes(const std::vector<Vec>& places);

  /// The node of place `k`: a position in the places given.
  std::size_t nodeOf(std::size_t k) const { return m_nodes[k]; }

 private:
  std::vector<std::size_t> m_nodes;
};

}  // namespace qdr
