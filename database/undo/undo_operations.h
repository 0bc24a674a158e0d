#pragma once

#include <cstdint>

#include "platform/export.h"

namespace qdr {

/// What a record of the undo log did. The numbers are those callers store in
/// tagUndoEditEntity::operation.
enum UndoCode : std::int32_t {
  kUndoNone = 0,
  kUndoGroupBegin = 1,
  kUndoGroupEnd = 2,
  kUndoCommandMark = 3,

  // The same for all classes.
  kUndoCreated = 4,         ///< made; playing it takes the entity out of its block
  kUndoCreationUndone = 5,  ///< the way back from kUndoCreated
  kUndoRestored = 6,        ///< added or shown again; playing it erases
  kUndoErased = 7,          ///< erased; playing it shows the entity again
  kUndoMoved = 8,           ///< by `vector`
  kUndoMirrored = 9,        ///< in the line through `point` along `vector`
  kUndoRotated = 10,        ///< by the angle of `vector` about `point`
  kUndoScaled = 11,         ///< by `vector` about `point`

  // By class.
  kUndoAngle = 13,
  kUndoRadius = 14,
  kUndoBulge = 15,
  kUndoClosed = 16,
  kUndoOpened = 17,
  kUndoVertex = 18,
  kUndoWings = 20,

  // The same for all classes again: old value in `oldId` or, of the weight, in `value`.
  kUndoLayer = 22,
  kUndoLineType = 23,
  kUndoColor = 24,
  kUndoLineWeight = 25,

  // By class.
  kUndoVertexAdded = 26,
  kUndoVertexRemoved = 27,
  kUndoReversed = 28,
  kUndoControlOption = 29,
  kUndoStartChanged = 34,
};

/// True for the codes that every class plays alike: 4 to 11 and 22 to 25.
QDR_API bool isCommonUndoCode(std::int32_t operation);

}  // namespace qdr
