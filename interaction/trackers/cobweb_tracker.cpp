#include "interaction/trackers/cobweb_tracker.h"

#include <memory>
#include <vector>

#include "entities/cobweb.h"
#include "geometry/line2d.h"

namespace {

CQdrDbCobweb& webOf(CQdrDbEntity& entity) {
  return static_cast<CQdrDbCobweb&>(entity);
}

// The last grip, behind two for each wing.
bool isHandle(const CQdrDbCobweb& web, int grip) {
  return grip > 2 * web.Wings();
}

bool isOnInner(int grip) {
  return grip % 2 == 1;
}

}  // namespace

CQdrDbCobwebTracker::CQdrDbCobwebTracker(CWnd* window, CQdrDbEntity* web,
                                         QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackCobweb, window, web, option, create) {
  showGrips();
}

void CQdrDbCobwebTracker::MoveEntity(CQdrDbEntity* entity) {
  if (entity) webOf(*entity).translateBy(dragVector());
}

void CQdrDbCobwebTracker::RotateEntity(CQdrDbEntity* entity) {
  if (entity) webOf(*entity).rotateBy(dragVector().angle(), startWorld());
}

void CQdrDbCobwebTracker::MirrorEntity(CQdrDbEntity* entity) {
  if (!entity || dragVector().length() == 0.0) return;
  webOf(*entity).mirror(CQdrGeLine2d(startWorld(), endWorld()));
}

void CQdrDbCobwebTracker::ScaleEntity(CQdrDbEntity* entity) {
  if (entity && dragScale() > 0.0) webOf(*entity).scaleBy(dragScale(), startWorld());
}

CQdrDbEntity* CQdrDbCobwebTracker::CopyEntity(CQdrDbEntity* entity) {
  return entity ? std::make_unique<CQdrDbCobweb>(webOf(*entity)).release() : nullptr;
}

void CQdrDbCobwebTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  CQdrDbCobweb& web = webOf(entity);
  if (isHandle(web, grip)) {
    web.SetRotation(web.Center().angleTo(mouse));
  } else if (isOnInner(grip)) {
    web.SetInnerRadius(web.Center().distanceTo(mouse));
  } else {
    web.SetOuterRadius(web.Center().distanceTo(mouse));
  }
}

void CQdrDbCobwebTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& before = static_cast<const CQdrDbCobweb&>(entity);
  if (isHandle(before, grip)) {
    const double turn = webOf(*m_currentEntity).Rotation() - before.Rotation();
    steps.push_back(qdr::turnStep(turn, before.Center()));
  } else {
    const QdrXY radii(before.OuterRadius(), before.InnerRadius());
    steps.push_back(qdr::undoStep(qdr::kUndoRadius, radii));
  }
}
