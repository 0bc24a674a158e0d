#pragma once

#include <cstdint>
#include <span>

class CQdrDbEntity;
class CQdrUndoHandler;
struct tagUndoEditEntity;

namespace qdr {

/// Plays one operation on the entity of a record: `redo` false takes it back, true does it again.
/// Most operations exchange the stored value with the live one and so serve both ways.
using UndoOperation = void (*)(tagUndoEditEntity& record, CQdrDbEntity& entity, bool redo);

/// One operation of the undo log.
struct UndoRow {
  std::int32_t code;
  UndoOperation play;
};

/// Plays the handler's current record by the row of its code. A code without a row does nothing;
/// always true.
bool playUndoRow(std::span<const UndoRow> rows, CQdrUndoHandler& handler, bool redo);

/// The routine of a class over its rows, for the class table.
template <const auto& kRows>
bool playUndoRows(CQdrUndoHandler& handler, bool redo) {
  return playUndoRow(kRows, handler, redo);
}

/// The operations of the classes that have some of their own.
extern const UndoRow kLineUndo[1];
extern const UndoRow kArcUndo[2];
extern const UndoRow kCircleUndo[1];
extern const UndoRow kPolylineUndo[8];
extern const UndoRow kRectUndo[1];
extern const UndoRow kEllipseUndo[1];
extern const UndoRow kEllipseArcUndo[2];
extern const UndoRow kBoxUndo[1];
extern const UndoRow kSpiralUndo[1];
extern const UndoRow kSplineUndo[5];
extern const UndoRow kCSplineUndo[5];
extern const UndoRow kCobwebUndo[2];

/// The routine of a class whose steps are all of the common kind.
bool undoNothing(CQdrUndoHandler& handler, bool redo);

}  // namespace qdr
