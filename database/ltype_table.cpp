#include "database/ltype_table.h"

#include <vector>

#include "database/database.h"
#include "database/entity_access.h"
#include "database/record_references.h"

namespace {

constexpr const wchar_t* kContinuousName = L"CONTINUOUS";
constexpr const wchar_t* kByLayerName = L"ByLayer";

struct DefaultLinetype {
  const wchar_t* name;
  const wchar_t* description;
  double patternLength;
  std::vector<double> dashes;
};

const std::vector<DefaultLinetype>& defaultLinetypes() {
  static const std::vector<DefaultLinetype> rows = {
      {kContinuousName, L"______________________________", 0.0, {0.0}},
      {kByLayerName, L"", 0.0, {0.0}},
      {L"ByBlock", L"", 0.0, {0.0}},
      {L"Hidden", L"- - - - - - - -", 1.5, {1.0, -0.5}},
  };
  return rows;
}

CQdrDbLTypeTableRecord* recordOf(const CQdrDbObjectId& entityId) {
  const CQdrDbEntity* entity = qdr::asEntity(entityId);
  if (!entity) return nullptr;
  return static_cast<CQdrDbLTypeTableRecord*>(qdr::linetypeIdOf(*entity).getPObject());
}

// Layers of the linetype `from` take the linetype `to`, which may be null.
void moveLayers(CQdrDbDatabase* database, const CQdrDbTableRecord& from, const CQdrDbObjectId& to) {
  if (!database) return;
  for (const auto& [name, id] : database->m_layerTable.records()) {
    auto* layer = static_cast<CQdrDbLayerTableRecord*>(id.getPObject());
    if (layer->getLinetypeId() == &from) layer->setLinetypeId(to);
  }
}

}  // namespace

CQdrDbLTypeTable::CQdrDbLTypeTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassLTypeTable;
}

void CQdrDbLTypeTable::initLinetypeTable() {
  for (const DefaultLinetype& row : defaultLinetypes()) {
    auto* record = new CQdrDbLTypeTableRecord(m_database);
    record->setOwnerId(objectId());
    record->setName(row.name);
    record->setDescription(row.description);
    record->setDashes(row.dashes);
    record->setPatternLength(row.patternLength);
    add(record);
  }
  getRecord(kByLayerName, m_current);
}

void CQdrDbLTypeTable::addRefEntity(const CQdrDbObjectId& id) {
  if (CQdrDbLTypeTableRecord* record = recordOf(id)) record->addRefEntity(id);
}

void CQdrDbLTypeTable::removeEntity(const CQdrDbObjectId& id) {
  if (CQdrDbLTypeTableRecord* record = recordOf(id)) record->removeRefEntity(id);
}

bool CQdrDbLTypeTable::removeRecord(const wchar_t* name) {
  CQdrDbLTypeTableRecord* record = nullptr;
  if (!getRecord(name, record) || CString(name) == kContinuousName) return false;
  return record->isUnused() && removeAndDelete(name);
}

void CQdrDbLTypeTable::onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) {
  TypedTable::onReplaced(from, to);
  moveLayers(m_database, from, &to);
  qdr::followRecord(m_database, qdr::kLinetypeReference, &from, &to);
}

void CQdrDbLTypeTable::onRemoved(CQdrDbTableRecord& record) {
  CQdrDbLTypeTableRecord* fallback = nullptr;
  getRecord(kByLayerName, fallback);
  if (m_current == &record) m_current = fallback;
  moveLayers(m_database, record, CQdrDbObjectId::kNULL);
  qdr::followRecord(m_database, qdr::kLinetypeReference, &record, fallback);
}
