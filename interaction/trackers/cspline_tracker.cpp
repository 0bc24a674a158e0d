#include "interaction/trackers/cspline_tracker.h"

#include "entities/cspline.h"
#include "entities/display_units.h"

CQdrCSplineTracker::CQdrCSplineTracker(CWnd* window, CQdrDbEntity* spline,
                                       QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackCSpline, window, spline, option, create) {
  showGrips();
}

void CQdrCSplineTracker::SetCSpline(CQdrDbCSpline* spline) {
  SetEntity(spline);
}

std::vector<bool> CQdrCSplineTracker::diamonds() const {
  std::vector<bool> breaks;
  if (!m_entity) return breaks;
  const auto& spline = static_cast<const CQdrDbCSpline&>(*m_entity);
  for (int i = 0; i < spline.NumCtrlVerts(); ++i)
    breaks.push_back(spline.GetCtrlOption(i) != 0);
  return breaks;
}

void CQdrCSplineTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) static_cast<CQdrDbCSpline*>(entity)->AppendCtrlVertex(qdr::toWorld(point));
}

void CQdrCSplineTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  static_cast<CQdrDbCSpline&>(entity).SetCtrlPointAt(grip, mouse);
}

void CQdrCSplineTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  tagUndoEditEntity step = qdr::undoStep(qdr::kUndoVertex, {});
  step.index = grip;
  const auto& spline = static_cast<const CQdrDbCSpline&>(entity);
  if (spline.GetCtrlVertexAt(grip, step.point)) steps.push_back(step);
}
