#include "database/entity_table.h"

#include <cstddef>
#include <cwchar>

CQdrDbEntityTable::CQdrDbEntityTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassEntityTable;
}

bool CQdrDbEntityTable::has(QdrDb::ClassType type, wchar_t* nameOut,
                            CQdrDbEntityTableRecord*& out) const {
  if (const wchar_t* keyword = qdr::entityKeyword(type)) std::wcscpy(nameOut, keyword);
  return getRecord(nameOut, out);
}

CQdrDbEntityTableRecord* CQdrDbEntityTable::recordOf(const CQdrDbObjectId& id) {
  const QdrDb::ClassType type = classTypeOf(id.getPObject());
  const wchar_t* keyword = qdr::entityKeyword(type);
  if (!keyword) return nullptr;
  CQdrDbEntityTableRecord*& known = m_byType[static_cast<std::size_t>(type)];
  if (known && std::wcscmp(known->getName(), keyword) != 0) known = nullptr;
  if (!known) getRecord(keyword, known);
  return known;
}

bool CQdrDbEntityTable::addEntity(const CQdrDbObjectId& id) {
  const wchar_t* keyword = qdr::entityKeyword(classTypeOf(id.getPObject()));
  if (!keyword) return false;
  CQdrDbEntityTableRecord* record = recordOf(id);
  if (!record) {
    record = new CQdrDbEntityTableRecord(m_database);
    record->setOwnerId(objectId());
    record->setName(keyword);
    add(record);
  }
  record->addEntity(id);
  return true;
}

bool CQdrDbEntityTable::removeEntity(const CQdrDbObjectId& id) {
  CQdrDbEntityTableRecord* record = recordOf(id);
  if (!record) return false;
  record->removeEntity(id);
  return true;
}

bool CQdrDbEntityTable::removeRecord(const wchar_t* name) {
  CQdrDbEntityTableRecord* record = nullptr;
  if (!getRecord(name, record) || record->getNumEntity() > 0) return false;
  return removeAndDelete(name);
}

void CQdrDbEntityTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  auto& replaced = static_cast<CQdrDbEntityTableRecord&>(from);
  auto& successor = static_cast<CQdrDbEntityTableRecord&>(to);
  successor.getEntitySet().merge(replaced.getEntitySet());
  m_byType.fill(nullptr);
}

void CQdrDbEntityTable::onRemoved(CQdrDbTableRecord& record) {
  TypedTable::onRemoved(record);
  m_byType.fill(nullptr);
}
