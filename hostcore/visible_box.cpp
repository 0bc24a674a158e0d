#include "hostcore/visible_box.h"

#include <algorithm>
#include <vector>

#include "database/entity_access.h"
#include "entities/drawn_box.h"
#include "entities/entity.h"
#include "interaction/display/display_table_record.h"

namespace {

void include(qdr::VisibleBox& box, double x, double y) {
  if (!box.known) {
    box.min.set(x, y);
    box.max.set(x, y);
    box.known = true;
    return;
  }
  box.min.set(std::min(box.min.x, x), std::min(box.min.y, y));
  box.max.set(std::max(box.max.x, x), std::max(box.max.y, y));
}

void includeGrips(qdr::VisibleBox& box, CQdrDbEntity& entity) {
  std::vector<CQdrGePoint2d>* grips = nullptr;
  if (!entity.getGripPointVec(grips) || !grips) return;
  for (const CQdrGePoint2d& grip : *grips)
    include(box, grip.x, grip.y);
}

}  // namespace

namespace qdr {

void VisibleBox::widen(double by) {
  min.set(min.x - by, min.y - by);
  max.set(max.x + by, max.y + by);
}

VisibleBox visibleBox(CQdrDbDisplayTableRecord& display) {
  VisibleBox box;
  for (const CQdrDbObjectId& id : display.getDisplayedIdSet()) {
    CQdrDbEntity* const entity = asEntity(id);
    if (!entity || !entity->isVisiable()) continue;
    const DrawnBox drawn = drawnBox(*entity);
    if (drawn.known) {
      include(box, drawn.minX, drawn.minY);
      include(box, drawn.maxX, drawn.maxY);
    } else {
      includeGrips(box, *entity);
    }
  }
  return box;
}

}  // namespace qdr
