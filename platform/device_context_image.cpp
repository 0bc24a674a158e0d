#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/device_context.h"

namespace {

// A logical area in device space: normalised, with the directions it was turned in.
struct DeviceArea {
  CRect rect;
  bool flippedX = false;
  bool flippedY = false;
};

int edge(int origin, int extent) {
  return qdr::truncToInt(static_cast<double>(origin) + extent);
}

DeviceArea deviceArea(const CDC& dc, int x, int y, int cx, int cy) {
  DeviceArea area{CRect(x, y, edge(x, cx), edge(y, cy))};
  dc.LPtoDP(&area.rect);
  area.flippedX = area.rect.left > area.rect.right;
  area.flippedY = area.rect.top > area.rect.bottom;
  area.rect.NormalizeRect();
  return area;
}

}  // namespace

bool CDC::BitBlt(int x, int y, int cx, int cy, const CDC* source, int sourceX, int sourceY,
                 std::uint32_t rop) {
  return StretchBlt(x, y, cx, cy, source, sourceX, sourceY, cx, cy, rop);
}

bool CDC::StretchBlt(int x, int y, int cx, int cy, const CDC* source, int sourceX, int sourceY,
                     int sourceCx, int sourceCy, std::uint32_t rop) {
  if (!m_surface) return false;
  const DeviceArea to = deviceArea(*this, x, y, cx, cy);
  const qdr::PixelBuffer* pixels =
      source && source->m_surface ? source->m_surface->pixels() : nullptr;
  const DeviceArea from =
      pixels ? deviceArea(*source, sourceX, sourceY, sourceCx, sourceCy) : DeviceArea();
  return m_surface->drawImage(m_state, {.to = to.rect,
                                        .source = pixels,
                                        .from = from.rect,
                                        .mirrorX = to.flippedX != from.flippedX,
                                        .mirrorY = to.flippedY != from.flippedY,
                                        .rop = rop});
}

namespace {

constexpr int kPaletteSize = 256;

// Finds the nearest of 256 colours, and remembers answers: pictures hold few colours.
class NearestEntry {
 public:
  explicit NearestEntry(const RGBQUAD* palette) : m_palette(palette) {}

  std::uint8_t operator()(qdr::Pixel pixel) {
    Answer& answer = m_answers[(pixel * kSpread) >> (32 - kAnswerBits)];
    if (answer.pixel != pixel) answer = {pixel, search(pixel)};
    return answer.entry;
  }

 private:
  static constexpr int kAnswerBits = 8;
  static constexpr std::uint32_t kSpread = 2654435769u;  // 2^32 over the golden ratio
  struct Answer {
    qdr::Pixel pixel = 0;  // no pixel of a buffer: their top byte is set
    std::uint8_t entry = 0;
  };

  std::uint8_t search(qdr::Pixel pixel) const {
    const int red = static_cast<int>(pixel >> 16 & 0xff);
    const int green = static_cast<int>(pixel >> 8 & 0xff);
    const int blue = static_cast<int>(pixel & 0xff);
    int best = 0;
    int bestDistance = INT32_MAX;
    for (int i = 0; i < kPaletteSize; ++i) {
      const int dr = m_palette[i].rgbRed - red;
      const int dg = m_palette[i].rgbGreen - green;
      const int db = m_palette[i].rgbBlue - blue;
      const int distance = dr * dr + dg * dg + db * db;
      if (distance >= bestDistance) continue;
      best = i;
      bestDistance = distance;
    }
    return static_cast<std::uint8_t>(best);
  }

  const RGBQUAD* m_palette;
  Answer m_answers[1 << kAnswerBits];
};

void writeColorRow(const qdr::Pixel* row, int width, unsigned bytesPerPixel, std::uint8_t* out) {
  for (int x = 0; x < width; ++x, out += bytesPerPixel) {
    out[0] = static_cast<std::uint8_t>(row[x]);
    out[1] = static_cast<std::uint8_t>(row[x] >> 8);
    out[2] = static_cast<std::uint8_t>(row[x] >> 16);
    if (bytesPerPixel == 4) out[3] = 0;
  }
}

}  // namespace

int CDC::GetDIBits(const CBitmap& bitmap, unsigned firstRow, unsigned rowCount, void* bits,
                   const BITMAPINFOHEADER& header, const RGBQUAD* palette) const {
  const qdr::PixelBuffer* pixels = bitmap.pixels().get();
  const unsigned depth = header.biBitCount;
  if (!pixels || !bits || (depth != 8 && depth != 24 && depth != 32)) return 0;
  if (depth == 8 && !palette) return 0;
  const auto height = static_cast<unsigned>(pixels->height());
  if (firstRow >= height || header.biWidth != pixels->width()) return 0;

  const unsigned rows = std::min(rowCount, height - firstRow);
  const int width = pixels->width();
  const std::size_t rowBytes = (static_cast<std::size_t>(width) * depth + 31) / 32 * 4;
  auto* out = static_cast<std::uint8_t*>(bits);
  NearestEntry nearest(palette);
  for (unsigned i = 0; i < rows; ++i, out += rowBytes) {
    const unsigned line = firstRow + i;
    const qdr::Pixel* row =
        pixels->row(static_cast<int>(header.biHeight < 0 ? line : height - 1 - line));
    std::memset(out, 0, rowBytes);
    if (depth == 8) {
      for (int x = 0; x < width; ++x)
        out[x] = nearest(row[x]);
    } else {
      writeColorRow(row, width, depth / 8, out);
    }
  }
  return static_cast<int>(rows);
}
