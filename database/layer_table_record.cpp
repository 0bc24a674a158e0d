#include "database/layer_table_record.h"

#include <cwchar>

#include "database/color_index.h"
#include "database/color_table_record.h"
#include "database/database.h"
#include "database/file/field_stream.h"
#include "database/file/hard_id_map.h"
#include "database/ltype_table_record.h"

namespace {

constexpr const wchar_t* kBaseLayerName = L"0";

// Takes a layer out of the referring layers of the record left and enters it in those of the one
// taken.
void moveReference(CQdrDbObjectId& reference, const CQdrDbObjectId& next,
                   const CQdrDbObjectId& layer) {
  if (auto* left = static_cast<CQdrDbLayerReferredRecord*>(reference.getPObject())) {
    left->removeLayerId(layer);
  }
  reference = next;
  if (auto* taken = static_cast<CQdrDbLayerReferredRecord*>(reference.getPObject())) {
    taken->addLayerId(layer);
  }
}

}  // namespace

CQdrDbLayerTableRecord::CQdrDbLayerTableRecord(CQdrDbDatabase* database)
    : CQdrDbReferredRecord(database) {
  m_classType = QdrDb::eClassLayerTableRecord;
}

CQdrDbLayerTableRecord& CQdrDbLayerTableRecord::operator=(const CQdrDbLayerTableRecord& source) {
  if (this == &source) return *this;
  std::wcscpy(m_name, source.m_name);
  m_layerStatus = source.m_layerStatus;
  m_lineWeight = source.m_lineWeight;
  return *this;
}

void CQdrDbLayerTableRecord::setName(wchar_t* name) {
  if (std::wcscmp(m_name, kBaseLayerName) == 0) {
    if (name && std::wcslen(name) >= kNameSize) name[kNameSize - 1] = L'\0';
    return;
  }
  CQdrDbReferredRecord::setName(name);
}

void CQdrDbLayerTableRecord::setBit(LayerStatus bit, bool on) {
  m_layerStatus = static_cast<std::uint16_t>(on ? m_layerStatus | bit : m_layerStatus & ~bit);
}

void CQdrDbLayerTableRecord::setStatus(std::uint8_t status) {
  m_layerStatus = static_cast<std::uint16_t>((m_layerStatus & 0xFF00) | status);
}

void CQdrDbLayerTableRecord::setColorId(const CQdrDbObjectId& id) {
  moveReference(m_colorId, id, objectId());
}

void CQdrDbLayerTableRecord::setLinetypeId(const CQdrDbObjectId& id) {
  moveReference(m_linetypeId, id, objectId());
}

unsigned long CQdrDbLayerTableRecord::getColorValue() const {
  return getColor(m_colorId) & 0xFFFFFF;
}

template <class Stream>
void CQdrDbLayerTableRecord::fields(Stream& stream) {
  CQdrDbObjectId color = m_colorId;
  CQdrDbObjectId linetype = m_linetypeId;
  stream.number(m_layerStatus);
  stream.reference(color, [this](std::uint64_t number) {
    return qdr::recordByNumber(m_database->m_colorTable, number);
  });
  stream.reference(linetype, [this](std::uint64_t number) {
    return qdr::recordByNumber(m_database->m_linetypeTable, number);
  });
  stream.number(m_lineWeight);
  if constexpr (Stream::kReads) {
    setColorId(color);
    setLinetypeId(linetype);
  }
}

void CQdrDbLayerTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbLayerTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}

void CQdrDbLayerTableRecord::setLineWeight(QdrDb::LineWeight weight) {
  m_lineWeight = weight;
  if (m_database) m_database->looksChanged();
}
