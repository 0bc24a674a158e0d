#include "interaction/trackers/ellipse_arc_tracker.h"

#include "entities/angle_steps.h"
#include "entities/display_units.h"
#include "entities/ellipse_arc.h"
#include "interaction/trackers/ellipse_grips.h"

namespace {

constexpr int kStartGrip = 5;

// Angles of the arc are measured from its major axis.
double angleInArc(const CQdrDbEllipseArc& arc, const CQdrGePoint2d& point) {
  return arc.Center().angleTo(point) - arc.VecMajorAxis().angle();
}

}  // namespace

CQdrEllipseArcTracker::CQdrEllipseArcTracker(CWnd* window, CQdrDbEntity* arc,
                                             QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackEllipseArc, window, arc, option, create) {
  showGrips();
}

void CQdrEllipseArcTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (!entity) return;
  auto& arc = static_cast<CQdrDbEllipseArc&>(*entity);
  const CQdrGePoint2d mouse = qdr::toWorld(point);
  if (m_startStands) {
    arc.SetEndAngle(angleInArc(arc, mouse));
  } else {
    arc.SetVecMajorAxis(mouse - arc.Center());
  }
}

void CQdrEllipseArcTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& arc = static_cast<CQdrDbEllipseArc&>(entity);
  if (grip <= qdr::kLastAxisGrip) {
    qdr::dragAxisGrip(arc, grip, mouse);
  } else if (grip == kStartGrip) {
    arc.SetStartAngle(angleInArc(arc, mouse));
  } else {
    arc.SetEndAngle(angleInArc(arc, mouse));
  }
}

void CQdrEllipseArcTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& before = static_cast<const CQdrDbEllipseArc&>(entity);
  if (grip <= qdr::kLastAxisGrip) {
    const auto& after = static_cast<const CQdrDbEllipseArc&>(*m_currentEntity);
    qdr::recordAxisGrip(before, after, grip, steps);
    return;
  }
  const double angle = grip == kStartGrip ? before.StartAngle() : before.EndAngle();
  steps.push_back(qdr::undoStep(qdr::kUndoAngle, {}));
  qdr::storeAngle(steps.back(), angle);
  steps.back().index = grip == kStartGrip ? 0 : 1;
}
