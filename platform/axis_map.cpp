#include "platform/axis_map.h"

namespace qdr {

namespace {

// Products of two 33-bit differences pass 64 bits.
__extension__ using Wide = __int128;

}  // namespace

void AxisMap::setOrigins(LONG window, LONG viewport) {
  m_windowOrigin = window;
  m_viewportOrigin = viewport;
}

void AxisMap::setExtents(LONG window, LONG viewport) {
  m_windowExtent = window;
  m_viewportExtent = viewport;
  const bool identity = window == 0 || viewport == 0;
  const std::int64_t w = identity ? 1 : window;
  const std::int64_t v = identity ? 1 : viewport;
  m_forward = {static_cast<double>(v) / static_cast<double>(w), v, w};
  m_backward = {static_cast<double>(w) / static_cast<double>(v), w, v};
}

LONG AxisMap::scaledExactly(std::int64_t distance, const Scale& scale, LONG origin) {
  Wide top = Wide{distance} * scale.numerator;
  Wide bottom = scale.denominator;
  const bool negative = (top < 0) != (bottom < 0);
  if (top < 0) top = -top;
  if (bottom < 0) bottom = -bottom;
  Wide result = (2 * top + bottom) / (2 * bottom);
  if (negative) result = -result;
  result += origin;
  if (result > INT32_MAX) return INT32_MAX;
  if (result < INT32_MIN) return INT32_MIN;
  return static_cast<LONG>(result);
}

}  // namespace qdr
