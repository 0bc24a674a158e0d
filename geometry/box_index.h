#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

#include "geometry/box.h"
#include "geometry/box_tree.h"
#include "platform/export.h"

namespace qdr {

/// Static index over boxes: which of them overlap an area, in logarithmic time.
///
/// Answers name boxes by their position in the vector given; the index is a value and never changes
/// after construction. Same input, same order of answers:
/// (1) Order::given: ascending. A packed tree without pointers over the boxes as they follow each
///     other, which suits chains and costs almost nothing to build: each box of a level bounds
///     kFan neighbours of the level below, the last level is one box.
/// (2) Order::hilbert: along a space-filling curve, for boxes in no spatial order, by a BoxTree.
/// A box with a NaN side overlaps nothing. Holds up to 2^32 - 1 boxes.
class QDR_API BoxIndex {
 public:
  enum class Order { given, hilbert };

  /// Boxes under one parent.
  static constexpr std::size_t kFan = 8;

  BoxIndex() = default;
  BoxIndex(std::vector<Box> boxes, Order order);

  std::size_t size() const { return m_size; }
  const Box& boxAt(std::size_t i) const { return m_boxes[i]; }

  /// Bounds of all boxes; the empty box without any.
  const Box& bounds() const { return m_bounds; }

  /// Calls visit(i) for every box that overlaps `area`; a visit that answers false ends the walk.
  /// False when it was ended.
  template <class Visit>
  bool forEachOverlap(const Box& area, Visit&& visit) const {
    if (!m_tree.isEmpty()) {
      return m_tree.forEachCandidate(area, [&](std::size_t i, bool isSure) {
        return !(isSure || m_boxes[i].overlaps(area)) || visit(i);
      });
    }
    return walk([&](const Box& box) { return box.overlaps(area); }, 0, visit);
  }

  /// The same for every box nearer to `area` than `reach`.
  template <class Visit>
  bool forEachWithin(const Box& area, double reach, Visit&& visit) const {
    const double limit = reach * reach;
    if (!m_tree.isEmpty()) {
      return m_tree.forEachCandidate(area.inflated(reach * kAboveOne), [&](std::size_t i, bool) {
        return !(m_boxes[i].distanceSqrd(area) < limit) || visit(i);
      });
    }
    return walk([&](const Box& box) { return box.distanceSqrd(area) < limit; }, 0, visit);
  }

  /// Calls visit(i, j), i below j, for each pair of boxes that overlap, in the order of a descent
  /// by pairs of bounds. For an index in the given order.
  template <class Visit>
  void forEachOverlappingPair(Visit&& visit) const {
    if (!m_levels.empty()) pairsUnder(m_levels.size() - 1, 0, 0, visit);
  }

 private:
  /// Takes a product up by more than its rounding.
  static constexpr double kAboveOne = 1.0 + 1e-12;

  struct Level {
    std::size_t first;  // in m_boxes
    std::size_t count;
  };

  /// Calls visit(k) for the boxes of `level` that pass the test, as their parents do.
  template <class Test, class Visit>
  bool walk(const Test& test, std::size_t level, Visit& visit) const {
    if (m_levels.empty()) return true;
    return walkUnder(test, level, m_levels.size() - 1, 0, 1, visit);
  }

  /// `from` to `to` are the kFan boxes, or fewer, under one parent. All are tested before any is
  /// entered, without branches, and what will be read next is fetched meanwhile.
  template <class Test, class Visit>
  bool walkUnder(const Test& test, std::size_t target, std::size_t level, std::size_t from,
                 std::size_t to, Visit& visit) const {
    const Box* boxes = m_boxes.data() + m_levels[level].first;
    unsigned passing = 0;
    for (std::size_t k = from; k < to; ++k)
      passing |= static_cast<unsigned>(test(boxes[k])) << (k - from);
    if (level == target) {
      for (; passing != 0; passing &= passing - 1) {
        if (!visit(from + firstBit(passing))) return false;
      }
      return true;
    }
    const Box* below = m_boxes.data() + m_levels[level - 1].first;
    for (unsigned rest = passing; rest != 0; rest &= rest - 1) {
      const std::size_t first = (from + firstBit(rest)) * kFan;
      fetch(below + first, kFan * sizeof(Box));
    }
    for (; passing != 0; passing &= passing - 1) {
      const std::size_t first = (from + firstBit(passing)) * kFan;
      const std::size_t last = std::min(first + kFan, m_levels[level - 1].count);
      if (!walkUnder(test, target, level - 1, first, last, visit)) return false;
    }
    return true;
  }

  /// `a` and `b` are one box of a level above the lowest, or two that overlap, `a` the earlier.
  template <class Visit>
  void pairsUnder(std::size_t level, std::size_t a, std::size_t b, Visit& visit) const {
    const Level& lower = m_levels[level - 1];
    const Box* const boxes = m_boxes.data() + lower.first;
    const Box& boundsB = m_boxes[m_levels[level].first + b];
    const std::size_t endA = std::min((a + 1) * kFan, lower.count);
    const std::size_t endB = std::min((b + 1) * kFan, lower.count);
    for (std::size_t i = a * kFan; i < endA; ++i) {
      if (!boxes[i].overlaps(boundsB)) continue;
      if (a == b && level > 1) pairsUnder(level - 1, i, i, visit);
      const std::size_t first = std::max(b * kFan, i + 1);
      unsigned passing = 0;
      for (std::size_t j = first; j < endB; ++j)
        passing |= static_cast<unsigned>(boxes[i].overlaps(boxes[j])) << (j - first);
      for (; passing != 0; passing &= passing - 1) {
        const std::size_t j = first + firstBit(passing);
        if (level > 1) {
          pairsUnder(level - 1, i, j, visit);
        } else {
          visit(i, j);
        }
      }
    }
  }

  static std::size_t firstBit(unsigned bits) {
    return static_cast<std::size_t>(std::countr_zero(bits));
  }

  static void fetch(const void* data, std::size_t size) {
#if defined(__GNUC__)
    constexpr std::size_t kLine = 64;
    for (std::size_t at = 0; at < size; at += kLine)
      __builtin_prefetch(static_cast<const char*>(data) + at);
#else
    (void)data, (void)size;
#endif
  }

  template <class Prune, class Visit>
  friend void forEachNearPair(const BoxIndex& a, const BoxIndex& b, const Prune& prune,
                              Visit&& visit);

  std::vector<Box> m_boxes;     // the boxes given; in their order, the levels above them follow
  std::vector<Level> m_levels;  // of the given order
  BoxTree m_tree;               // of the other one
  Box m_bounds;
  std::size_t m_size = 0;
};

/// Calls visit(i, j) for the pairs of a box of `a` and a box of `b` that pass prune(boxA, boxB),
/// which must hold for bounds when it holds for what they bound. Both indexes are in the given
/// order. The pairs come by i, then by j. A visit that answers false ends the pairs of that i.
template <class Prune, class Visit>
void forEachNearPair(const BoxIndex& a, const BoxIndex& b, const Prune& prune, Visit&& visit) {
  constexpr std::size_t kFan = BoxIndex::kFan;
  if (a.size() == 0 || b.size() == 0) return;
  // One descent serves the kFan boxes under one parent: it collects the parents in `b` near it.
  std::vector<std::size_t> parents;
  const auto collect = [&](std::size_t k) {
    parents.push_back(k);
    return true;
  };
  const BoxIndex::Level& groups = a.m_levels[1];
  for (std::size_t group = 0; group < groups.count; ++group) {
    const Box& bounds = a.m_boxes[groups.first + group];
    parents.clear();
    b.walk([&](const Box& box) { return prune(bounds, box); }, 1, collect);
    const std::size_t last = std::min((group + 1) * kFan, a.size());
    for (std::size_t i = group * kFan; i < last; ++i) {
      const auto visitPair = [&](std::size_t j) { return visit(i, j); };
      for (const std::size_t parent : parents) {
        if (!prune(a.m_boxes[i], b.m_boxes[b.m_levels[1].first + parent])) continue;
        const std::size_t first = parent * kFan;
        const std::size_t end = std::min(first + kFan, b.size());
        const auto isNear = [&](const Box& box) { return prune(a.m_boxes[i], box); };
        if (!b.walkUnder(isNear, 0, 0, first, end, visitPair)) break;
      }
    }
  }
}

}  // namespace qdr
