#include "platform/internal/span_painter.h"

namespace qdr {

namespace {

// Bit x of row y, both modulo 8, is set where the hatch has ink.
constexpr std::uint8_t kHatches[6][8] = {
    {0x00, 0x00, 0x00, 0x00, 0xff, 0x00, 0x00, 0x00},  // horizontal
    {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10},  // vertical
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},  // falling to the right
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},  // rising to the right
    {0x10, 0x10, 0x10, 0x10, 0xff, 0x10, 0x10, 0x10},  // cross
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},  // diagonal cross
};

}  // namespace

void SpanPainter::setHatch(int hatch, const PixelOp* gaps) {
  m_hatched = true;
  m_hatch = std::clamp(hatch, HS_HORIZONTAL, HS_DIAGCROSS);
  m_gaps = gaps;
}

void SpanPainter::paintSlowly(Pixel* row, int first, int last, int y) const {
  const std::uint8_t ink = m_hatched ? kHatches[m_hatch][y & 7] : 0xff;
  const auto rowOffset = static_cast<std::size_t>(row - m_pixels.row(0));
  for (int x = first; x <= last; ++x) {
    const std::size_t offset = rowOffset + static_cast<std::size_t>(x);
    // Overlapping pieces of a wide stroke pass over what earlier ones have painted.
    if (const int claimed = m_mask ? m_mask->claimedAhead(offset) : 0) {
      x += std::min(claimed, last - x + 1) - 1;
      continue;
    }
    const bool isInk = ink >> (x & 7) & 1;
    if (!isInk && !m_gaps) continue;
    if (m_mask && !m_mask->claim(offset)) continue;
    const PixelOp& op = isInk ? m_op : *m_gaps;
    row[x] = op(row[x]);
  }
}

}  // namespace qdr
