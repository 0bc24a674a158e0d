#pragma once

#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "interaction/trackers/shape_tracker.h"

// The grips at the ends of the axes, which an ellipse and an elliptic arc have alike: 1 turns the
// major axis toward the mouse and keeps its length, 3 takes its direction and length, 2 and 4 set
// the minor radius by the distance of the mouse.
namespace qdr {

constexpr int kMajorEnd = 1;
constexpr int kOppositeMajorEnd = 3;
constexpr int kLastAxisGrip = 4;

/// A mouse on the centre gives no axis, and nothing happens.
template <class Ellipse>
void dragAxisGrip(Ellipse& ellipse, int grip, const CQdrGePoint2d& mouse) {
  const CQdrGeVector2d reach = mouse - ellipse.Center();
  const double distance = reach.length();
  const double major = ellipse.MajorRadius();
  if (!(distance > 0.0) || !(major > 0.0)) return;
  if (grip == kMajorEnd) {
    ellipse.SetVecMajorAxis(reach * (major / distance));
  } else if (grip == kOppositeMajorEnd) {
    ellipse.SetVecMajorAxis(-reach);
  } else {
    ellipse.SetRadiusRatio(distance / major);
  }
}

/// The turn of the axis and both old radii, as far as the grip changes them.
template <class Ellipse>
void recordAxisGrip(const Ellipse& before, const Ellipse& after, int grip,
                    std::vector<tagUndoEditEntity>& steps) {
  if (grip == kMajorEnd || grip == kOppositeMajorEnd) {
    const double turn = after.VecMajorAxis().angle() - before.VecMajorAxis().angle();
    steps.push_back(turnStep(turn, before.Center()));
  }
  if (grip != kMajorEnd) {
    const QdrXY radii(before.MajorRadius(), before.MinorRadius());
    steps.push_back(undoStep(kUndoRadius, radii));
  }
}

}  // namespace qdr
