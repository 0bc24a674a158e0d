#pragma once

#include "hostcore/drawing_host.h"
#include "platform/device_surface.h"
#include "platform/export.h"

namespace qdr {

/// Draws what the view of a host shows onto a whole surface, background first, without grips. The
/// surface takes over the window of the view; sides of other proportions stretch it, so the view
/// has those of the surface.
QDR_API void drawPage(DrawingHost& host, IDeviceSurface& surface, COLORREF background);

/// Prints a drawing in millimetres onto a surface that says it prints, all in the colour of prints.
/// Refused while a command runs, and for a surface that does not print.
QDR_API HostAnswer print(DrawingHost& host, IDeviceSurface& surface);

}  // namespace qdr
