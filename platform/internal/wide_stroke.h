#pragma once

#include <cstddef>
#include <vector>

#include "platform/internal/raster_call.h"

namespace qdr {

struct StrokePoint {
  double x = 0;
  double y = 0;
};

/// Connected points of a wide stroke; `phase` is the dash length walked before the first point,
/// `unitsPerSegment` that of every segment where it is not the distance of its ends (chords).
struct WidePath {
  const StrokePoint* points = nullptr;
  std::size_t count = 0;
  bool closed = false;
  double phase = 0;
  double unitsPerSegment = 0;
};

/// Strokes with a pen of two or more pixels, with the caps and joins of its style; each dash is a
/// stroke of its own. A path of no length is a dot under round and square caps.
void strokeWidePath(const RasterCall& call, const DeviceStroke& stroke, PixelOp op,
                    const WidePath& path);

}  // namespace qdr
