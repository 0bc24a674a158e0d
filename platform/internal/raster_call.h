#pragma once

#include <algorithm>
#include <cmath>

#include "platform/device_surface.h"
#include "platform/internal/coverage_mask.h"
#include "platform/internal/pixel_op.h"

namespace qdr {

/// One drawing call on pixels: where it may paint, and the pixels it has touched where it must not
/// touch any twice.
struct RasterCall {
  PixelBuffer& pixels;
  const CRect& clip;
  CoverageMask* mask = nullptr;

  bool isHidden() const { return clip.left >= clip.right || clip.top >= clip.bottom; }
};

/// A pen of one pixel, whose lines are exact steps.
inline bool isThin(const DeviceStroke& stroke) {
  return !(stroke.width >= 1.5);
}

/// Pen widths in whole pixels, held where every sum of coordinates stays exact.
inline double pixelWidth(const DeviceStroke& stroke) {
  constexpr double kWidest = 4294967296.0;
  return isThin(stroke) ? 1 : std::min(std::round(stroke.width), kWidest);
}

}  // namespace qdr
