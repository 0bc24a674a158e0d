#include "geometry/box_index.h"

#include <utility>

namespace qdr {

BoxIndex::BoxIndex(std::vector<Box> boxes, Order order)
    : m_boxes(std::move(boxes)), m_size(m_boxes.size()) {
  if (m_boxes.empty()) return;
  if (order == Order::hilbert) {
    m_tree = BoxTree(m_boxes);
    m_bounds = m_tree.bounds();
    return;
  }
  m_levels.push_back({0, m_size});
  do {
    const Level& below = m_levels.back();
    m_levels.push_back({below.first + below.count, (below.count + kFan - 1) / kFan});
  } while (m_levels.back().count > 1);
  m_boxes.reserve(m_levels.back().first + 1);
  for (std::size_t level = 0; level + 1 < m_levels.size(); ++level) {
    const Level& below = m_levels[level];
    for (std::size_t from = 0; from < below.count; from += kFan) {
      Box bounds;
      const std::size_t to = std::min(from + kFan, below.count);
      for (std::size_t k = from; k < to; ++k)
        bounds.add(m_boxes[below.first + k]);
      m_boxes.push_back(bounds);
    }
  }
  m_bounds = m_boxes.back();
}

}  // namespace qdr
