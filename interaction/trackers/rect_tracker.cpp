#include "interaction/trackers/rect_tracker.h"

#include <iterator>

#include "entities/display_units.h"
#include "entities/rect.h"

namespace {

// Sides that a grip moves.
struct GripSides {
  bool bottom, right, top, left;
};

constexpr GripSides kGrips[] = {
    {false, false, false, false}, {true, false, false, false}, {false, true, false, false},
    {false, false, true, false},  {false, false, false, true}, {true, false, false, true},
    {true, true, false, false},   {false, true, true, false},  {false, false, true, true},
};

}  // namespace

CQdrRectTracker::CQdrRectTracker(CWnd* window, CQdrDbEntity* rect, QdrDb::TransFormOption option,
                                 bool create)
    : ShapeTracker(eTrackRect, window, rect, option, create) {
  showGrips();
}

void CQdrRectTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) static_cast<CQdrDbRect*>(entity)->setRightBottom(qdr::toWorld(point));
}

void CQdrRectTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  if (grip < 0 || grip >= static_cast<int>(std::size(kGrips))) return;
  auto& rect = static_cast<CQdrDbRect&>(entity);
  const GripSides& sides = kGrips[grip];
  CQdrGePoint2d leftTop = rect.LeftTop();
  CQdrGePoint2d rightBottom = rect.RightBottom();
  leftTop.set(sides.left ? mouse.x : leftTop.x, sides.top ? mouse.y : leftTop.y);
  rightBottom.set(sides.right ? mouse.x : rightBottom.x, sides.bottom ? mouse.y : rightBottom.y);
  rect.setLeftTop(leftTop);
  rect.setRightBottom(rightBottom);
}

// Both old corners, whichever side was dragged.
void CQdrRectTracker::recordGrip(const CQdrDbEntity& entity, int, UndoSteps& steps) {
  const auto& rect = static_cast<const CQdrDbRect&>(entity);
  steps.push_back(qdr::undoStep(qdr::kUndoVertex, rect.RightBottom().asVector()));
  steps.back().point = rect.LeftTop();
}
