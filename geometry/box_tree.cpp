#include "geometry/box_tree.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "geometry/internal/curve_order.h"

namespace qdr {

namespace {

/// The cells of a frame run to this on both sides of zero. The bounds of a node end before the
/// outermost cells, which hold what reaches out of the node.
template <class Cell>
constexpr double kMostCell = std::numeric_limits<Cell>::max();

/// An extent and a scale of at least this keep both finite and above zero, so that only a side
/// without a number lies in no order.
constexpr double kLeast = 1e-300;

/// Boxes by which reading runs ahead of what is packed into leaves.
constexpr std::size_t kAhead = 40;

double scaleOver(double extent, double cells) {
  return std::max(kLeast, cells / std::max(kLeast, extent));
}

bool hasNan(const Box& box) {
  return !((box.minX == box.minX) & (box.minY == box.minY) & (box.maxX == box.maxX) &
           (box.maxY == box.maxY));
}

Box boundsOf(std::span<const Box> boxes) {
  Box bounds;
  for (const Box& box : boxes)
    bounds.add(box);
  return bounds;
}

/// Always inline: compilers see no effect in a function that only fetches, and drop its calls.
template <class Any>
[[gnu::always_inline]] inline void fetch(const Any& data) {
#if defined(__GNUC__)
  constexpr std::size_t kLine = 64;
  const char* const bytes = reinterpret_cast<const char*>(&data);
  for (std::size_t at = 0; at < sizeof(Any); at += kLine)
    __builtin_prefetch(bytes + at);
  __builtin_prefetch(bytes + sizeof(Any) - 1);
#else
  (void)data;
#endif
}

/// Bit k says whether holds(k), for the kFan boxes of a node. Sixteen answers at a time become
/// bytes without branches, which compilers do with a few wide instructions; a product then adds
/// up eight of them, each with a bit of its own, in its highest byte.
template <class Holds>
std::uint32_t bitsWhere(const Holds& holds) {
  constexpr std::array<std::uint8_t, 16> kBits = {1, 2, 4, 8, 16, 32, 64, 128,
                                                  1, 2, 4, 8, 16, 32, 64, 128};
  constexpr std::uint64_t kAddUp = 0x0101010101010101;
  std::uint32_t bits = 0;
  for (std::size_t from = 0; from < BoxTree::kFan; from += kBits.size()) {
    std::array<std::uint8_t, kBits.size()> answers;
    for (std::size_t k = 0; k < answers.size(); ++k) {
      const auto mask = static_cast<std::uint8_t>(-static_cast<std::uint8_t>(holds(from + k)));
      answers[k] = static_cast<std::uint8_t>(mask & kBits[k]);
    }
    for (std::size_t half = 0; half < answers.size(); half += 8) {
      std::uint64_t word;
      std::memcpy(&word, answers.data() + half, sizeof word);
      bits |= static_cast<std::uint32_t>(word * kAddUp >> 56) << (from + half);
    }
  }
  return bits;
}

std::size_t firstBit(std::uint32_t bits) {
  return static_cast<std::size_t>(std::countr_zero(bits));
}

}  // namespace

template <class Cell>
auto BoxTree::NodeOf<Cell>::cellsOf(const Box& box) const -> Cells {
  const auto sides = std::bit_cast<std::array<double, 4>>(box);
  Cells cells;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    double cell = (sides[k] - origin[k % 2]) * scale[k % 2];
    cell = cell > -kMostCell<Cell> ? cell : -kMostCell<Cell>;
    cell = cell < kMostCell<Cell> ? cell : kMostCell<Cell>;
    cells[k] = static_cast<Cell>(static_cast<std::int32_t>(cell));
  }
  return cells;
}

/// The boxes that no strict order of cells keeps away.
template <class Cell>
std::uint32_t BoxTree::NodeOf<Cell>::meeting(const Cells& area) const {
  const Cell areaMinX = area[0], areaMinY = area[1], areaMaxX = area[2], areaMaxY = area[3];
  return bitsWhere([&](std::size_t k) {
    return (minX[k] <= areaMaxX) & (areaMinX <= maxX[k]) & (minY[k] <= areaMaxY) &
           (areaMinY <= maxY[k]);
  });
}

/// Whether box `k` overlaps by strict orders of cells alone.
template <class Cell>
bool BoxTree::NodeOf<Cell>::surelyMeets(const Cells& area, std::size_t k) const {
  return (minX[k] < area[2]) & (area[0] < maxX[k]) & (minY[k] < area[3]) & (area[1] < maxY[k]);
}

/// Without a finite extent all sides fall into one cell: every box is a candidate, none is sure.
template <class Cell>
void BoxTree::NodeOf<Cell>::fill(std::span<const Box> boxes, const Box& bounds) {
  constexpr double kCellsAcross = 2.0 * kMostCell<Cell> - 1.0;
  origin = {bounds.minX * 0.5 + bounds.maxX * 0.5, bounds.minY * 0.5 + bounds.maxY * 0.5};
  scale = {scaleOver(bounds.maxX - bounds.minX, kCellsAcross),
           scaleOver(bounds.maxY - bounds.minY, kCellsAcross)};
  maxX.fill(std::numeric_limits<Cell>::min());  // below every cell
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    if (hasNan(boxes[k])) continue;
    const Cells cells = cellsOf(boxes[k]);
    minX[k] = cells[0];
    minY[k] = cells[1];
    maxX[k] = cells[2];
    maxY[k] = cells[3];
  }
}

/// One question: the nodes of a level that the area meets are found before any is read, so that
/// memory is asked for many at a time.
class BoxTree::Walk {
 public:
  Walk(const BoxTree& tree, const Box& area, Report report, void* context)
      : m_tree(tree), m_area(area), m_report(report), m_context(context) {}

  /// Enters `places` of the level that stands on `levelsBelow` others; false when a visit ends it.
  bool enter(std::size_t levelsBelow, std::span<const std::uint32_t> places) const {
    if (levelsBelow == 0) return visitLeaves(places);
    std::array<std::uint32_t, kMostWaiting> waiting;
    std::size_t count = 0;
    const std::vector<Node>& nodes = m_tree.m_levels[levelsBelow - 1];
    for (const std::uint32_t place : places) {
      if (count + kFan > kMostWaiting) {
        if (!enter(levelsBelow - 1, {waiting.data(), count})) return false;
        count = 0;
      }
      const Node& node = nodes[place];
      std::uint32_t found = node.meeting(node.cellsOf(m_area));
      for (; found != 0; found &= found - 1) {
        const std::size_t child = place * kFan + firstBit(found);
        if (levelsBelow == 1) {
          fetch(m_tree.m_leaves[child]);
        } else {
          fetch(m_tree.m_levels[levelsBelow - 2][child]);
        }
        waiting[count++] = static_cast<std::uint32_t>(child);
      }
    }
    return enter(levelsBelow - 1, {waiting.data(), count});
  }

 private:
  // Most nodes that wait to be entered on one level; beyond them those of the level below go first.
  static constexpr std::size_t kMostWaiting = 4 * kFan;

  bool visitLeaves(std::span<const std::uint32_t> places) const {
    for (const std::uint32_t place : places) {
      const Leaf& leaf = m_tree.m_leaves[place];
      const Leaf::Cells cells = leaf.cellsOf(m_area);
      for (std::uint32_t found = leaf.meeting(cells); found != 0; found &= found - 1) {
        const std::size_t k = firstBit(found);
        if (!m_report(m_context, leaf.names[k], leaf.surelyMeets(cells, k))) return false;
      }
    }
    return true;
  }

  const BoxTree& m_tree;
  const Box m_area;
  const Report m_report;
  void* const m_context;
};

bool BoxTree::walk(const Box& area, Report report, void* context) const {
  static constexpr std::uint32_t kRoot = 0;
  if (isEmpty() || hasNan(area)) return true;
  return Walk(*this, area, report, context).enter(m_levels.size(), {&kRoot, 1});
}

BoxTree::BoxTree(std::span<const Box> boxes) {
  if (boxes.empty()) return;
  std::vector<Box> bounds;
  addLeaves(boxes, bounds);
  while (bounds.size() > 1)
    addLevel(bounds);
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
      const std::size_t i = from + k;
      if (i + kAhead < names.size()) fetch(boxes[names[i + kAhead]]);
      leaf.names[k] = names[i];
      together[k] = boxes[names[i]];
    }
    const std::span<const Box> under(together.data(), size);
    bounds.push_back(boundsOf(under));
    leaf.fill(under, bounds.back());
  }
}

/// Puts a level over what `bounds` holds and leaves the bounds of its nodes there.
void BoxTree::addLevel(std::vector<Box>& bounds) {
  std::vector<Node>& level = m_levels.emplace_back((bounds.size() + kFan - 1) / kFan);
  for (std::size_t i = 0; i < level.size(); ++i) {
    const std::size_t size = std::min(kFan, bounds.size() - i * kFan);
    const std::span<const Box> under(bounds.data() + i * kFan, size);
    const Box around = boundsOf(under);
    level[i].fill(under, around);
    bounds[i] = around;
  }
  bounds.resize(level.size());
}

}  // namespace qdr
