#pragma once

#include <string>

#include "platform/pixel_buffer.h"

namespace qdr_tools {

/// Appends the pixels as a PNG document of 8-bit RGB to `bytes`. False when libpng refuses them;
/// `bytes` is then as before and `reason` tells why.
bool encodePng(const qdr::PixelBuffer& pixels, std::string& bytes, std::string& reason);

}  // namespace qdr_tools
