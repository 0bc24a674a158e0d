#include "entities/drawn_box.h"

#include <algorithm>
#include <cmath>

#include "database/entity_classes.h"
#include "entities/display_units.h"
#include "entities/internal/pen_resolution.h"
#include "entities/rect.h"

namespace {

// Truncation moves a coordinate by less than one logical unit; a radius or a middle formed from
// truncated numbers adds another one.
constexpr double kTruncation = 2.0;

// A pen of one pixel, and half a pixel of rounding on either end of the way to the device.
constexpr double kThinPen = 2.0;

// Default width of a pen in logical units, for entities that take the width in use.
constexpr int kWidthInUse = 1;

}  // namespace

namespace qdr {

DrawnBox drawnBoxOfOutRect(CQdrDbEntity& entity) {
  const CQdrDbRect rect = entity.GetOutRect();
  const int width = std::max(penWidthOf(entity, kWidthInUse), 0);
  // A whole width, since joins reach farther than half of it.
  const double margin = toWorld(kTruncation + width);
  const CQdrGePoint2d a = rect.LeftBottom();
  const CQdrGePoint2d b = rect.RightTop();
  DrawnBox box{.minX = std::min(a.x, b.x) - margin,
               .minY = std::min(a.y, b.y) - margin,
               .maxX = std::max(a.x, b.x) + margin,
               .maxY = std::max(a.y, b.y) + margin,
               .pixels = kThinPen};
  box.known = std::isfinite(box.minX) && std::isfinite(box.minY) && std::isfinite(box.maxX) &&
              std::isfinite(box.maxY);
  return box;
}

DrawnBox drawnBox(CQdrDbEntity& entity) {
  const EntityClass* row = entityClass(entity.classType());
  return row && row->drawnBox ? row->drawnBox(entity) : drawnBoxOfOutRect(entity);
}

}  // namespace qdr
