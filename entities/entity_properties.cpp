#include <memory>

#include "database/color_index.h"
#include "database/database.h"
#include "entities/entity.h"

namespace {

// Names of the records that stand in for what a table does not have.
constexpr const wchar_t* kLayerZero = L"0";
constexpr const wchar_t* kByLayer = L"ByLayer";
constexpr int kColorIndexByLayer = 256;

template <class Record>
Record* recordOf(const CQdrDbObjectId& id) {
  return static_cast<Record*>(id.getPObject());
}

CQdrDbLayerTableRecord* layerRecord(const CQdrDbObjectId& id) {
  return recordOf<CQdrDbLayerTableRecord>(id);
}

CString colorName(int index) {
  CString name;
  name.Format(L"%d", index);
  return name;
}

// The record of a name, searched in all cases; null when the table has none.
CQdrDbObjectId find(const CQdrDbTable& table, const wchar_t* name) {
  CQdrDbObjectId found;
  return table.getAt(name, found) ? found : CQdrDbObjectId();
}

CQdrDbObjectId newColorRecord(CQdrDbDatabase& database, int index) {
  auto record = std::make_unique<CQdrDbColorTableRecord>(&database);
  record->setColor(_getColorValueByIndex(index));
  record->setOwnerId(database.ColorTable());
  record->setName(static_cast<const wchar_t*>(colorName(index)));
  CQdrDbObjectId id;
  database.m_colorTable.add(id, record.release());
  return id;
}

// Moves an entity of the drawing from the referring set of one record to that of another.
template <class Record>
void moveReference(const CQdrDbObjectId& entity, const CQdrDbObjectId& from,
                   const CQdrDbObjectId& to) {
  if (from == to) return;
  if (Record* record = recordOf<Record>(from)) record->removeRefEntity(entity);
  if (Record* record = recordOf<Record>(to)) record->addRefEntity(entity);
}

}  // namespace

CString CQdrDbEntity::Layer() const {
  const CQdrDbLayerTableRecord* layer = layerRecord(m_layerId);
  return layer ? CString(layer->getName()) : CString();
}

CString CQdrDbEntity::LineType() const {
  const auto* own = recordOf<CQdrDbLTypeTableRecord>(m_lineTypeId);
  if (!own) return CString();
  const CString name(own->getName());
  const CQdrDbLayerTableRecord* layer = layerRecord(m_layerId);
  if (name.CompareNoCase(kByLayer) != 0 || !layer) return name;
  const auto* inherited = recordOf<CQdrDbLTypeTableRecord>(layer->getLinetypeId());
  return inherited ? CString(inherited->getName()) : name;
}

int CQdrDbEntity::ColorIndex() const {
  const CQdrDbColorTableRecord* own = Color();
  const int index = own ? own->colorIndex() : kColorIndexByLayer;
  const CQdrDbLayerTableRecord* layer = layerRecord(m_layerId);
  if (index != kColorIndexByLayer || !layer) return index;
  const auto* inherited = recordOf<CQdrDbColorTableRecord>(layer->getColorId());
  return inherited ? inherited->colorIndex() : index;
}

CQdrDbColorTableRecord* CQdrDbEntity::Color() const {
  return recordOf<CQdrDbColorTableRecord>(m_colorId);
}

bool CQdrDbEntity::isVisiable() const {
  if (!CQdrDbObject::isVisiable()) return false;
  const CQdrDbLayerTableRecord* layer = layerRecord(m_layerId);
  return layer && !layer->isOff();
}

bool CQdrDbEntity::setLayer(const CQdrDbObjectId& layerId) {
  if (m_dbEntity) moveReference<CQdrDbLayerTableRecord>(objectId(), m_layerId, layerId);
  m_layerId = layerId;
  looksChanged();
  return true;
}

bool CQdrDbEntity::setLayer(const CString& name) {
  const CQdrDbObjectId found = m_database ? find(m_database->m_layerTable, name) : CQdrDbObjectId();
  return !found.isNull() && setLayer(found);
}

bool CQdrDbEntity::setLineType(const CQdrDbObjectId& lineTypeId, bool) {
  if (m_dbEntity) moveReference<CQdrDbLTypeTableRecord>(objectId(), m_lineTypeId, lineTypeId);
  m_lineTypeId = lineTypeId;
  looksChanged();
  return true;
}

bool CQdrDbEntity::setLineType(const CString& name, bool) {
  const CQdrDbObjectId found =
      m_database ? find(m_database->m_linetypeTable, name) : CQdrDbObjectId();
  return !found.isNull() && setLineType(found);
}

bool CQdrDbEntity::setColor(const CQdrDbObjectId& colorId, bool) {
  if (m_dbEntity) moveReference<CQdrDbColorTableRecord>(objectId(), m_colorId, colorId);
  m_colorId = colorId;
  looksChanged();
  return true;
}

bool CQdrDbEntity::setColor(CQdrDbColorTableRecord* record, bool) {
  return setColor(CQdrDbObjectId(record));
}

bool CQdrDbEntity::setColor(int index, bool) {
  if (!m_database) return false;
  const CQdrDbObjectId found = find(m_database->m_colorTable, colorName(index));
  return setColor(found.isNull() ? newColorRecord(*m_database, index) : found);
}

bool CQdrDbEntity::setLineWeight(QdrDb::LineWeight weight, bool) {
  m_lineWeight = weight;
  looksChanged();
  return true;
}

void CQdrDbEntity::SetEntProperty() {
  if (m_database) {
    m_lineWeight = static_cast<QdrDb::LineWeight>(m_database->m_vars.currentLineWeight);
    m_colorId = m_database->m_currentColorId;
    m_lineTypeId = m_database->m_currentLinetypeId;
    m_layerId = m_database->m_currentLayerId;
  }
  m_boundaryTag = 0;
  m_dbEntity = m_highlighted = m_backgroundDraw = m_highlightDraw = false;
  ClearXData();
  freePen();
  m_penStale = true;
}

void CQdrDbEntity::SetEntPropertyToThis() {
  if (!m_database) return;
  const CQdrDbColorTableRecord* color = Color();
  const auto* lineType = recordOf<CQdrDbLTypeTableRecord>(m_lineTypeId);
  setColor(color ? color->colorIndex() : kColorIndexByLayer);
  if (!lineType || !setLineType(CString(lineType->getName()))) setLineType(CString(kByLayer));
  if (!setLayer(Layer())) setLayer(CString(kLayerZero));
}

void CQdrDbEntity::makeProperty() {
  std::vector<Property> rows;
  const CQdrDbColorTableRecord* color = Color();
  CString weight;
  weight.Format(L"%d", static_cast<int>(m_lineWeight));
  const auto data = [](const CQdrDbObjectId& id) {
    return reinterpret_cast<std::uintptr_t>(id.getPObject());
  };
  _makePropertyList(rows, L"Layer", Layer(), data(m_layerId), 0);
  _makePropertyList(rows, L"Color", color ? CString(color->getName()) : CString(), data(m_colorId),
                    0);
  _makePropertyList(rows, L"LineType", LineType(), data(m_lineTypeId), 0);
  _makePropertyList(rows, L"LineWeight", weight, static_cast<std::uintptr_t>(m_lineWeight), 0);
  properties()[L"General"] = std::move(rows);
}
