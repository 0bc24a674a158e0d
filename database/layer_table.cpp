#include "database/layer_table.h"

#include "database/database.h"
#include "database/entity_access.h"
#include "database/record_references.h"
#include "platform/system.h"

namespace {

constexpr const wchar_t* kBaseLayerName = L"0";

struct DefaultLayer {
  const wchar_t* name;
  const wchar_t* color;
};

constexpr DefaultLayer kDefaultLayers[] = {
    {L"PipeLine", L"1"},
    {L"WeldNum", L"7"},
    {L"Dimension", L"3"},
    {kBaseLayerName, L"7"},
};

CQdrDbLayerTableRecord* recordOf(const CQdrDbObjectId& entityId) {
  const CQdrDbEntity* entity = qdr::asEntity(entityId);
  if (!entity) return nullptr;
  return static_cast<CQdrDbLayerTableRecord*>(qdr::layerIdOf(*entity).getPObject());
}

// A layer that is about to die leaves the referring layers of its colour and linetype.
void leaveRecords(CQdrDbTableRecord& record) {
  auto& layer = static_cast<CQdrDbLayerTableRecord&>(record);
  layer.setColorId(CQdrDbObjectId::kNULL);
  layer.setLinetypeId(CQdrDbObjectId::kNULL);
}

}  // namespace

CQdrDbLayerTable::CQdrDbLayerTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassLayerTable;
}

void CQdrDbLayerTable::initLayerTable() {
  for (const DefaultLayer& row : kDefaultLayers) {
    auto* record = new CQdrDbLayerTableRecord(m_database);
    record->setOwnerId(objectId());
    record->setName(row.name);
    if (m_database) {
      CQdrDbObjectId color;
      CQdrDbObjectId linetype;
      m_database->m_colorTable.getAt(row.color, color);
      m_database->m_linetypeTable.getAt(L"CONTINUOUS", linetype);
      record->setColorId(color);
      record->setLinetypeId(linetype);
    }
    add(record);
    m_current = record;
  }
}

void CQdrDbLayerTable::addRefEntity(const CQdrDbObjectId& id) {
  if (CQdrDbLayerTableRecord* record = recordOf(id)) record->addRefEntity(id);
}

void CQdrDbLayerTable::removeEntity(const CQdrDbObjectId& id) {
  if (CQdrDbLayerTableRecord* record = recordOf(id)) record->removeRefEntity(id);
}

bool CQdrDbLayerTable::removeRecord(const wchar_t* name) {
  if (name && CString(name) == kBaseLayerName) {
    AfxMessageBox(L"Cannot remove base layer.");
    return false;
  }
  CQdrDbLayerTableRecord* record = nullptr;
  if (!getRecord(name, record)) return false;
  return record->getNumEntity() == 0 && removeAndDelete(name);
}

void CQdrDbLayerTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  leaveRecords(from);
  qdr::followRecord(m_database, qdr::kLayerReference, &from, &to);
}

void CQdrDbLayerTable::onRemoved(CQdrDbTableRecord& record) {
  CQdrDbLayerTableRecord* fallback = nullptr;
  getRecord(kBaseLayerName, fallback);
  if (m_current == &record) m_current = fallback;
  leaveRecords(record);
  qdr::followRecord(m_database, qdr::kLayerReference, &record, fallback);
}
