#pragma once

#include "platform/device_surface.h"
#include "platform/internal/span_painter.h"

namespace qdr {

/// Fills closed contours: a pixel is inside when its centre is, a centre on a left or upper edge
/// being in and on a right or lower edge out. Rows outside the clip cost nothing. The spans of a
/// row are disjoint.
void fillPolygons(const DeviceContours& contours, int fillMode, SpanPainter& painter);

}  // namespace qdr
