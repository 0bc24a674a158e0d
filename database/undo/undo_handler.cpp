#include "database/undo/undo_handler.h"

#include <algorithm>
#include <new>
#include <vector>

#include "database/database.h"
#include "database/entity_classes.h"
#include "database/undo/undo_operations.h"

namespace {

using UndoList = std::deque<tagUndoEditEntity>;

bool isMark(std::int32_t operation) {
  return operation == qdr::kUndoNone || operation == qdr::kUndoGroupBegin ||
         operation == qdr::kUndoGroupEnd;
}

void freeBuffers(UndoList& list) {
  for (const tagUndoEditEntity& record : list)
    ::operator delete(record.buffer);
  list.clear();
}

// Sets a flag while an undo or redo runs.
class Running {
 public:
  explicit Running(bool& flag) : m_flag(flag) { m_flag = true; }
  ~Running() { m_flag = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& m_flag;
};

// Removes the records for which `isGone` holds, walking from the oldest step of the list to its
// newest. Of a batch whose first record goes, the next one that stays becomes the first.
template <class Iterator, class Gone>
void markGone(Iterator oldest, Iterator newest, const Gone& isGone, std::vector<bool>& gone) {
  bool firstIsMissing = false;
  for (Iterator record = oldest; record != newest; ++record) {
    const bool startsBatch = record->continued == 0;
    if (startsBatch) firstIsMissing = false;
    gone.push_back(isGone(*record));
    if (gone.back()) {
      firstIsMissing = firstIsMissing || startsBatch;
    } else if (firstIsMissing) {
      record->continued = 0;
      firstIsMissing = false;
    }
  }
}

// Keeps what is not marked, in the order of the list, and frees the buffers of the rest.
void dropMarked(UndoList& list, const std::vector<bool>& gone) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (gone[i])
      ::operator delete(list[i].buffer);
    else if (kept++ != i)
      list[kept - 1] = list[i];
  }
  list.resize(kept);
}

// The undo list runs from the newest record to the oldest, the redo list the other way.
template <class Gone>
void dropFrom(UndoList& undoList, UndoList& redoList, const Gone& isGone) {
  std::vector<bool> gone;
  markGone(undoList.rbegin(), undoList.rend(), isGone, gone);
  std::reverse(gone.begin(), gone.end());
  dropMarked(undoList, gone);
  gone.clear();
  markGone(redoList.begin(), redoList.end(), isGone, gone);
  dropMarked(redoList, gone);
}

void replaceIn(UndoList& list, const CQdrDbObject* from, const CQdrDbObject* to) {
  for (tagUndoEditEntity& record : list) {
    if (record.oldId == from) record.oldId = to;
    if (record.extraId == from) record.extraId = to;
  }
}

}  // namespace

namespace qdr {

bool isCommonUndoCode(std::int32_t operation) {
  return (operation >= kUndoCreated && operation <= kUndoScaled) ||
         (operation >= kUndoLayer && operation <= kUndoLineWeight);
}

}  // namespace qdr

CQdrUndoHandler::~CQdrUndoHandler() {
  freeBuffers(m_undoList);
  freeBuffers(m_redoList);
}

bool CQdrUndoHandler::MakeUndoEntity() {
  m_current.classType = QdrDb::eClassEntity;
  return true;
}

bool CQdrUndoHandler::makeUndo(QdrDb::ClassType type) {
  if (m_current.classType == QdrDb::eClassEntity) return MakeUndoEntity();
  m_current.classType = type;
  return qdr::isCommonUndoCode(m_current.operation) ? MakeUndoEntity() : true;
}

std::size_t CQdrUndoHandler::AddUndo(tagUndoEditEntity* record) {
  if (m_undoing) return 0;
  if (record) {
    freeBuffers(m_redoList);
    m_current = *record;
  }
  const QdrDb::ClassType type = classTypeOf(m_current.entityId.getPObject());
  const qdr::EntityClass* row = qdr::entityClass(type);
  if (row && row->undo && makeUndo(type)) m_undoList.push_front(m_current);
  return m_undoList.size();
}

std::size_t CQdrUndoHandler::AddRedo() {
  if (m_redoing) return 0;
  makeUndo(m_current.classType);
  m_redoList.push_front(m_current);
  return m_redoList.size();
}

bool CQdrUndoHandler::playAs(QdrDb::ClassType type, bool redo) {
  const qdr::EntityClass* row = qdr::entityClass(type);
  const qdr::EntityClass* own = qdr::entityClass(classTypeOf(m_current.entityId.getPObject()));
  const bool fits = row && own && row->undo && row->undo == own->undo;
  return fits ? row->undo(*this, redo) : true;
}

bool CQdrUndoHandler::playCurrent(bool redo) {
  if (isMark(m_current.operation) || m_current.entityId.isNull()) return true;
  if (m_current.classType == QdrDb::eClassEntity) return UndoEntity(redo);
  return playAs(m_current.classType, redo);
}

bool CQdrUndoHandler::refreshLater(CQdrDbEntity& entity) {
  if (!m_undoing && !m_redoing) return false;
  if (m_stale != &entity) refreshStale();
  m_stale = &entity;
  return true;
}

void CQdrUndoHandler::refreshStale() {
  if (m_stale) qdr::refreshGrips(*m_stale);
  m_stale = nullptr;
}

// The drawing is that of the last record played.
void CQdrUndoHandler::invalidateView() {
  if (CQdrDbDatabase* database = m_current.entityId.database()) database->invalidateView();
}

bool CQdrUndoHandler::Undo() {
  if (m_undoList.empty() || m_undoing || m_redoing) return false;
  const Running running(m_undoing);
  bool inGroup = false;
  bool done = true;
  do {
    m_current = m_undoList.front();
    if (m_current.operation == qdr::kUndoGroupBegin) inGroup = false;
    if (m_current.operation == qdr::kUndoGroupEnd) inGroup = true;
    done = playCurrent(false);
    if (done) {
      m_undoList.pop_front();
      AddRedo();
    }
  } while (done && (m_current.continued != 0 || inGroup) && !m_undoList.empty());
  refreshStale();
  invalidateView();
  return done;
}

bool CQdrUndoHandler::Redo() {
  if (m_redoList.empty() || m_undoing || m_redoing) return false;
  const Running running(m_redoing);
  bool inGroup = false;
  bool done = true;
  m_current = m_redoList.front();
  do {
    if (m_current.operation == qdr::kUndoGroupEnd) inGroup = false;
    if (m_current.operation == qdr::kUndoGroupBegin) inGroup = true;
    done = playCurrent(true);
    if (done) {
      m_redoList.pop_front();
      AddUndo(nullptr);
      if (!m_redoList.empty()) m_current = m_redoList.front();
    }
  } while (done && (m_current.continued != 0 || inGroup) && !m_redoList.empty());
  refreshStale();
  invalidateView();
  return done;
}

std::size_t CQdrUndoHandler::UndoPop() {
  std::size_t dropped = 0;
  while (!m_undoList.empty()) {
    m_current = m_undoList.front();
    m_undoList.pop_front();
    ++dropped;
    if (m_current.operation == qdr::kUndoCommandMark) break;
  }
  return dropped;
}

void CQdrUndoHandler::forgetEntities(const qdr::EntitySet& gone) {
  dropFrom(m_undoList, m_redoList, [&gone](const tagUndoEditEntity& record) {
    return gone.contains(record.entityId.getPObject());
  });
}

void CQdrUndoHandler::forgetRecord(const CQdrDbObject* removed) {
  dropFrom(m_undoList, m_redoList, [removed](const tagUndoEditEntity& record) {
    return record.oldId == removed || record.extraId == removed;
  });
}

void CQdrUndoHandler::replaceRecord(const CQdrDbObject* from, const CQdrDbObject* to) {
  replaceIn(m_undoList, from, to);
  replaceIn(m_redoList, from, to);
}
