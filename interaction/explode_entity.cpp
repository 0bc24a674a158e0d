#include "interaction/explode_entity.h"

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "entities/cobweb.h"
#include "entities/polyline.h"
#include "entities/spiral.h"
#include "entities/spline.h"

namespace {

bool addParts(CQdrDbEntity& entity) {
  switch (entity.classType()) {
    case QdrDb::eClassPolyline:
      return static_cast<CQdrDbPolyline&>(entity).Explode();
    case QdrDb::eClassSpline:
      return static_cast<CQdrDbSpline&>(entity).Explode();
    case QdrDb::eClassSpiral:
      return static_cast<CQdrDbSpiral&>(entity).Explode();
    case QdrDb::eClassCobweb:
      return static_cast<CQdrDbCobweb&>(entity).Explode();
    default:
      return false;
  }
}

}  // namespace

namespace qdr {

bool explodeEntity(CQdrDbEntity& entity) {
  if (!entity.IsDbEntity() || !entity.database() || !addParts(entity)) return false;
  entity.setObjectStatus(CQdrDbObject::eErased);
  tagUndoEditEntity record;
  record.operation = kUndoErased;
  record.continued = 1;
  record.entityId = entity.objectId();
  entity.database()->m_undoHandler.AddUndo(record);
  return true;
}

}  // namespace qdr
