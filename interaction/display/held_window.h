#pragma once

#include "platform/points.h"

namespace qdr {

/// A logical window of these sides, held within +-2e9 and within a width and height of 32 bits,
/// about its centre where it has to shrink.
CRect heldWindow(double left, double top, double right, double bottom);

/// The window moved; at the edge of the logical space it stops as a whole and keeps its size.
CRect movedWindow(const CRect& window, double dx, double dy);

}  // namespace qdr
