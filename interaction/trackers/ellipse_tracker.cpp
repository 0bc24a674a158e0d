#include "interaction/trackers/ellipse_tracker.h"

#include "entities/display_units.h"
#include "entities/ellipse.h"
#include "interaction/trackers/ellipse_grips.h"

CQdrEllipseTracker::CQdrEllipseTracker(CWnd* window, CQdrDbEntity* ellipse,
                                       QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackEllipse, window, ellipse, option, create) {
  showGrips();
}

void CQdrEllipseTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (!entity) return;
  auto& ellipse = static_cast<CQdrDbEllipse&>(*entity);
  ellipse.SetVecMajorAxis(qdr::toWorld(point) - ellipse.Center());
}

void CQdrEllipseTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  qdr::dragAxisGrip(static_cast<CQdrDbEllipse&>(entity), grip, mouse);
}

void CQdrEllipseTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  qdr::recordAxisGrip(static_cast<const CQdrDbEllipse&>(entity),
                      static_cast<const CQdrDbEllipse&>(*m_currentEntity), grip, steps);
}
