#include "interaction/display/display_table.h"

#include <memory>

#include "database/database.h"

CQdrDbDisplayTable::CQdrDbDisplayTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassDisplayTable;
}

void CQdrDbDisplayTable::initDisplayTable() {
  if (!m_database) return;
  auto record = std::make_unique<CQdrDbDisplayTableRecord>(m_database);
  record->setOwnerId(objectId());
  record->setLimits(CQdrGePoint2d(m_database->m_vars.limitsMin.x, m_database->m_vars.limitsMin.y),
                    CQdrGePoint2d(m_database->m_vars.limitsMax.x, m_database->m_vars.limitsMax.y));
  CQdrDbDisplayTableRecord* const offered = record.get();
  if (add(offered)) record.release();
}

bool CQdrDbDisplayTable::setCurrentRecord(const wchar_t* name) {
  CQdrDbDisplayTableRecord* record = nullptr;
  return getRecord(name, record) && setCurrentRecord(record);
}

bool CQdrDbDisplayTable::setCurrentRecord(CQdrDbDisplayTableRecord* record) {
  if (!record) return false;
  m_previous = m_current;
  m_current = record;
  return true;
}

bool CQdrDbDisplayTable::addEntity(const CQdrDbObjectId& id) {
  if (m_current) m_current->addEntity(id);
  return true;
}

void CQdrDbDisplayTable::rebindBlocks(const CQdrDbTableRecord& from, CQdrDbDisplayTableRecord* to) {
  if (!m_database) return;
  for (const auto& [name, id] : m_database->m_blockTable.records()) {
    auto* block = static_cast<CQdrDbBlockTableRecord*>(id.getPObject());
    if (block->getDisplayRecord() == &from) block->setDisplayRecord(to);
  }
}

void CQdrDbDisplayTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  auto& successor = static_cast<CQdrDbDisplayTableRecord&>(to);
  if (m_previous == &from) m_previous = &successor;
  successor.getDisplayedIdSet().merge(
      static_cast<CQdrDbDisplayTableRecord&>(from).getDisplayedIdSet());
  rebindBlocks(from, &successor);
}

void CQdrDbDisplayTable::onRemoved(CQdrDbTableRecord& record) {
  TypedTable::onRemoved(record);
  if (m_previous == &record) m_previous = nullptr;
  rebindBlocks(record, nullptr);
}
