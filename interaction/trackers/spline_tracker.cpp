#include "interaction/trackers/spline_tracker.h"

#include "entities/display_units.h"
#include "entities/spline.h"
#include "platform/device_context.h"

namespace {

std::vector<CQdrGePoint2d> controlVertices(const CQdrDbSpline& spline) {
  return spline.geometry().ctrlPoints();
}

}  // namespace

CQdrSplineTracker::CQdrSplineTracker(CWnd* window, CQdrDbEntity* spline,
                                     QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackSpline, window, spline, option, create) {
  if (spline) m_picked = controlVertices(static_cast<const CQdrDbSpline&>(*spline));
  showGrips();
}

void CQdrSplineTracker::RemoveCtrlPointAt(int i) {
  if (i >= 0 && i < static_cast<int>(m_picked.size())) m_picked.erase(m_picked.begin() + i);
}

void CQdrSplineTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (!entity) return;
  std::vector<CQdrGePoint2d> vertices = m_picked;
  vertices.push_back(qdr::toWorld(point));
  static_cast<CQdrDbSpline*>(entity)->SetCtrlVertexes(vertices);
}

void CQdrSplineTracker::DrawCurrent() {
  ShapeTracker::DrawCurrent();
  if (!m_currentEntity || !m_dc) return;
  const auto& spline = static_cast<const CQdrDbSpline&>(*m_currentEntity);
  std::vector<CPoint> polygon;
  for (const CQdrGePoint2d& vertex : controlVertices(spline))
    polygon.push_back(qdr::toLogical(vertex));
  if (spline.IsClosed() && !polygon.empty()) polygon.push_back(polygon.front());
  m_dc->Polyline(polygon.data(), static_cast<int>(polygon.size()));
}

void CQdrSplineTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  static_cast<CQdrDbSpline&>(entity).SetCtrlPointAt(grip, mouse);
}

void CQdrSplineTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  tagUndoEditEntity step = qdr::undoStep(qdr::kUndoVertex, {});
  step.index = grip;
  const auto& spline = static_cast<const CQdrDbSpline&>(entity);
  if (spline.GetCtrlVertexAt(grip, step.point)) steps.push_back(step);
}
