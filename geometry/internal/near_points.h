#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/tolerance.h"
#include "geometry/vec.h"

namespace qdr {

/// Finds which of many points are nearer than a length to a place, in constant time: a hashed grid.
class NearPoints {
 public:
  explicit NearPoints(std::vector<Vec> points, double reach = kJoinTolerance);

  /// Calls visit(k) for every point nearer than the length to `p`, in no order.
  template <class Visit>
  void forEachNear(const Vec& p, Visit&& visit) const {
    const double lowX = cellOf(p.x - m_reach);
    const double highX = cellOf(p.x + m_reach);
    const double lowY = cellOf(p.y - m_reach);
    const double highY = cellOf(p.y + m_reach);
    visitCell(lowX, lowY, p, visit);
    if (highX != lowX) visitCell(highX, lowY, p, visit);
    if (highY != lowY) visitCell(lowX, highY, p, visit);
    if (highX != lowX && highY != lowY) visitCell(highX, highY, p, visit);
  }

  /// For each point the first one nearer than `reach`, at most that of the grid: points of one
  /// number share a node.
  std::vector<std::size_t> nodes(double reach = kJoinTolerance) const;

 private:
  static constexpr std::uint32_t kNone = static_cast<std::uint32_t>(-1);

  double cellOf(double x) const { return std::floor(x / m_cell); }
  std::size_t bucketOf(double cellX, double cellY) const;

  template <class Visit>
  void visitCell(double cellX, double cellY, const Vec& p, Visit&& visit) const {
    if (m_heads.empty()) return;
    for (std::uint32_t k = m_heads[bucketOf(cellX, cellY)]; k != kNone; k = m_next[k]) {
      // Cells that share a bucket are told apart, so that no point is met twice.
      const bool isOfCell = cellOf(m_points[k].x) == cellX && cellOf(m_points[k].y) == cellY;
      if (isOfCell && distanceSqrd(p, m_points[k]) < m_reach * m_reach) visit(k);
    }
  }

  double m_reach;
  double m_cell;  // the width of a cell
  std::vector<Vec> m_points;
  std::vector<std::uint32_t> m_heads;  // by bucket, the count of which is a power of two
  std::vector<std::uint32_t> m_next;
};

}  // namespace qdr
