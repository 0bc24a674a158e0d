#include "database/ltype_table_record.h"

#include <cmath>
#include <cwchar>

#include "database/database.h"
#include "database/file/field_stream.h"
#include "database/fixed_text.h"

CQdrDbLTypeTableRecord::CQdrDbLTypeTableRecord(CQdrDbDatabase* database)
    : CQdrDbLayerReferredRecord(database) {
  m_classType = QdrDb::eClassLTypeTableRecord;
}

CQdrDbLTypeTableRecord& CQdrDbLTypeTableRecord::operator=(const CQdrDbLTypeTableRecord& source) {
  if (this == &source) return *this;
  std::wcscpy(m_name, source.m_name);
  std::wcscpy(m_description, source.m_description);
  setDashes(source.m_dashes);
  m_patternLength = source.m_patternLength;
  return *this;
}

void CQdrDbLTypeTableRecord::setDashes(const std::vector<double>& dashes) {
  m_dashes = dashes;
  m_patternLength = 0.0;
  m_devicePattern = {};
}

double CQdrDbLTypeTableRecord::getDashAt(int index) const {
  return index < 0 || index >= getDashCount() ? 0.0 : m_dashes[static_cast<std::size_t>(index)];
}

double CQdrDbLTypeTableRecord::getPatternLength() {
  if (m_patternLength != 0.0) return m_patternLength;
  for (const double dash : m_dashes)
    m_patternLength += std::abs(dash);
  return m_patternLength;
}

void CQdrDbLTypeTableRecord::setDescription(const wchar_t* description) {
  qdr::copyText(m_description, description);
}

const std::uint32_t* CQdrDbLTypeTableRecord::getDevicePattern(double scale) {
  if (m_dashes.size() < 2) return nullptr;
  if (m_devicePattern[0] != 0) return m_devicePattern.data();
  const double factor = scale * (m_database ? m_database->m_vars.linetypeScale : 1.0);
  for (std::size_t i = 0; i < m_dashes.size() && i < m_devicePattern.size(); ++i) {
    const double length = std::round(std::abs(m_dashes[i]) * factor);
    m_devicePattern[i] = static_cast<std::uint32_t>(qdr::truncToInt(length));
  }
  return m_devicePattern.data();
}

template <class Stream>
void CQdrDbLTypeTableRecord::fields(Stream& stream) {
  stream.template list<std::int32_t>(m_dashes, sizeof(double),
                                     [](Stream& each, double& dash) { each.number(dash); });
  stream.number(m_patternLength);
  stream.text(m_description);
}

void CQdrDbLTypeTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbLTypeTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
  m_devicePattern = {};
}
