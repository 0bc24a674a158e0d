#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/device_context.h"
#include "platform/software_raster.h"

/// A small picture under a device context. Pixels read as text: '.' black, '#' white, and the
/// letters r, g, b for the pure colours, '?' for anything else.
class Canvas {
 public:
  Canvas(int width, int height)
      : pixels(qdr::PixelBuffer::create(width, height)), raster(pixels), dc(&raster) {}

  std::vector<std::string> rows() const {
    std::vector<std::string> text;
    for (int y = 0; y < pixels->height(); ++y) {
      std::string line;
      for (int x = 0; x < pixels->width(); ++x)
        line += letter(pixels->row(y)[x]);
      text.push_back(line);
    }
    return text;
  }

  std::vector<qdr::Pixel> copy() const {
    std::vector<qdr::Pixel> all;
    for (int y = 0; y < pixels->height(); ++y)
      all.insert(all.end(), pixels->row(y), pixels->row(y) + pixels->width());
    return all;
  }

  int count(COLORREF color) const {
    int found = 0;
    for (const qdr::Pixel pixel : copy())
      found += pixel == qdr::pixelOf(color);
    return found;
  }

  std::shared_ptr<qdr::PixelBuffer> pixels;
  qdr::SoftwareRaster raster;
  CDC dc;

 private:
  static char letter(qdr::Pixel pixel) {
    switch (pixel & 0xffffff) {
      case 0x000000:
        return '.';
      case 0xffffff:
        return '#';
      case 0xff0000:
        return 'r';
      case 0x00ff00:
        return 'g';
      case 0x0000ff:
        return 'b';
      default:
        return '?';
    }
  }
};

inline constexpr COLORREF kWhite = 0xffffff;
inline constexpr COLORREF kRed = 0x0000ff;
inline constexpr COLORREF kGreen = 0x00ff00;
inline constexpr COLORREF kBlue = 0xff0000;
