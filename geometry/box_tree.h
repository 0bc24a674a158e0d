#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "geometry/box.h"
#include "platform/export.h"

namespace qdr {

/// A packed tree over many boxes in no order, made to be asked from cold memory: which boxes may
/// overlap an area.
///
/// The boxes follow each other along a Hilbert curve (Kamel, Faloutsos: Hilbert R-tree, 1994),
/// kFan of them under one node. A node keeps the sides of its boxes as 16-bit cells of a frame of
/// its own, so that it fills few lines of cache and all its boxes are tested at once. The same
/// non-decreasing function takes a side of a box and a side of the area to its cell. Cells in
/// strict order therefore prove the order of the sides; only equal cells leave it open, and then
/// the owner of the boxes looks at the boxes themselves.
class QDR_API BoxTree {
 public:
  /// Boxes under one node.
  static constexpr std::size_t kFan = 16;

  BoxTree() = default;
  /// Holds no reference to `boxes`; answers name them by position.
  explicit BoxTree(std::span<const Box> boxes);

  bool isEmpty() const { return m_leaves.empty(); }

  /// Bounds of all boxes; the empty box without any.
  const Box& bounds() const { return m_bounds; }

  /// Calls visit(i, isSure) for every box that overlaps `area`, and for some whose sides lie next
  /// to its sides: those, and some that do overlap, come without isSure. In the order of the
  /// curve. A visit that answers false ends the walk; false when it was ended. An area with a NaN
  /// side meets nothing, as does a box with one.
  template <class Visit>
  bool forEachCandidate(const Box& area, Visit&& visit) const {
    if (isEmpty() || hasNan(area)) return true;
    constexpr std::uint32_t kRoot = 0;
    return walk(area, m_levels.size() - 1, {&kRoot, 1}, visit);
  }

 private:
  // Most nodes that wait to be entered on one level; beyond them those of the level below go first.
  static constexpr std::size_t kMostWaiting = 4 * kFan;

  /// Sides of one box in cells, in the order of the members of Box.
  using Cells = std::array<std::int16_t, 4>;

  /// One bit for each box of a node.
  struct Found {
    std::uint16_t candidates;
    std::uint16_t sure;
  };

  struct alignas(32) Node {
    Cells cellsOf(const Box& box) const;
    Found find(const Box& area) const;

    std::array<std::int16_t, kFan> minX;
    std::array<std::int16_t, kFan> minY;
    std::array<std::int16_t, kFan> maxX;
    std::array<std::int16_t, kFan> maxY;
    std::array<double, 2> origin;  // of the frame, by axis
    std::array<double, 2> scale;
  };

  /// A node over boxes themselves.
  struct Leaf : Node {
    std::array<std::uint32_t, kFan> names;
  };

  static bool hasNan(const Box& box) {
    return !((box.minX == box.minX) & (box.minY == box.minY) & (box.maxX == box.maxX) &
             (box.maxY == box.maxY));
  }

  template <class Any>
  static void fetch(const Any& node) {
#if defined(__GNUC__)
    constexpr std::size_t kLine = 64;
    const char* const bytes = reinterpret_cast<const char*>(&node);
    for (std::size_t at = 0; at < sizeof(Any); at += kLine)
      __builtin_prefetch(bytes + at);
    __builtin_prefetch(bytes + sizeof(Any) - 1);
#else
    (void)node;
#endif
  }

  /// Enters `nodes` of one level above the leaves. All nodes below them are found before any is
  /// read, so that memory is asked for many at a time.
  template <class Visit>
  bool walk(const Box& area, std::size_t level, std::span<const std::uint32_t> nodes,
            Visit& visit) const {
    std::array<std::uint32_t, kMostWaiting> waiting;
    std::size_t count = 0;
    const auto enter = [&] {
      const std::span<const std::uint32_t> below(waiting.data(), std::exchange(count, 0));
      return level == 0 ? visitLeaves(area, below, visit) : walk(area, level - 1, below, visit);
    };
    for (const std::uint32_t place : nodes) {
      const Node& node = m_levels[level][place];
      for (unsigned found = node.find(area).candidates; found != 0; found &= found - 1) {
        const std::size_t child = place * kFan + firstBit(found);
        if (level == 0) {
          fetch(m_leaves[child]);
        } else {
          fetch(m_levels[level - 1][child]);
        }
        waiting[count++] = static_cast<std::uint32_t>(child);
      }
      if (count + kFan > kMostWaiting && !enter()) return false;
    }
    return count == 0 || enter();
  }

  template <class Visit>
  bool visitLeaves(const Box& area, std::span<const std::uint32_t> leaves, Visit& visit) const {
    for (const std::uint32_t place : leaves) {
      const Leaf& leaf = m_leaves[place];
      const Found found = leaf.find(area);
      for (unsigned rest = found.candidates; rest != 0; rest &= rest - 1) {
        const std::size_t k = firstBit(rest);
        if (!visit(leaf.names[k], (found.sure >> k & 1) != 0)) return false;
      }
    }
    return true;
  }

  static std::size_t firstBit(unsigned bits) {
    return static_cast<std::size_t>(std::countr_zero(bits));
  }

  static void fill(Node& node, std::span<const Box> boxes, const Box& bounds);
  void addLeaves(std::span<const Box> boxes, std::vector<Box>& bounds);
  void addLevel(std::vector<Box>& bounds);

  std::vector<Leaf> m_leaves;
  std::vector<std::vector<Node>> m_levels;  // from the one over the leaves up to the root
  Box m_bounds;
};

}  // namespace qdr
