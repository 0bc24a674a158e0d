#pragma once

#include <cstdint>

#include "database/class_type.h"
#include "database/object_id.h"
#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

/// One step of the undo log: an entity, an operation code and the few values that invert it.
///
/// Copied member by member, `buffer` by pointer. The list that holds a record owns its buffer; a
/// record outside a list, the one in work included, owns nothing.
struct QDR_API tagUndoEditEntity {
  /// Non-zero: undoing this record goes on to the next older one. The first record of a user
  /// action holds 0, the others 1.
  std::int32_t continued = 1;
  /// A code of qdr::UndoCode.
  std::int32_t operation = 0;
  /// Whose routine plays the record; eClassEntity (0) is the routine common to all classes. Makers
  /// leave it alone, AddUndo fills it.
  QdrDb::ClassType classType = QdrDb::eClassNone;
  CQdrGePoint2d point;      ///< a base point, or an old vertex
  QdrXY vector;             ///< displacement, mirror axis, scale factors, one or two old values
  CQdrDbObjectId entityId;  ///< the entity; a record without one is passed over
  CQdrDbObjectId oldId;     ///< old layer, linetype, colour or style
  CQdrDbObjectId extraId;
  std::int32_t value = 0;   ///< old line weight, or the sub-operation of text and hatch
  std::int32_t index = -1;  ///< vertex; of lines and arcs 0 is the start, any other the end
  std::int32_t index2 = -1;
  void* buffer = nullptr;  ///< from operator new, freed with operator delete
};
