#include "interaction/trackers/spiral_tracker.h"

#include "entities/spiral.h"

namespace {

constexpr int kMinRadiusGrip = 1;
constexpr int kPitchGrip = 2;
constexpr int kMaxRadiusGrip = 3;

}  // namespace

CQdrSpiralTracker::CQdrSpiralTracker(CWnd* window, CQdrDbEntity* spiral,
                                     QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackSpiral, window, spiral, option, create) {
  showGrips();
}

void CQdrSpiralTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& spiral = static_cast<CQdrDbSpiral&>(entity);
  const double distance = spiral.Center().distanceTo(mouse);
  // The spiral begins at the first chord that has reached the minimum radius.
  const double pitch = distance - spiral.Center().distanceTo(spiral.getGripPoint(kMinRadiusGrip));
  if (grip == kMinRadiusGrip) spiral.SetMinRadius(distance);
  if (grip == kPitchGrip && pitch > 0.0) spiral.SetOffsetDist(pitch);
  if (grip == kMaxRadiusGrip) spiral.SetMaxRadius(distance);
}

// Both old radii and the old pitch, whichever grip was dragged.
void CQdrSpiralTracker::recordGrip(const CQdrDbEntity& entity, int, UndoSteps& steps) {
  const auto& spiral = static_cast<const CQdrDbSpiral&>(entity);
  const QdrXY radii(spiral.MaxRadius(), spiral.MinRadius());
  steps.push_back(qdr::undoStep(qdr::kUndoRadius, radii));
  steps.back().point.set(spiral.OffsetDist(), 0.0);
}
