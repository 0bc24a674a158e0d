#include "database/color_table.h"

#include "database/color_index.h"
#include "database/database.h"
#include "database/entity_access.h"
#include "database/record_references.h"

namespace {

constexpr const wchar_t* kByLayerName = L"256";
constexpr int kDefaultIndices[] = {0, 1, 2, 3, 4, 5, 6, 7, 256};

CQdrDbColorTableRecord* recordOf(const CQdrDbObjectId& entityId) {
  const CQdrDbEntity* entity = qdr::asEntity(entityId);
  if (!entity) return nullptr;
  return static_cast<CQdrDbColorTableRecord*>(qdr::colorIdOf(*entity).getPObject());
}

// Layers of the colour `from` take the colour `to`, which may be null.
void moveLayers(CQdrDbDatabase* database, const CQdrDbTableRecord& from, const CQdrDbObjectId& to) {
  if (!database) return;
  for (const auto& [name, id] : database->m_layerTable.records()) {
    auto* layer = static_cast<CQdrDbLayerTableRecord*>(id.getPObject());
    if (layer->getColorId() == &from) layer->setColorId(to);
  }
}

}  // namespace

CQdrDbColorTable::CQdrDbColorTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassColorTable;
}

void CQdrDbColorTable::initColorTable() {
  for (const int index : kDefaultIndices) {
    auto* record = new CQdrDbColorTableRecord(m_database);
    record->setOwnerId(objectId());
    CString name;
    name.Format(L"%d", index);
    record->setName(name.GetString());
    record->setColor(_getColorValueByIndex(index));
    add(record);
    m_current = record;
  }
}

bool CQdrDbColorTable::getRecord(unsigned long value, CQdrDbColorTableRecord*& out, bool) const {
  for (const auto& [name, id] : m_records) {
    auto* record = static_cast<CQdrDbColorTableRecord*>(id.getPObject());
    if (record->getColor() != value) continue;
    out = record;
    return true;
  }
  return false;
}

void CQdrDbColorTable::addRefEntity(const CQdrDbObjectId& id) {
  if (CQdrDbColorTableRecord* record = recordOf(id)) record->addRefEntity(id);
}

void CQdrDbColorTable::removeEntity(const CQdrDbObjectId& id) {
  if (CQdrDbColorTableRecord* record = recordOf(id)) record->removeRefEntity(id);
}

bool CQdrDbColorTable::removeRecord(const wchar_t* name) {
  CQdrDbColorTableRecord* record = nullptr;
  if (!getRecord(name, record) || CString(name) == kByLayerName) return false;
  return record->isUnused() && removeAndDelete(name);
}

void CQdrDbColorTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  moveLayers(m_database, from, &to);
  qdr::followRecord(m_database, qdr::kColorReference, &from, &to);
}

void CQdrDbColorTable::onRemoved(CQdrDbTableRecord& record) {
  CQdrDbColorTableRecord* fallback = nullptr;
  getRecord(kByLayerName, fallback);
  if (m_current == &record) m_current = fallback;
  moveLayers(m_database, record, CQdrDbObjectId::kNULL);
  qdr::followRecord(m_database, qdr::kColorReference, &record, fallback);
}
