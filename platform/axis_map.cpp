#include "platform/axis_map.h"

#include <cstdlib>

namespace qdr {

void AxisMap::setOrigins(LONG window, LONG viewport) {
  m_windowOrigin = window;
  m_viewportOrigin = viewport;
  updateFixed();
}

void AxisMap::setExtents(LONG window, LONG viewport) {
  m_windowExtent = window;
  m_viewportExtent = viewport;
  const bool identity = window == 0 || viewport == 0;
  const std::int64_t w = identity ? 1 : window;
  const std::int64_t v = identity ? 1 : viewport;
  m_forward = {static_cast<double>(v) / static_cast<double>(w), v, w};
  updateFixed();
  m_backward = {static_cast<double>(w) / static_cast<double>(v), w, v};
}

// A factor is wrong by half a unit at most, so the fixed-point number of any logical coordinate by
// less than the margin. A scale of 2^18 or more is never sure.
void AxisMap::updateFixed() {
  constexpr int kLargestLift = 20;
  m_factor = 0;
  m_startTop = 0;
  m_startFraction = 0;
  m_lift = std::max(0, std::ilogb(m_forward.ratio) + 3);
  if (m_lift > kLargestLift) return;
  const Wide top = Wide{m_forward.numerator} << (64 - m_lift);
  const Wide half = Wide{std::abs(m_forward.denominator)} / 2;
  m_factor = static_cast<std::int64_t>((top < 0 ? top - half : top + half) / m_forward.denominator);
  const Wide start = (Wide{m_viewportOrigin} << 64) + (Wide{1} << 63) -
                     (Wide{m_windowOrigin} << m_lift) * m_factor;
  m_startTop = static_cast<std::int64_t>(start >> 64);
  m_startFraction = static_cast<std::uint64_t>(start);
}

CPoint AxisMap::toDeviceExactly(const AxisMap& mapX, const AxisMap& mapY, LONG x, LONG y) {
  return {mapX.toDevice(x), mapY.toDevice(y)};
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
