#pragma once

#include <span>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/internal/travel_segment.h"

namespace qdr {

/// How often a closed chain turns round `p`, counter-clockwise turns positive. Each segment begins
/// where the one before ends. On the chain itself either side counts.
int turnsAbout(std::span<const TravelSegment> ring, const Vec& p);

/// The same for many places, in about logarithmic time.
class Winding {
 public:
  /// The segments and the index over their boxes, in their order, have to outlive this.
  Winding(std::span<const TravelSegment> ring, const BoxIndex& index);

  int about(const Vec& p) const;

 private:
  /// A run of segments. Those of a level are halves of the one before.
  struct Run {
    std::size_t node;
    std::size_t from;
    std::size_t to;
  };

  static bool isLeaf(const Run& run) { return run.to - run.from <= kLeaf; }
  static Run firstHalf(const Run& run) {
    return {2 * run.node + 1, run.from, (run.from + run.to) / 2};
  }
  static Run secondHalf(const Run& run) {
    return {2 * run.node + 2, (run.from + run.to) / 2, run.to};
  }

  const Box& fill(const Run& run);
  int about(const Vec& p, const Run& run) const;

  /// Up to how many segments are asked one by one.
  static constexpr std::size_t kLeaf = 8;

  std::span<const TravelSegment> m_ring;
  const BoxIndex& m_index;
  std::vector<Box> m_boxes;  // by node
};

}  // namespace qdr
