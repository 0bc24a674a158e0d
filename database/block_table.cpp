#include "database/block_table.h"

#include <utility>
#include <vector>

#include "database/database.h"
#include "database/entity_access.h"

CQdrDbBlockTable::CQdrDbBlockTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassBlockTable;
}

CQdrDbBlockTableRecord* CQdrDbBlockTable::addSpace(const wchar_t* name) {
  auto* space = new CQdrDbBlockTableRecord(m_database);
  space->setName(name);
  space->setOwnerId(objectId());
  space->initDisplayRec();
  add(space);
  return space;
}

void CQdrDbBlockTable::initBlockTable(bool withPaperSpace) {
  if (withPaperSpace) addSpace(kPaperSpace);
  m_current = addSpace(kModelSpace);
}

bool CQdrDbBlockTable::SetCurentSpace(const wchar_t* name) {
  CQdrDbBlockTableRecord* space = nullptr;
  if (getRecord(name, space)) {
    m_current = space;
    space->initDisplayRec();
  }
  // No caller reads the answer; it is false for a space that was found as well.
  return false;
}

bool CQdrDbBlockTable::removeRecord(const wchar_t* name) {
  return removeAndDelete(name);
}

CQdrDbObjectId CQdrDbBlockTable::getObjectId(std::uint64_t hardId) {
  if (m_current)
    for (const CQdrDbObjectId& id : m_current->getEntitySet())
      if (id == hardId) return id;
  return CQdrDbObjectId::kNULL;
}

void CQdrDbBlockTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  auto& old = static_cast<CQdrDbBlockTableRecord&>(from);
  auto& successor = static_cast<CQdrDbBlockTableRecord&>(to);
  if (!successor.getDisplayRecord()) successor.setDisplayRecord(old.getDisplayRecord());
  if (!m_database) return;
  m_database->forgetEntities(old.ownedEntities());
  const std::vector<CQdrDbObjectId> inserts(old.getReferenceSet().begin(),
                                            old.getReferenceSet().end());
  for (const CQdrDbObjectId& id : inserts)
    if (CQdrDbEntity* insert = qdr::asEntity(id)) qdr::setUsedRecordOf(*insert, &successor);
}

void CQdrDbBlockTable::onRemoved(CQdrDbTableRecord& record) {
  TypedTable::onRemoved(record);
  if (!m_current) getRecord(kModelSpace, m_current);
  if (m_database)
    m_database->forgetEntities(static_cast<CQdrDbBlockTableRecord&>(record).ownedEntities());
}
