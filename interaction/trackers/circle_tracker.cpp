#include "interaction/trackers/circle_tracker.h"

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/circle.h"
#include "entities/display_units.h"

CQdrCircleTracker::CQdrCircleTracker(CWnd* window, CQdrDbEntity* circle,
                                     QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackCircle, window, circle, option, create) {}

void CQdrCircleTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) dragGrip(*entity, 1, qdr::toWorld(point));
}

void CQdrCircleTracker::dragGrip(CQdrDbEntity& entity, int, const CQdrGePoint2d& mouse) {
  auto& circle = static_cast<CQdrDbCircle&>(entity);
  circle.setRadius(circle.Center().distanceTo(mouse));
}

bool CQdrCircleTracker::recordGrip(const CQdrDbEntity& entity, int, tagUndoEditEntity& record) {
  record.operation = qdr::kUndoRadius;
  record.vector.set(static_cast<const CQdrDbCircle&>(entity).Radius(), 0.0);
  return true;
}
