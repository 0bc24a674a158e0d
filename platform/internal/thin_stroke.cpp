#include "platform/internal/thin_stroke.h"

#include <algorithm>
#include <cmath>

#include "platform/internal/dash_cursor.h"
#include "platform/internal/rounding.h"
#include "platform/internal/span_painter.h"
#include "platform/internal/thin_line.h"

namespace qdr {

namespace {

// The ways a pixel is painted; the loops are compiled once for each.
struct CopyPaint {
  Pixel* base;
  Pixel value;
  void operator()(std::ptrdiff_t offset) const { base[offset] = value; }
};

struct FlipPaint {
  Pixel* base;
  Pixel bits;
  void operator()(std::ptrdiff_t offset) const { base[offset] ^= bits; }
};

struct CombinePaint {
  Pixel* base;
  PixelOp op;
  void operator()(std::ptrdiff_t offset) const { base[offset] = op(base[offset]); }
};

struct MaskedPaint {
  Pixel* base;
  PixelOp op;
  CoverageMask* mask;
  void operator()(std::ptrdiff_t offset) const {
    if (mask->claim(static_cast<std::size_t>(offset))) base[offset] = op(base[offset]);
  }
};

bool boxMisses(CPoint a, CPoint b, const CRect& clip) {
  return std::max(a.x, b.x) < clip.left || std::min(a.x, b.x) >= clip.right ||
         std::max(a.y, b.y) < clip.top || std::min(a.y, b.y) >= clip.bottom;
}

bool isWithin(CPoint p, const CRect& clip) {
  return p.x >= clip.left && p.x < clip.right && p.y >= clip.top && p.y < clip.bottom;
}

template <class Paint>
class ThinStroker {
 public:
  ThinStroker(const RasterCall& call, PixelOp op, const Paint& paint)
      : m_call(call), m_clip(call.clip), m_stride(call.pixels.stride()), m_op(op), m_paint(paint) {}

  void solid(CPoint a, CPoint b, bool withEnd) {
    const ThinLine line(a, b);
    const std::int64_t end = line.length() + (withEnd ? 1 : 0);
    if (isWithin(a, m_clip) && isWithin(b, m_clip)) {
      if (a.y == b.y) return level(a, b, withEnd);
      return paintSteps(line, {0, end}, m_stride, m_paint);
    }
    if (boxMisses(a, b, m_clip)) return;
    if (a.y == b.y) return level(a, b, withEnd);
    paintSteps(line, line.inside(m_clip, end), m_stride, m_paint);
  }

  // Draws the lengths that are on; the cursor stays at the start of the segment.
  void dashed(CPoint a, CPoint b, bool withEnd, double units, const DashCursor& cursor) {
    const ThinLine line(a, b);
    const std::int64_t end = line.length() + (withEnd ? 1 : 0);
    const StepRange range =
        boxMisses(a, b, m_clip) ? StepRange{} : line.inside(m_clip, std::max<std::int64_t>(end, 0));
    if (!range.isEmpty()) {
      const double unitsPerStep =
          line.length() > 0 ? units / static_cast<double>(line.length()) : 1.0;
      dashedRange(line, range, unitsPerStep, cursor);
    }
  }

 private:
  void level(CPoint a, CPoint b, bool withEnd) {
    std::int64_t first = std::min(a.x, b.x);
    std::int64_t last = std::max(a.x, b.x);
    if (!withEnd) (a.x <= b.x ? last : first) += a.x <= b.x ? -1 : 1;
    SpanPainter(m_call.pixels, m_clip, m_op, m_call.mask).span(first, last, a.y);
  }

  void dashedRange(const ThinLine& line, StepRange range, double unitsPerStep, DashCursor cursor) {
    // The part of a step by which sums of lengths may miss a whole step through rounding.
    constexpr double kStepSlack = 1.0 / (1 << 20);
    // One step ahead of the range: a dot that begins between two steps shows at the second.
    std::int64_t step = std::max<std::int64_t>(range.first - 1, 0);
    double reached = static_cast<double>(step) * unitsPerStep;
    cursor.advance(reached);
    const auto last = static_cast<double>(range.last);
    const double stepsPerUnit = 1 / unitsPerStep;
    const ThinLine::Walk walk = line.walkFrom(range.first, m_stride);
    std::int64_t drawnTo = range.first;
    while (step < range.last) {
      reached += cursor.left();
      const double end = std::min(last, reached * stepsPerUnit - kStepSlack);
      const std::int64_t next = std::max(step, ceilToInt(end));
      if (cursor.isOn()) {
        const std::int64_t from = std::max(step, drawnTo);
        const std::int64_t to = std::min(range.last, std::max(next, step + 1));
        if (to - range.first > ThinLine::Walk::kLongest) {
          paintSteps(line, {from, to}, m_stride, m_paint);
        } else if (from < to) {
          paintWalk(walk.after(from - range.first), to - from, m_paint);
        }
        drawnTo = std::max(drawnTo, to);
      }
      step = next;
      cursor.next();
    }
  }

  const RasterCall& m_call;
  const CRect& m_clip;
  int m_stride;
  PixelOp m_op;
  Paint m_paint;
};

template <class Paint>
void strokeSolid(ThinStroker<Paint>& stroker, const ThinPath& path) {
  for (std::size_t i = 1; i < path.count; ++i) {
    const bool isLast = i + 1 == path.count;
    stroker.solid(path.points[i - 1], path.points[i], isLast && path.withEnd && !path.closed);
  }
  if (path.closed) stroker.solid(path.points[path.count - 1], path.points[0], false);
}

template <class Paint>
void strokeDashed(ThinStroker<Paint>& stroker, const DeviceStroke& stroke, const ThinPath& path) {
  DashCursor cursor(stroke.dashes);
  cursor.advance(path.phase);
  const std::size_t segments = path.closed ? path.count : path.count - 1;
  for (std::size_t i = 0; i < segments; ++i) {
    const CPoint a = path.points[i];
    const CPoint b = path.points[i + 1 == path.count ? 0 : i + 1];
    const double dx = (static_cast<double>(b.x) - a.x) * stroke.unitsPerPixelX;
    const double dy = (static_cast<double>(b.y) - a.y) * stroke.unitsPerPixelY;
    const double units = std::sqrt(dx * dx + dy * dy);
    const bool isLast = i + 1 == segments;
    stroker.dashed(a, b, path.withEnd && !path.closed && isLast, units, cursor);
    if (!isLast) cursor.advance(units);
  }
}

template <class Paint>
void strokeWith(const RasterCall& call, const DeviceStroke& stroke, PixelOp op,
                const ThinPath& path, const Paint& paint) {
  ThinStroker<Paint> stroker(call, op, paint);
  const double coarsest = std::max(stroke.unitsPerPixelX, stroke.unitsPerPixelY);
  if (stroke.dashes.isSolid() || isTooFine(stroke.dashes, coarsest)) {
    strokeSolid(stroker, path);
  } else {
    strokeDashed(stroker, stroke, path);
  }
}

}  // namespace

void strokeThinPath(const RasterCall& call, const DeviceStroke& stroke, PixelOp op,
                    const ThinPath& path) {
  if (path.count < 2) return;
  Pixel* base = call.pixels.row(0);
  if (call.mask) {
    strokeWith(call, stroke, op, path, MaskedPaint{base, op, call.mask});
  } else if (op.overwrites()) {
    strokeWith(call, stroke, op, path, CopyPaint{base, op.flip});
  } else {
    strokeWith(call, stroke, op, path, CombinePaint{base, op});
  }
}

void strokeThinLine(const RasterCall& call, PixelOp op, CPoint from, CPoint to) {
  Pixel* base = call.pixels.row(0);
  if (op.overwrites())
    return ThinStroker(call, op, CopyPaint{base, op.flip}).solid(from, to, false);
  ThinStroker(call, op, CombinePaint{base, op}).solid(from, to, false);
}

namespace {

// Level lines are spans, and the longest take several walks.
[[gnu::noinline]] void strokeOddInnerLine(PixelBuffer& pixels, PixelOp op, CPoint from, CPoint to) {
  const CRect all = pixels.bounds();
  strokeThinLine({pixels, all}, op, from, to);
}

}  // namespace

void strokeInnerLine(PixelBuffer& pixels, PixelOp op, int x1, int y1, int x2, int y2) {
  const ThinLine line({x1, y1}, {x2, y2});
  const std::int64_t length = line.length();
  if (y1 == y2 || length > ThinLine::Walk::kLongest) [[unlikely]]
    return strokeOddInnerLine(pixels, op, {x1, y1}, {x2, y2});
  Pixel* base = pixels.row(0);
  const ThinLine::Walk walk = line.walkFromStart(pixels.stride());
  if (op.overwrites()) {
    paintWalk(walk, length, CopyPaint{base, op.flip});
  } else if (op.flips()) {
    paintWalk(walk, length, FlipPaint{base, op.flip});
  } else {
    paintWalk(walk, length, CombinePaint{base, op});
  }
}

}  // namespace qdr
