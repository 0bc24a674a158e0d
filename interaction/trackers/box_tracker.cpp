#include "interaction/trackers/box_tracker.h"

#include <numbers>

#include "entities/box.h"
#include "entities/display_units.h"

namespace {

constexpr int kBottomSide = 1;
constexpr int kTurnCorner = 2;
constexpr int kRightSide = 3;
constexpr int kDiagonalCorner = 4;
constexpr int kTopSide = 5;
constexpr int kOtherCorner = 6;
constexpr int kLeftSide = 7;

// A point in the box's own axes, from its base point.
QdrXY alongAxes(const CQdrDbBox& box, const CQdrGePoint2d& point) {
  const CQdrGeVector2d axis(box.Rotation());
  const CQdrGeVector2d reach = point - box.BasePoint();
  return {reach.dotProduct(axis), reach.dotProduct(axis.perpVector())};
}

// The corner that a scaled box keeps.
CQdrGePoint2d fixedCorner(const CQdrDbBox& box, int grip) {
  return grip == kDiagonalCorner ? box.BasePoint() : box.getGripPoint(kTurnCorner);
}

// 0 when the drag gives no scale.
double scaleOf(const CQdrDbBox& box, int grip, const CQdrGePoint2d& mouse) {
  const double diagonal = box.Diagonal().length();
  return diagonal > 0.0 ? fixedCorner(box, grip).distanceTo(mouse) / diagonal : 0.0;
}

// The side at the base point moves, and the opposite one stays.
void moveSide(CQdrDbBox& box, double alongWidth, double alongHeight) {
  const CQdrGeVector2d axis(box.Rotation());
  box.Set(box.BasePoint() + axis * alongWidth + axis.perpVector() * alongHeight,
          box.Width() - alongWidth, box.Height() - alongHeight, box.Rotation());
}

void turnTo(CQdrDbBox& box, const CQdrGePoint2d& mouse) {
  if (mouse.distanceTo(box.BasePoint()) == 0.0) return;
  const double half = box.Width() < 0.0 ? std::numbers::pi : 0.0;  // the corner lies backward
  box.SetRotation(box.BasePoint().angleTo(mouse) + half);
}

}  // namespace

CQdrBoxTracker::CQdrBoxTracker(CWnd* window, CQdrDbEntity* box, QdrDb::TransFormOption option,
                               bool create)
    : ShapeTracker(eTrackBox, window, box, option, create) {
  showGrips();
}

void CQdrBoxTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (entity) static_cast<CQdrDbBox*>(entity)->SetDiagonalPoint(qdr::toWorld(point));
}

void CQdrBoxTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& box = static_cast<CQdrDbBox&>(entity);
  const QdrXY at = alongAxes(box, mouse);
  switch (grip) {
    case kBottomSide:
      moveSide(box, 0.0, at.y);
      break;
    case kLeftSide:
      moveSide(box, at.x, 0.0);
      break;
    case kTopSide:
      box.SetHeight(at.y);
      break;
    case kRightSide:
      box.SetWidth(at.x);
      break;
    case kTurnCorner:
      turnTo(box, mouse);
      break;
    case kDiagonalCorner:
    case kOtherCorner:
      if (const double scale = scaleOf(box, grip, mouse); scale > 0.0) {
        box.ScaleBy(scale, fixedCorner(box, grip));
        box.setGripPoints();
      }
      break;
    default:
      break;
  }
}

// A side at the base point moves it first and has another size then.
void CQdrBoxTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& before = static_cast<const CQdrDbBox&>(entity);
  const auto& after = static_cast<const CQdrDbBox&>(*m_currentEntity);
  if (grip == kTurnCorner) {
    steps.push_back(qdr::turnStep(after.Rotation() - before.Rotation(), before.BasePoint()));
    return;
  }
  if (grip == kDiagonalCorner || grip == kOtherCorner) {
    const double scale = scaleOf(before, grip, endWorld());
    if (!(scale > 0.0)) return;
    steps.push_back(qdr::undoStep(qdr::kUndoScaled, QdrXY(scale, scale)));
    steps.back().point = fixedCorner(before, grip);
    return;
  }
  if (grip == kBottomSide || grip == kLeftSide)
    steps.push_back(qdr::undoStep(qdr::kUndoMoved, after.BasePoint() - before.BasePoint()));
  steps.push_back(qdr::undoStep(qdr::kUndoVertex, before.Diagonal()));
}
