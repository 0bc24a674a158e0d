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
  ThinLine(CPoint from, CPoint to);

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

  /// The walk from `step`, which must lie inside a buffer of that stride.
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

/// Paints `count` pixels of a walk and leaves it behind the last. `Paint` takes an offset.
template <class Paint>
inline void paintSteps(ThinLine::Walk& walk, std::int64_t count, const Paint& paint) {
  std::ptrdiff_t offset = walk.offset;
  std::int64_t error = walk.error;
  for (; count > 0; --count) {
    paint(offset);
    error += walk.gain;
    const std::int64_t due = ~(error >> 63);  // all ones when a step across is due
    offset += walk.along + (walk.across & due);
    error -= walk.loss & due;
  }
  walk.offset = offset;
  walk.error = error;
}

}  // namespace qdr
