#include "interaction/trackers/shape_tracker.h"

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/entity.h"
#include "geometry/line2d.h"
#include "interaction/command_handler.h"
#include "interaction/input_loop.h"

namespace qdr {

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
  showGrips();
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
  tagUndoEditEntity record;
  // What is not in the drawing yet has nothing to take back.
  const bool recorded =
      !m_createMode && isShapeMoved() && m_entity->IsDbEntity() && makeRecord(handle, record);
  if (recorded) {
    record.continued = 0;
    record.entityId = m_entity->objectId();
    m_db->m_undoHandler.AddUndo(record);
  }
  const bool grips = m_gripsDrawn;
  if (grips) {
    drawCurrentEntity();
    UnDrawGripBox();
    const qdr::RasterScope plain(m_dc, R2_COPYPEN);
    m_entity->UnDraw(m_dc);
  }
  *m_entity = *m_currentEntity;
  if (grips) DrawGripBox(false);
  return true;
}

// A copy records itself when it is added.
bool ShapeTracker::makeRecord(int handle, tagUndoEditEntity& record) {
  record.point = startWorld();
  record.vector = dragVector();
  switch (m_transOpt) {
    case QdrDb::eTransformNone:
      record.operation = kUndoMoved;
      return handle == 0 || recordGrip(*m_entity, handle, record);
    case QdrDb::eTransformMove:
      record.operation = kUndoMoved;
      return true;
    case QdrDb::eTransformRotate:
      record.operation = kUndoRotated;
      return true;
    case QdrDb::eTransformMirror:
      record.operation = kUndoMirrored;
      return dragVector().length() != 0.0;
    case QdrDb::eTransformScale:
      record.operation = kUndoScaled;
      record.vector.set(dragScale(), dragScale());
      return dragScale() > 0.0;
    case QdrDb::eTransformCopy:
      break;
  }
  return false;
}

}  // namespace qdr
