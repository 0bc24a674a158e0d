#pragma once

#include <algorithm>
#include <cmath>

#include "platform/device_surface.h"
#include "platform/raster/coverage_mask.h"
#include "platform/raster/pixel_op.h"

namespace qdr {

/// One drawing call on pixels: where it may paint, and the pixels it has touched where it must not
/// touch any twice.
struct RasterCall {
  PixelBuffer& pixels;
  CRect clip;
  CoverageMask* mask = nullptr;
};

/// Pen widths in whole pixels, held where every sum of coordinates stays exact.
inline double pixelWidth(const DeviceStroke& stroke) {
  constexpr double kWidest = 4294967296.0;
  const double width = std::round(stroke.width);
  return width > 1 ? std::min(width, kWidest) : 1;
}

}  // namespace qdr
