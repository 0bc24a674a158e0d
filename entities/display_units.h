#pragma once

#include <cstdint>

#include "geometry/point2d.h"
#include "platform/export.h"
#include "platform/points.h"

/// Logical units of a device context per world unit: a logical unit is a hundredth of a drawing
/// unit. The host may change it before anything is drawn.
extern QDR_API double _dDispScale;

/// Number of chords in which a full turn is drawn.
extern QDR_API std::uint16_t _wArcRes;

namespace qdr {

// The one conversion between world coordinates and logical ones; x and y go separately.

inline LONG toLogical(double world) {
  return truncToInt(world * _dDispScale);
}

inline CPoint toLogical(const CQdrGePoint2d& worldPoint) {
  return {toLogical(worldPoint.x), toLogical(worldPoint.y)};
}

inline double toWorld(double logical) {
  return logical / _dDispScale;
}

inline CQdrGePoint2d toWorld(const POINT& logicalPoint) {
  return {toWorld(logicalPoint.x), toWorld(logicalPoint.y)};
}

}  // namespace qdr
