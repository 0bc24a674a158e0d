#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

#include "geometry/box.h"
#include "platform/export.h"

namespace qdr {

/// A packed tree over many boxes in no order, made to be asked from cold memory: which boxes may
/// overlap an area.
///
/// The boxes follow each other along a Hilbert curve (Kamel, Faloutsos: Hilbert R-tree, 1994),
/// kFan of them under one node. A node keeps the sides of its boxes as small cells of a frame of
/// its own, so that it fills few lines of cache and all its boxes are tested at once. The same
/// non-decreasing function takes a side of a box and a side of the area to its cell. Cells in
/// strict order therefore prove the order of the sides; only equal cells leave it open, and then
/// the owner of the boxes looks at the boxes themselves, which is one more read of cold memory.
/// Leaves have cells of 16 bits, for that to be rare; 8 bits are enough above them, where a box
/// too many costs little, and let those levels stay near.
class QDR_API BoxTree {
 public:
  /// Boxes under one node.
  static constexpr std::size_t kFan = 32;

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
    const Report report = [](void* context, std::uint32_t name, bool isSure) -> bool {
      return (*static_cast<std::remove_reference_t<Visit>*>(context))(name, isSure);
    };
    return walk(area, report, &visit);
  }

 private:
  using Report = bool (*)(void* context, std::uint32_t name, bool isSure);

  template <class Cell>
  struct alignas(32) NodeOf {
    /// Sides of one box in cells, in the order of the members of Box.
    using Cells = std::array<Cell, 4>;

    Cells cellsOf(const Box& box) const;
    std::uint32_t meeting(const Cells& area) const;
    bool surelyMeets(const Cells& area, std::size_t k) const;
    void fill(std::span<const Box> boxes, const Box& bounds);

    std::array<double, 2> origin;  // of the frame, by axis
    std::array<double, 2> scale;
    std::array<Cell, kFan> minX;
    std::array<Cell, kFan> minY;
    std::array<Cell, kFan> maxX;
    std::array<Cell, kFan> maxY;
  };

  /// A node over nodes.
  using Node = NodeOf<std::int8_t>;

  /// A node over boxes themselves.
  struct Leaf : NodeOf<std::int16_t> {
    std::array<std::uint32_t, kFan> names;
  };

  class Walk;

  void addLeaves(std::span<const Box> boxes, std::vector<Box>& bounds);
  void addLevel(std::vector<Box>& bounds);
  bool walk(const Box& area, Report report, void* context) const;

  std::vector<Leaf> m_leaves;
  std::vector<std::vector<Node>> m_levels;  // from the one over the leaves up to the root
  Box m_bounds;
};

}  // namespace qdr
