#include "geometry/box_tree.h"

#include <algorithm>

#include "geometry/internal/curve_order.h"

namespace qdr {

namespace {

/// The bounds of a node take up this many cells. The cells beyond them on both sides hold what
/// reaches out of the node.
constexpr double kCellsAcross = 65000.0;

/// An extent and a scale of at least this keep both finite and above zero, so that only a side
/// without a number lies in no order.
constexpr double kLeast = 1e-300;

double scaleOver(double extent) {
  return std::max(kLeast, kCellsAcross / std::max(kLeast, extent));
}

constexpr std::array<std::uint16_t, BoxTree::kFan> kBits = {
    0x0001, 0x0002, 0x0004, 0x0008, 0x0010, 0x0020, 0x0040, 0x0080,
    0x0100, 0x0200, 0x0400, 0x0800, 0x1000, 0x2000, 0x4000, 0x8000};

std::uint16_t mask(bool holds) {
  return static_cast<std::uint16_t>(-static_cast<std::uint16_t>(holds));
}

Box boundsOf(std::span<const Box> boxes) {
  Box bounds;
  for (const Box& box : boxes)
    bounds.add(box);
  return bounds;
}

}  // namespace

/// All four at once and without branches: which of them lie beyond the frame is chance.
BoxTree::Cells BoxTree::Node::cellsOf(const Box& box) const {
  constexpr double kMostCell = 32767.0;
  const auto sides = std::bit_cast<std::array<double, 4>>(box);
  Cells cells;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    double cell = (sides[k] - origin[k % 2]) * scale[k % 2];
    cell = cell > -kMostCell ? cell : -kMostCell;
    cell = cell < kMostCell ? cell : kMostCell;
    cells[k] = static_cast<std::int16_t>(static_cast<std::int32_t>(cell));
  }
  return cells;
}

/// Without branches as well, so that compilers test eight boxes with one instruction.
BoxTree::Found BoxTree::Node::find(const Box& area) const {
  const auto [areaMinX, areaMinY, areaMaxX, areaMaxY] = cellsOf(area);
  std::uint16_t candidates = 0;
  std::uint16_t sure = 0;
  for (std::size_t k = 0; k < kFan; ++k) {
    std::uint16_t meets = mask(minX[k] <= areaMaxX);
    meets &= mask(areaMinX <= maxX[k]);
    meets &= mask(minY[k] <= areaMaxY);
    meets &= mask(areaMinY <= maxY[k]);
    candidates |= static_cast<std::uint16_t>(meets & kBits[k]);
    std::uint16_t overlaps = mask(minX[k] < areaMaxX);
    overlaps &= mask(areaMinX < maxX[k]);
    overlaps &= mask(minY[k] < areaMaxY);
    overlaps &= mask(areaMinY < maxY[k]);
    sure |= static_cast<std::uint16_t>(overlaps & kBits[k]);
  }
  return {candidates, sure};
}

/// Without a finite extent all sides fall into one cell: every box is a candidate, none is sure.
void BoxTree::fill(Node& node, std::span<const Box> boxes, const Box& bounds) {
  constexpr std::int16_t kBeyond = -32768;  // below every cell
  node.origin = {bounds.minX * 0.5 + bounds.maxX * 0.5, bounds.minY * 0.5 + bounds.maxY * 0.5};
  node.scale = {scaleOver(bounds.maxX - bounds.minX), scaleOver(bounds.maxY - bounds.minY)};
  node.maxX.fill(kBeyond);
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    if (hasNan(boxes[k])) continue;
    const Cells cells = node.cellsOf(boxes[k]);
    node.minX[k] = cells[0];
    node.minY[k] = cells[1];
    node.maxX[k] = cells[2];
    node.maxY[k] = cells[3];
  }
}

BoxTree::BoxTree(std::span<const Box> boxes) {
  if (boxes.empty()) return;
  std::vector<Box> bounds;
  addLeaves(boxes, bounds);
  do {
    addLevel(bounds);
  } while (bounds.size() > 1);
  m_bounds = bounds.front();
}

void BoxTree::addLeaves(std::span<const Box> boxes, std::vector<Box>& bounds) {
  const std::vector<std::uint32_t> names = curveOrder(boxes);
  const std::size_t count = (names.size() + kFan - 1) / kFan;
  m_leaves.reserve(count);
  bounds.reserve(count);
  std::array<Box, kFan> together;
  for (std::size_t from = 0; from < names.size(); from += kFan) {
    const std::size_t size = std::min(kFan, names.size() - from);
    Leaf& leaf = m_leaves.emplace_back();
    for (std::size_t k = 0; k < size; ++k) {
      leaf.names[k] = names[from + k];
      together[k] = boxes[leaf.names[k]];
    }
    const std::span<const Box> under(together.data(), size);
    bounds.push_back(boundsOf(under));
    fill(leaf, under, bounds.back());
  }
}

/// Puts a level over what `bounds` holds and leaves the bounds of its nodes there.
void BoxTree::addLevel(std::vector<Box>& bounds) {
  std::vector<Node>& level = m_levels.emplace_back((bounds.size() + kFan - 1) / kFan);
  for (std::size_t i = 0; i < level.size(); ++i) {
    const std::size_t size = std::min(kFan, bounds.size() - i * kFan);
    const std::span<const Box> under(bounds.data() + i * kFan, size);
    const Box around = boundsOf(under);
    fill(level[i], under, around);
    bounds[i] = around;
  }
  bounds.resize(level.size());
}

}  // namespace qdr
