#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

#include "database/class_type.h"
#include "database/entity_access.h"
#include "database/undo/undo_record.h"
#include "platform/export.h"

class CQdrDbObject;

/// The undo log of one drawing: what commands did, newest first, and what was taken back.
///
/// A record names its entity and holds no copy of it. Entities outlive the log, because erasing
/// only marks them; whoever deletes one calls
/// `forgetEntities` first. There is no limit on the depth.
/// Not copyable: the lists own the buffers of their records.
class QDR_API CQdrUndoHandler {
 public:
  CQdrUndoHandler() = default;
  CQdrUndoHandler(const CQdrUndoHandler&) = delete;
  CQdrUndoHandler& operator=(const CQdrUndoHandler&) = delete;

  /// Frees the buffers of both lists; the entities stay.
  ~CQdrUndoHandler();

  /// Puts a step on the log and ends all redo. Answers the length of the undo list, or 0 while an
  /// undo runs: nothing that undo does is recorded. A step on an entity whose class records none
  /// (points, text tables) leaves the log as it is, but the redo list goes all the same.
  /// On success the log owns the buffer; otherwise the caller keeps it. Null takes `m_current` as
  /// it stands and spares the redo list.
  std::size_t AddUndo(tagUndoEditEntity* record);
  std::size_t AddUndo(tagUndoEditEntity& record) { return AddUndo(&record); }

  /// Puts `m_current` on the redo list. Answers its length, or 0 while a redo runs.
  std::size_t AddRedo();

  /// Takes back the last user action: the newest record, and on while the record just played is
  /// `continued` or stands between the marks of a group. True if something was done.
  bool Undo();

  /// Does again what the last Undo took back. Here the `continued` of the next record decides
  /// whether to go on, so a batch whose oldest record holds 0 comes back whole.
  bool Redo();

  /// Puts off the refresh of an entity that a step has changed until the steps on it are over, so
  /// that a long run of steps on one polyline does not build its grips anew with each of them.
  /// False, with nothing done, when neither an undo nor a redo runs.
  bool refreshLater(CQdrDbEntity& entity);

  /// Drops records, newest first, down to and with the first command mark (code 3), without
  /// playing them and without freeing their buffers. Answers how many.
  std::size_t UndoPop();

  /// Fills `classType` of `m_current`: the common routine for common codes, else the class's own.
  bool MakeUndoEntity();
  bool MakeUndoArc() { return makeUndo(QdrDb::eClassArc); }
  bool MakeUndoBox() { return makeUndo(QdrDb::eClassBox); }
  bool MakeUndoCircle() { return makeUndo(QdrDb::eClassCircle); }
  bool MakeUndoEllipse() { return makeUndo(QdrDb::eClassEllipse); }
  bool MakeUndoEllipseArc() { return makeUndo(QdrDb::eClassEllipseArc); }
  bool MakeUndoLine() { return makeUndo(QdrDb::eClassLine); }
  bool MakeUndoPolyline() { return makeUndo(QdrDb::eClassPolyline); }
  bool MakeUndoSpline() { return makeUndo(QdrDb::eClassSpline); }
  bool MakeUndoCSpline() { return makeUndo(QdrDb::eClassCSpline); }
  bool MakeUndoCobweb() { return makeUndo(QdrDb::eClassCobweb); }
  bool MakeUndoSpiral() { return makeUndo(QdrDb::eClassSpiral); }
  bool MakeUndoBlock() { return makeUndo(QdrDb::eClassBlockInsert); }
  bool MakeUndoText() { return makeUndo(QdrDb::eClassText); }
  bool MakeUndoRect() { return makeUndo(QdrDb::eClassRect); }
  bool MakeUndoSymbol() { return makeUndo(QdrDb::eClassSymbol); }
  bool MakeUndoDimension() { return makeUndo(QdrDb::eClassDimension); }
  bool MakeUndoHatch() { return makeUndo(QdrDb::eClassHatch); }

  /// Plays `m_current` by the routine of the class. An unknown code does nothing; all answer true.
  bool UndoEntity(bool redo);
  bool UndoArc(bool redo) { return playAs(QdrDb::eClassArc, redo); }
  bool UndoBox(bool redo) { return playAs(QdrDb::eClassBox, redo); }
  bool UndoCircle(bool redo) { return playAs(QdrDb::eClassCircle, redo); }
  bool UndoEllipse(bool redo) { return playAs(QdrDb::eClassEllipse, redo); }
  bool UndoEllipseArc(bool redo) { return playAs(QdrDb::eClassEllipseArc, redo); }
  bool UndoLine(bool redo) { return playAs(QdrDb::eClassLine, redo); }
  bool UndoPolyline(bool redo) { return playAs(QdrDb::eClassPolyline, redo); }
  bool UndoSpline(bool redo) { return playAs(QdrDb::eClassSpline, redo); }
  bool UndoCSpline(bool redo) { return playAs(QdrDb::eClassCSpline, redo); }
  bool UndoCobweb(bool redo) { return playAs(QdrDb::eClassCobweb, redo); }
  bool UndoSpiral(bool redo) { return playAs(QdrDb::eClassSpiral, redo); }
  bool UndoBlock(bool redo) { return playAs(QdrDb::eClassBlockInsert, redo); }
  bool UndoText(bool redo) { return playAs(QdrDb::eClassText, redo); }
  bool UndoRect(bool redo) { return playAs(QdrDb::eClassRect, redo); }
  bool UndoSymbol(bool redo) { return playAs(QdrDb::eClassSymbol, redo); }
  bool UndoDimension(bool redo) { return playAs(QdrDb::eClassDimension, redo); }
  bool UndoHatch(bool redo) { return playAs(QdrDb::eClassHatch, redo); }

  /// Drops the records of entities that are about to be deleted and frees their buffers. Of a
  /// batch that loses its first record the next one becomes the first. Costs one walk of the lists
  /// for all of them.
  void forgetEntities(const qdr::EntitySet& gone);

  /// The same for records that name a layer, linetype, colour or style about to be removed.
  void forgetRecord(const CQdrDbObject* removed);

  /// Records that name `from` name `to` afterwards.
  void replaceRecord(const CQdrDbObject* from, const CQdrDbObject* to);

  bool isUndoing() const { return m_undoing; }
  bool isRedoing() const { return m_redoing; }

  bool m_undoing = false;  ///< AddUndo refuses while set
  bool m_redoing = false;  ///< AddRedo refuses while set
  std::int32_t m_reserved = 0;
  tagUndoEditEntity m_current;               ///< the record in work; owns nothing
  std::deque<tagUndoEditEntity> m_undoList;  ///< newest at the front
  std::deque<tagUndoEditEntity> m_redoList;  ///< what Redo plays next at the front

 private:
  bool makeUndo(QdrDb::ClassType type);
  bool playAs(QdrDb::ClassType type, bool redo);
  bool playCurrent(bool redo);
  void refreshStale();
  void invalidateView();

  CQdrDbEntity* m_stale = nullptr;  ///< waits for its refresh while an undo or redo runs
};
