#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/export.h"
#include "platform/points.h"

namespace qdr {

/// The mapping of one axis between logical and device integers, exact at every argument:
///   device  = round((logical - windowOrigin) * viewportExtent / windowExtent) + viewportOrigin
///   logical = round((device - viewportOrigin) * windowExtent / viewportExtent) + windowOrigin
/// Halves round away from zero, extents may be negative, an extent of 0 stands for the identity
/// scale, and results beyond 32 bits take the nearest limit.
class QDR_API AxisMap {
 public:
  LONG windowOrigin() const { return m_windowOrigin; }
  LONG viewportOrigin() const { return m_viewportOrigin; }
  LONG windowExtent() const { return m_windowExtent; }
  LONG viewportExtent() const { return m_viewportExtent; }

  void setOrigins(LONG window, LONG viewport);
  void setExtents(LONG window, LONG viewport);

  LONG toDevice(LONG logical) const {
    return scaled(std::int64_t{logical} - m_windowOrigin, m_forward, m_viewportOrigin);
  }

  LONG toLogical(LONG device) const {
    return scaled(std::int64_t{device} - m_viewportOrigin, m_backward, m_windowOrigin);
  }

  // Points and lines go by the shortest way there is from integer to integer: lines of a drawing
  // are so short that the wait for a mapped end would be most of their cost.

  /// Both coordinates of a point.
  static CPoint toDevice(const AxisMap& mapX, const AxisMap& mapY, LONG x, LONG y) {
    const Wide fixedX = mapX.fixedDevice(x);
    const Wide fixedY = mapY.fixedDevice(y);
    if (isSure(fixedX) && isSure(fixedY)) [[likely]]
      return {whole(fixedX), whole(fixedY)};
    return toDeviceExactly(mapX, mapY, x, y);
  }

  /// Both ends of a line.
  struct Ends {
    CPoint from;
    CPoint to;
  };
  static Ends toDevice(const AxisMap& mapX, const AxisMap& mapY, const Ends& logical) {
    const Wide fromX = mapX.fixedDevice(logical.from.x);
    const Wide fromY = mapY.fixedDevice(logical.from.y);
    const Wide toX = mapX.fixedDevice(logical.to.x);
    const Wide toY = mapY.fixedDevice(logical.to.y);
    if (isSure(fromX) && isSure(fromY) && isSure(toX) && isSure(toY)) [[likely]]
      return {{whole(fromX), whole(fromY)}, {whole(toX), whole(toY)}};
    return {toDeviceExactly(mapX, mapY, logical.from.x, logical.from.y),
            toDeviceExactly(mapX, mapY, logical.to.x, logical.to.y)};
  }

  /// Device units per logical unit, with sign; never 0.
  double scale() const { return m_forward.ratio; }

 private:
  // Products of two 33-bit differences pass 64 bits.
  __extension__ using Wide = __int128;

  static constexpr std::uint64_t kMargin = std::uint64_t{1} << 52;

  struct Scale {
    double ratio = 1.0;
    std::int64_t numerator = 1;
    std::int64_t denominator = 1;
  };

  // The product in doubles decides unless it lies so near a half that its rounding error, below
  // 2e-6 for products under 2^32, could turn the decision. Adding and taking away 1.5 * 2^52
  // rounds to the nearest integer.
  static constexpr double kRounder = 6755399441055744.0;
  static constexpr double kSure = 0.5 - 1.0 / 65536;

  // The device coordinate and a half, with 64 bits behind the point.
  Wide fixedDevice(LONG logical) const {
    const Wide start = Wide{m_startTop} << 64 | m_startFraction;
    return Wide{std::int64_t{logical} << m_lift} * m_factor + start;
  }

  // Whether the whole part stays what it is under the error of fixedDevice, and has 32 bits.
  static bool isSure(Wide fixed) {
    const auto fraction = static_cast<std::uint64_t>(fixed);
    const auto top = static_cast<std::int64_t>(fixed >> 64);
    return fraction - kMargin < 0 - 2 * kMargin && top == static_cast<LONG>(top);
  }

  static LONG whole(Wide fixed) { return static_cast<LONG>(fixed >> 64); }

  static LONG scaled(std::int64_t distance, const Scale& scale, LONG origin) {
    const double exact = static_cast<double>(distance) * scale.ratio;
    if (!(std::fabs(exact) < 4294967296.0)) return scaledExactly(distance, scale, origin);
    const double rounded = (exact + kRounder) - kRounder;
    const std::int64_t result = static_cast<std::int64_t>(rounded) + origin;
    if (std::fabs(exact - rounded) < kSure && result == static_cast<LONG>(result))
      return static_cast<LONG>(result);
    return scaledExactly(distance, scale, origin);
  }

  static CPoint toDeviceExactly(const AxisMap& mapX, const AxisMap& mapY, LONG x, LONG y);
  void updateFixed();
  static LONG scaledExactly(std::int64_t distance, const Scale& scale, LONG origin);

  LONG m_windowOrigin = 0;
  LONG m_viewportOrigin = 0;
  LONG m_windowExtent = 1;
  LONG m_viewportExtent = 1;
  // What fixedDevice needs, here for the identity.
  std::int64_t m_startTop = 0;
  std::uint64_t m_startFraction = std::uint64_t{1} << 63;
  std::int64_t m_factor = std::int64_t{1} << 61;
  int m_lift = 3;
  Scale m_forward;
  Scale m_backward;
};

}  // namespace qdr
