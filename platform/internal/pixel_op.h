#pragma once

#include "platform/pixel_buffer.h"

namespace qdr {

/// A raster operation with its pen colour: every one of the sixteen is D -> (D & keep) ^ flip.
struct PixelOp {
  Pixel keep = 0;
  Pixel flip = 0xff000000u;

  /// True when the result does not depend on what stood there.
  bool overwrites() const { return keep == 0; }

  /// True when every bit that stood there counts, straight or inverted.
  bool flips() const { return keep == ~Pixel{0}; }

  Pixel operator()(Pixel destination) const { return (destination & keep) ^ flip; }
};

/// The operation of a number 1 to 16 with a pen colour. Bit 2 p + d of the number less one is the
/// result for pen bit p over destination bit d; the top byte of a pixel stays 0xff.
inline PixelOp pixelOp(int rop2, COLORREF color) {
  constexpr int kCopy = 13;
  constexpr Pixel kColorBits = 0x00ffffffu;
  const Pixel pen = pixelOf(color);
  if (rop2 == kCopy) return {0, pen};
  const auto table = static_cast<unsigned>(rop2 - 1);
  const auto bit = [table](unsigned index) { return (table >> index & 1) ? ~Pixel{0} : Pixel{0}; };
  const Pixel flip = (pen & bit(2)) | (~pen & bit(0));
  const Pixel keep = (pen & (bit(2) ^ bit(3))) | (~pen & (bit(0) ^ bit(1)));
  if ((keep & kColorBits) == 0) return {0, flip | ~kColorBits};
  return {keep | ~kColorBits, flip & kColorBits};
}

}  // namespace qdr
