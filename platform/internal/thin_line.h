#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/pixel_buffer.h"
#include "platform/points.h"

namespace qdr {

/// Half-open range of steps along a line.
struct StepRange {
  std::int64_t first = 0;
  std::int64_t last = 0;

  bool isEmpty() const { return first >= last; }
};

/// A thin line as steps along its longer axis: step i lies i pixels along that axis, and across at
/// the nearest pixel, a tie going to the smaller coordinate. So the line back has the same pixels,
/// and a clipped line has exactly those of the whole one that lie inside (after Bresenham,
/// "Algorithm for computer control of a digital plotter", 1965).
///
/// The pixel across at step i is floor((2 i rise + length + bias) / (2 length)), where bias is -1
/// if the line goes to larger coordinates across, else 0; it decides the ties.
class ThinLine {
  __extension__ using UInt128 = unsigned __int128;

 public:
  // Directions are random in a drawing: masks select where a jump would be mispredicted.
  ThinLine(CPoint from, CPoint to) : m_from(from) {
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    const std::int64_t left = dx >> 63;
    const std::int64_t up = dy >> 63;
    const std::int64_t width = (dx ^ left) - left;
    const std::int64_t height = (dy ^ up) - up;
    m_right = left | 1;
    m_down = up | 1;
    m_steep = (width - height) >> 63;
    const std::int64_t excess = (height - width) & m_steep;
    m_length = width + excess;
    m_rise = height - excess;
  }

  /// Steps from start to end; step `length()` is the end pixel itself.
  std::int64_t length() const { return m_length; }

  /// Steps of [0, end) whose pixels lie in `clip`.
  StepRange inside(const CRect& clip, std::int64_t end) const;

  /// Pixels of steps that follow one another, as offsets from the first pixel of row 0: each step
  /// goes along and, when the sum of the height and the slope passes 2^64, also across. The sums
  /// stand for the fraction of the pixel across. They decide exactly for kLongest steps: fractions
  /// of a line lie 1 / (2 length) apart, a walk starts midway between two, and the rounding of so
  /// many steps stays below half of that for every length of 32 bits.
  struct Walk {
    static constexpr std::int64_t kLongest = 1 << 15;

    std::ptrdiff_t offset = 0;
    std::ptrdiff_t along = 0;
    std::ptrdiff_t across = 0;
    std::uint64_t height = 0;
    std::uint64_t slope = 0;

    /// The walk so many steps further on.
    Walk after(std::int64_t count) const {
      const auto sum = UInt128{slope} * static_cast<std::uint64_t>(count) + height;
      Walk walk = *this;
      walk.offset += count * along + static_cast<std::ptrdiff_t>(sum >> 64) * across;
      walk.height = static_cast<std::uint64_t>(sum);
      return walk;
    }
  };

  /// The walk from the start of a line that has a length, or from `step`; both must lie inside a
  /// buffer of that stride.
  Walk walkFromStart(int stride) const {
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    const double perLength = unit();
    const std::ptrdiff_t row = m_down * stride;
    const std::ptrdiff_t across = selected(row, m_right);
    const auto back = static_cast<std::uint64_t>(across >> 63);
    const std::uint64_t middle = fixedPoint(perLength * 0.25);
    return {.offset = std::ptrdiff_t{m_from.y} * stride + m_from.x,
            .along = selected(m_right, row),
            .across = across,
            .height = kHalf - ((middle ^ back) - back),
            .slope = fixedPoint(static_cast<double>(m_rise) * perLength)};
  }
  Walk walkFrom(std::int64_t step, int stride) const;

 private:
  template <class Wide>
  StepRange insideAcross(std::int64_t low, std::int64_t high, StepRange range) const;

  std::int64_t selected(std::int64_t level, std::int64_t steep) const {
    return level ^ ((level ^ steep) & m_steep);
  }

  std::int64_t alongSign() const { return selected(m_right, m_down); }
  std::int64_t acrossSign() const { return selected(m_down, m_right); }

  // 2^63 over the length, so much less that the slope of a diagonal stays below 2^64.
  double unit() const {
    return m_length < kTabled ? kUnits[static_cast<std::size_t>(m_length)] : unitOf(m_length);
  }

  static constexpr double unitOf(std::int64_t length) {
    constexpr double kAlmostHalf = 9223372036854771712.0;
    return kAlmostHalf / static_cast<double>(length);
  }

  // Short lines wait longer for a division than for memory.
  static constexpr std::int64_t kTabled = 128;
  static const std::array<double, kTabled> kUnits;

  // Twice so many units, which must be below 2^63.
  static std::uint64_t fixedPoint(double units) {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(units)) << 1;
  }

  CPoint m_from;
  std::int64_t m_length = 0;  // steps along the longer axis
  std::int64_t m_rise = 0;    // size of the other side
  std::int64_t m_right = 1;   // sign of the way along x
  std::int64_t m_down = 1;    // sign of the way along y
  std::int64_t m_steep = 0;   // -1 where the longer axis is y, else 0
};

/// Paints `count` pixels of a walk. `Paint` takes an offset.
template <class Paint>
[[gnu::always_inline]] inline void paintWalk(ThinLine::Walk walk, std::int64_t count,
                                             const Paint& paint) {
  // Counting up: the end is known as soon as the count is, not one step after the other.
  for (std::int64_t step = 0; step < count; ++step) {
    paint(walk.offset);
    walk.height += walk.slope;
    const bool goesAcross = walk.height < walk.slope;
    walk.offset += walk.along + (walk.across & -std::ptrdiff_t{goesAcross});
  }
}

/// Paints the steps of a range, all inside a buffer of that stride.
template <class Paint>
void paintSteps(const ThinLine& line, StepRange range, int stride, const Paint& paint) {
  if (range.first == 0 && range.last <= ThinLine::Walk::kLongest && line.length() > 0)
    return paintWalk(line.walkFromStart(stride), range.last, paint);
  for (; range.first < range.last; range.first += ThinLine::Walk::kLongest)
    paintWalk(line.walkFrom(range.first, stride),
              std::min(ThinLine::Walk::kLongest, range.last - range.first), paint);
}

}  // namespace qdr
