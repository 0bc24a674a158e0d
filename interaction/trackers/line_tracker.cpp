#include "interaction/trackers/line_tracker.h"

#include "entities/display_units.h"
#include "entities/line.h"

namespace {

constexpr int kStartGrip = 1;
constexpr int kEndGrip = 2;

}  // namespace

CQdrLineTracker::CQdrLineTracker(CWnd* window, CQdrDbEntity* line, QdrDb::TransFormOption option,
                                 bool create)
    : ShapeTracker(eTrackLine, window, line, option, create) {
  showGrips();
}

void CQdrLineTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) static_cast<CQdrDbLine*>(entity)->setEndPoint(qdr::toWorld(point));
}

void CQdrLineTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& line = static_cast<CQdrDbLine&>(entity);
  if (grip == kStartGrip) line.setStartPoint(mouse);
  if (grip == kEndGrip) line.setEndPoint(mouse);
}

// The way back: the old end minus the new one.
void CQdrLineTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& line = static_cast<const CQdrDbLine&>(entity);
  const CQdrGePoint2d old = grip == kStartGrip ? line.StartPoint() : line.EndPoint();
  steps.push_back(qdr::undoStep(qdr::kUndoVertex, old - endWorld()));
  steps.back().index = grip == kStartGrip ? 0 : 1;
}
