#pragma once

#include <cstddef>

#include "platform/internal/raster_call.h"

namespace qdr {

/// Connected points of a thin stroke. Segments leave out their last pixel, so a closed path has
/// each vertex once; `withEnd` adds the last pixel of an open one. `phase` is the dash length
/// walked before the first point.
struct ThinPath {
  const CPoint* points = nullptr;
  std::size_t count = 0;
  bool closed = false;
  bool withEnd = false;
  double phase = 0;
};

/// Strokes with the one-pixel line, dashed where the stroke has a pattern. A length that is on
/// shows at least one pixel.
void strokeThinPath(const RasterCall& call, const DeviceStroke& stroke, PixelOp op,
                    const ThinPath& path);

/// The solid line without its last pixel, by itself.
void strokeThinLine(const RasterCall& call, PixelOp op, CPoint from, CPoint to);

/// The same with both ends inside the clip: what a drawing consists of. The arguments stay in
/// registers.
void strokeInnerLine(PixelBuffer& pixels, PixelOp op, int x1, int y1, int x2, int y2);

}  // namespace qdr
