#pragma once

#include "platform/device_surface.h"

namespace qdr {

/// Copies pixels onto `target` within `clip`, which lies within the target. Pixels that the source
/// does not have leave the target as it is; source and target may be one buffer, and overlap.
/// False for an operation that is not known.
bool copyImage(PixelBuffer& target, const CRect& clip, const ImageTransfer& transfer);

}  // namespace qdr
