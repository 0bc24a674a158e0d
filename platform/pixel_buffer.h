#pragma once

#include <cstdint>
#include <memory>

#include "platform/export.h"
#include "platform/points.h"

namespace qdr {

/// One pixel as 0xffRRGGBB; the top byte is always 0xff, so that image toolkits take the memory
/// as it is.
using Pixel = std::uint32_t;

/// The pixel of a colour 0x00BBGGRR; the top byte of the colour is ignored.
inline Pixel pixelOf(COLORREF color) {
  return 0xff000000u | ((color & 0xff) << 16) | (color & 0xff00) | ((color >> 16) & 0xff);
}

/// The colour 0x00BBGGRR of a pixel.
inline COLORREF colorOf(Pixel pixel) {
  return ((pixel & 0xff) << 16) | (pixel & 0xff00) | ((pixel >> 16) & 0xff);
}

/// A rectangle of pixels, rows from top to bottom: memory of its own or memory lent by a host.
class QDR_API PixelBuffer {
 public:
  /// Black pixels. Null when a side is not above 0, when the area passes 2^28 pixels, or when
  /// there is no memory.
  static std::shared_ptr<PixelBuffer> create(int width, int height);

  /// A view of memory that outlives the buffer; `stride` is the distance of rows in pixels.
  static std::shared_ptr<PixelBuffer> borrow(Pixel* pixels, int width, int height, int stride);

  int width() const { return m_width; }
  int height() const { return m_height; }
  int stride() const { return m_stride; }
  CRect bounds() const { return {0, 0, m_width, m_height}; }

  /// First pixel of row `y`, which must lie within the height.
  Pixel* row(int y) { return m_pixels + std::ptrdiff_t{y} * m_stride; }
  const Pixel* row(int y) const { return m_pixels + std::ptrdiff_t{y} * m_stride; }

 private:
  PixelBuffer() = default;

  std::unique_ptr<Pixel[]> m_storage;
  Pixel* m_pixels = nullptr;
  int m_width = 0;
  int m_height = 0;
  int m_stride = 0;
};

}  // namespace qdr
