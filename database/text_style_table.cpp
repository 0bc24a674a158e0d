#include "database/text_style_table.h"

#include "database/database.h"
#include "database/entity_access.h"
#include "database/record_references.h"

namespace {

constexpr const wchar_t* kStandardName = L"STANDARD";

CQdrDbTextStyleTableRecord* recordOf(const CQdrDbObjectId& entityId) {
  const CQdrDbEntity* entity = qdr::asEntity(entityId);
  if (!entity) return nullptr;
  return static_cast<CQdrDbTextStyleTableRecord*>(qdr::textStyleIdOf(*entity).getPObject());
}

}  // namespace

CQdrDbTextStyleTable::CQdrDbTextStyleTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassTextStyleTable;
}

void CQdrDbTextStyleTable::initTextStyleTable() {
  auto* record = new CQdrDbTextStyleTableRecord(m_database);
  record->setOwnerId(objectId());
  record->setName(kStandardName);
  record->setFileName(L"KOSDICES");
  record->setBigFileName(L"KOSDICHS");
  add(record);
  m_current = record;
}

void CQdrDbTextStyleTable::addRefEntity(const CQdrDbObjectId& id) {
  if (CQdrDbTextStyleTableRecord* record = recordOf(id)) record->addRefEntity(id);
}

void CQdrDbTextStyleTable::removeEntity(const CQdrDbObjectId& id) {
  if (CQdrDbTextStyleTableRecord* record = recordOf(id)) record->removeRefEntity(id);
}

bool CQdrDbTextStyleTable::removeRecord(const wchar_t* name) {
  CQdrDbTextStyleTableRecord* record = nullptr;
  if (!getRecord(name, record) || CString(name) == kStandardName) return false;
  return record->getNumEntity() == 0 && removeAndDelete(name);
}

void CQdrDbTextStyleTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  qdr::followRecord(m_database, qdr::kTextStyleReference, &from, &to);
}

void CQdrDbTextStyleTable::onRemoved(CQdrDbTableRecord& record) {
  CQdrDbTextStyleTableRecord* fallback = nullptr;
  getRecord(kStandardName, fallback);
  if (m_current == &record) m_current = fallback;
  qdr::followRecord(m_database, qdr::kTextStyleReference, &record, fallback);
}
