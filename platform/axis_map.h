#pragma once

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

  /// Device units per logical unit, with sign; never 0.
  double scale() const { return m_forward.ratio; }

 private:
  struct Scale {
    double ratio = 1.0;
    std::int64_t numerator = 1;
    std::int64_t denominator = 1;
  };

  // The product in doubles decides unless it lies so near a half that its rounding error, below
  // 2e-6 for products under 2^32, could turn the decision. Adding and taking away 1.5 * 2^52
  // rounds to the nearest integer.
  static LONG scaled(std::int64_t distance, const Scale& scale, LONG origin) {
    constexpr double kRounder = 6755399441055744.0;
    constexpr double kSure = 0.5 - 1.0 / 65536;
    const double exact = static_cast<double>(distance) * scale.ratio;
    if (!(std::fabs(exact) < 4294967296.0)) return scaledExactly(distance, scale, origin);
    const double rounded = (exact + kRounder) - kRounder;
    const std::int64_t result = static_cast<std::int64_t>(rounded) + origin;
    if (std::fabs(exact - rounded) < kSure && result == static_cast<LONG>(result))
      return static_cast<LONG>(result);
    return scaledExactly(distance, scale, origin);
  }

  static LONG scaledExactly(std::int64_t distance, const Scale& scale, LONG origin);

  LONG m_windowOrigin = 0;
  LONG m_viewportOrigin = 0;
  LONG m_windowExtent = 1;
  LONG m_viewportExtent = 1;
  Scale m_forward;
  Scale m_backward;
};

}  // namespace qdr
