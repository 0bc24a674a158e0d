#include "interaction/trackers/shape_tracker.h"

#include <cstdint>
#include <utility>

#include "database/database.h"
#include "entities/entity.h"
#include "geometry/line2d.h"
#include "interaction/command_handler.h"
#include "interaction/input_loop.h"

namespace qdr {

tagUndoEditEntity undoStep(UndoCode operation, const QdrXY& vector) {
  tagUndoEditEntity step;
  step.operation = operation;
  step.vector = vector;
  return step;
}

tagUndoEditEntity turnStep(double angle, const CQdrGePoint2d& center) {
  tagUndoEditEntity step = undoStep(kUndoRotated, CQdrGeVector2d(angle));
  step.point = center;
  return step;
}

ShapeTracker::ShapeTracker(TrackerType type, CWnd* window) : CQdrDbEntityTracker(window) {
  m_trackerType = type;
}

ShapeTracker::ShapeTracker(TrackerType type, CWnd* window, CQdrDbDatabase* database, bool create)
    : CQdrDbEntityTracker(window, database, create) {
  m_trackerType = type;
}

ShapeTracker::ShapeTracker(TrackerType type, CWnd* window, CQdrDbEntity* entity,
                           QdrDb::TransFormOption option, bool create)
    : CQdrDbEntityTracker(window, entity, option, create) {
  m_trackerType = type;
}

void ShapeTracker::UpdateEntity(CQdrDbEntity* entity, int handle) {
  if (!entity) return;
  if (handle == 0) {
    MoveEntity(entity);
  } else {
    dragGrip(*entity, handle, endWorld());
  }
}

void ShapeTracker::MoveEntity(CQdrDbEntity* entity) {
  if (!entity) return;
  entity->TranslateBy(dragVector());
  entity->setGripPoints();
}

void ShapeTracker::RotateEntity(CQdrDbEntity* entity) {
  if (!entity) return;
  entity->RotateBy(dragVector().angle(), startWorld());
  entity->setGripPoints();
}

void ShapeTracker::MirrorEntity(CQdrDbEntity* entity) {
  if (!entity || dragVector().length() == 0.0) return;
  entity->Mirror(CQdrGeLine2d(startWorld(), endWorld()));
  entity->setGripPoints();
}

void ShapeTracker::ScaleEntity(CQdrDbEntity* entity) {
  if (!entity || !(dragScale() > 0.0)) return;
  entity->ScaleBy(dragScale(), startWorld());
  entity->setGripPoints();
}

CQdrDbEntity* ShapeTracker::CopyEntity(CQdrDbEntity* entity) {
  return entity ? entity->CopyEntity(true) : nullptr;
}

bool ShapeTracker::ControlEnd(int handle) {
  settlePoint();
  if (!m_currentEntity || !m_entity) return true;
  if (m_createMode && isMadeByPicks()) {
    drawCurrentEntity();
    return true;
  }
  // What is not in the drawing yet has nothing to take back.
  if (!m_createMode && isShapeMoved() && m_entity->IsDbEntity()) record(handle);
  commit();
  return true;
}

void ShapeTracker::commit() {
  if (m_gripsDrawn) drawCurrentEntity();
  editEntity([this] { *m_entity = *m_currentEntity; });
}

void ShapeTracker::editEntity(const std::function<void()>& change) {
  const bool grips = m_gripsDrawn;
  if (grips) {
    UnDrawGripBox();
    const qdr::RasterScope plain(m_dc, R2_COPYPEN);
    m_entity->UnDraw(m_dc);
  }
  change();
  if (grips) DrawGripBox(false);
}

void ShapeTracker::record(int handle) {
  UndoSteps steps;
  makeSteps(handle, steps);
  std::int32_t continued = 0;
  for (tagUndoEditEntity& step : steps) {
    step.continued = std::exchange(continued, 1);
    step.entityId = m_entity->objectId();
    m_db->m_undoHandler.AddUndo(step);
  }
}

// A copy records itself when it is added.
void ShapeTracker::makeSteps(int handle, UndoSteps& steps) {
  const auto transform = [&](UndoCode operation, const QdrXY& vector) {
    steps.push_back(undoStep(operation, vector));
    steps.back().point = startWorld();
  };
  switch (m_transOpt) {
    case QdrDb::eTransformNone:
      if (handle == 0) {
        transform(kUndoMoved, dragVector());
      } else {
        recordGrip(*m_entity, handle, steps);
      }
      break;
    case QdrDb::eTransformMove:
      transform(kUndoMoved, dragVector());
      break;
    case QdrDb::eTransformRotate:
      transform(kUndoRotated, dragVector());
      break;
    case QdrDb::eTransformMirror:
      if (dragVector().length() != 0.0) transform(kUndoMirrored, dragVector());
      break;
    case QdrDb::eTransformScale:
      if (dragScale() > 0.0) transform(kUndoScaled, QdrXY(dragScale(), dragScale()));
      break;
    case QdrDb::eTransformCopy:
      break;
  }
}

}  // namespace qdr
