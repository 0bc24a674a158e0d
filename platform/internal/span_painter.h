#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/device_surface.h"
#include "platform/internal/coverage_mask.h"
#include "platform/internal/pixel_op.h"

namespace qdr {

/// Paints horizontal runs of pixels of one call: clipped, by one operation, each pixel once when a
/// mask is given.
class SpanPainter {
 public:
  /// `clip` lies within the pixels. With a null mask pixels may be painted again.
  SpanPainter(PixelBuffer& pixels, const CRect& clip, PixelOp op, CoverageMask* mask)
      : m_pixels(pixels), m_clip(clip), m_op(op), m_mask(mask) {}

  /// Makes the painter lay an 8 by 8 hatch; gaps take `gaps`, or nothing when that is null.
  void setHatch(int hatch, const PixelOp* gaps);

  const CRect& clip() const { return m_clip; }

  /// Pixels first to last of row y, both included; any integers.
  void span(std::int64_t first, std::int64_t last, std::int64_t y) {
    if (y < m_clip.top || y >= m_clip.bottom) return;
    first = std::max<std::int64_t>(first, m_clip.left);
    last = std::min<std::int64_t>(last, m_clip.right - 1);
    if (first > last) return;
    Pixel* row = m_pixels.row(static_cast<int>(y));
    if (!m_mask && !m_hatched) {
      paintPlain(row + first, row + last + 1);
    } else {
      paintSlowly(row, static_cast<int>(first), static_cast<int>(last), static_cast<int>(y));
    }
  }

 private:
  void paintPlain(Pixel* from, Pixel* to) const {
    if (m_op.overwrites()) {
      std::fill(from, to, m_op.flip);
    } else {
      for (; from != to; ++from)
        *from = m_op(*from);
    }
  }
  void paintSlowly(Pixel* row, int first, int last, int y) const;

  PixelBuffer& m_pixels;
  CRect m_clip;
  PixelOp m_op;
  CoverageMask* m_mask;
  bool m_hatched = false;
  int m_hatch = 0;
  const PixelOp* m_gaps = nullptr;
};

}  // namespace qdr
