#include "geometry/internal/near_points.h"

#include <algorithm>
#include <bit>

namespace qdr {

NearPoints::NearPoints(std::vector<Vec> points, double reach)
    : m_reach(reach), m_cell(4.0 * reach), m_points(std::move(points)) {
  if (m_points.empty()) return;
  m_heads.assign(std::bit_ceil(2 * m_points.size()), kNone);
  m_next.resize(m_points.size());
  for (std::size_t k = 0; k < m_points.size(); ++k) {
    std::uint32_t& head = m_heads[bucketOf(cellOf(m_points[k].x), cellOf(m_points[k].y))];
    m_next[k] = head;
    head = static_cast<std::uint32_t>(k);
  }
}

std::size_t NearPoints::bucketOf(double cellX, double cellY) const {
  // Adding 0 makes one zero of both. The factors are odd numbers near 2^64 / golden ratio.
  std::uint64_t mixed = std::bit_cast<std::uint64_t>(cellX + 0.0) * 0x9E3779B97F4A7C15u;
  mixed ^= mixed >> 29;
  mixed += std::bit_cast<std::uint64_t>(cellY + 0.0) * 0xBF58476D1CE4E5B9u;
  mixed ^= mixed >> 32;
  mixed *= 0x94D049BB133111EBu;
  return static_cast<std::size_t>(mixed >> 32) & (m_heads.size() - 1);
}

std::vector<std::size_t> NearPoints::nodes(double reach) const {
  std::vector<std::size_t> nodes(m_points.size());
  for (std::size_t k = 0; k < m_points.size(); ++k) {
    nodes[k] = k;
    forEachNear(m_points[k], [&](std::size_t j) {
      if (j < k && distanceSqrd(m_points[j], m_points[k]) < reach * reach)
        nodes[k] = std::min(nodes[k], nodes[j]);
    });
  }
  return nodes;
}

}  // namespace qdr
