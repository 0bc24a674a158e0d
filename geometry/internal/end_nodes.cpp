#include "geometry/internal/end_nodes.h"

#include <algorithm>

#include "geometry/tolerance.h"

namespace qdr {

EndNodes::EndNodes(const std::vector<Vec>& places) {
  std::vector<Box> boxes;
  boxes.reserve(places.size());
  for (const Vec& place : places)
    boxes.push_back(boxOfPoint(place));
  const BoxIndex index(boxes, BoxIndex::Order::hilbert);
  m_nodes.reserve(places.size());
  for (std::size_t k = 0; k < places.size(); ++k) {
    std::size_t node = k;
    index.forEachWithin(boxes[k], kJoinTolerance, [&](std::size_t j) {
      if (j < k) node = std::min(node, m_nodes[j]);
      return true;
    });
    m_nodes.push_back(node);
  }
}

}  // namespace qdr
