#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

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
class ThinLine {
 public:
  ThinLine(CPoint from, CPoint to) : m_from(from) {
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    const std::int64_t width = dx < 0 ? -dx : dx;
    const std::int64_t height = dy < 0 ? -dy : dy;
    m_steep = height > width;
    m_length = m_steep ? height : width;
    m_rise = m_steep ? width : height;
    m_alongSign = (m_steep ? dy : dx) < 0 ? -1 : 1;
    m_acrossSign = (m_steep ? dx : dy) < 0 ? -1 : 1;
    m_bias = m_acrossSign > 0 ? -1 : 0;
  }

  /// Steps from start to end; step `length()` is the end pixel itself.
  std::int64_t length() const { return m_length; }

  /// Steps of [0, end) whose pixels lie in `clip`.
  StepRange inside(const CRect& clip, std::int64_t end) const;

  /// Where stepping begins in memory, and how it goes on.
  struct Walk {
    std::ptrdiff_t offset = 0;  ///< of the first pixel from the first of row 0
    std::ptrdiff_t along = 0;
    std::ptrdiff_t across = 0;
    std::int64_t error = 0;  ///< below 0; a step across is due when it is not
    std::int64_t gain = 0;
    std::int64_t loss = 0;
  };

  /// The walk from the start, or from `step`; both must lie inside a buffer of that stride.
  Walk walkFromStart(int stride) const {
    Walk walk;
    walk.offset = std::ptrdiff_t{m_from.y} * stride + m_from.x;
    walk.along = m_steep ? std::ptrdiff_t{m_alongSign} * stride : m_alongSign;
    walk.across = m_steep ? m_acrossSign : std::ptrdiff_t{m_acrossSign} * stride;
    walk.error = m_bias - m_length;
    walk.gain = 2 * m_rise;
    walk.loss = 2 * m_length;
    return walk;
  }
  Walk walkFrom(std::int64_t step, int stride) const;

 private:
  template <class Wide>
  StepRange insideAcross(std::int64_t low, std::int64_t high, StepRange range) const;

  CPoint m_from;
  std::int64_t m_length = 0;  // steps along the longer axis
  std::int64_t m_rise = 0;    // size of the other side
  int m_alongSign = 1;
  int m_acrossSign = 1;
  bool m_steep = false;     // longer axis is y
  std::int64_t m_bias = 0;  // -1 where a tie stays, 0 where it moves across
};

/// Paints `count` pixels of a walk and leaves it behind the last. `Paint` takes an offset. Both
/// outcomes of a step are formed before one is chosen, which keeps the chain of a step short.
template <class Paint>
[[gnu::always_inline]] inline void paintSteps(ThinLine::Walk& walk, std::int64_t count,
                                              const Paint& paint) {
  const std::int64_t gain = walk.gain;
  const std::int64_t gainAcross = walk.gain - walk.loss;
  const std::ptrdiff_t along = walk.along;
  const std::ptrdiff_t alongAcross = walk.along + walk.across;
  std::ptrdiff_t offset = walk.offset;
  std::int64_t error = walk.error;
  for (; count > 0; --count) {
    paint(offset);
    const std::int64_t straight = error + gain;
    const std::int64_t turned = error + gainAcross;
    offset += straight >= 0 ? alongAcross : along;
    error = straight >= 0 ? turned : straight;
  }
  walk.offset = offset;
  walk.error = error;
}

}  // namespace qdr
