#include "interaction/trackers/circle_tracker.h"

#include "entities/circle.h"
#include "entities/display_units.h"

CQdrCircleTracker::CQdrCircleTracker(CWnd* window, CQdrDbEntity* circle,
                                     QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackCircle, window, circle, option, create) {
  showGrips();
}

void CQdrCircleTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) dragGrip(*entity, 1, qdr::toWorld(point));
}

void CQdrCircleTracker::dragGrip(CQdrDbEntity& entity, int, const CQdrGePoint2d& mouse) {
  auto& circle = static_cast<CQdrDbCircle&>(entity);
  circle.setRadius(circle.Center().distanceTo(mouse));
}

void CQdrCircleTracker::recordGrip(const CQdrDbEntity& entity, int, UndoSteps& steps) {
  const double radius = static_cast<const CQdrDbCircle&>(entity).Radius();
  steps.push_back(qdr::undoStep(qdr::kUndoRadius, QdrXY(radius, 0.0)));
}
