#include "entities/angle_steps.h"

#include <cmath>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/internal/trim_scheme.h"
#include "geometry/tolerance.h"

namespace qdr {

void storeAngle(tagUndoEditEntity& record, double angle) {
  record.vector = CQdrGeVector2d(angle);
  record.point.x = angle;
}

double storedAngle(const tagUndoEditEntity& record) {
  const CQdrGeVector2d direction(record.vector);
  const double beside = record.point.x;
  const CQdrGeVector2d gap = direction - CQdrGeVector2d(beside);
  return beside != 0.0 && gap.length() < kPointTolerance ? beside : direction.angle();
}

void recordAngle(const CQdrDbEntity& entity, int end, double angle) {
  tagUndoEditEntity record = undoRecord(entity, kUndoAngle);
  record.index = end;
  storeAngle(record, angle);
  addUndo(entity, record);
}

}  // namespace qdr
