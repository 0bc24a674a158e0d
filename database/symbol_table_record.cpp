#include "database/symbol_table_record.h"

#include <cwchar>

#include "database/auto_name.h"
#include "database/database.h"
#include "database/file/field_stream.h"

CQdrDbSymbolTableRecord::CQdrDbSymbolTableRecord(CQdrDbDatabase* database)
    : CQdrDbReferredRecord(database) {
  m_classType = QdrDb::eClassSymbolTableRecord;
  m_status = eInvisible;
}

CQdrDbSymbolTableRecord& CQdrDbSymbolTableRecord::operator=(const CQdrDbSymbolTableRecord& source) {
  if (this == &source) return *this;
  std::wcscpy(m_name, source.m_name);
  m_base = source.m_base;
  m_points = source.m_points;
  return *this;
}

void CQdrDbSymbolTableRecord::SetAutoName(wchar_t* buffer) {
  if (!m_database) return;
  qdr::writeAutoName(buffer, m_database->m_symbolTable.GetNextName());
  setName(buffer);
}

CQdrDbSymPoint CQdrDbSymbolTableRecord::GetPointAt(std::size_t index) const {
  return index < m_points.size() ? m_points[index] : CQdrDbSymPoint();
}

template <class Stream>
void CQdrDbSymbolTableRecord::fields(Stream& stream) {
  constexpr std::size_t kPointBytes = 21;
  stream.part(m_base);
  stream.template list<std::uint32_t>(
      m_points, kPointBytes, [](Stream& each, CQdrDbSymPoint& point) { each.part(point); });
}

void CQdrDbSymbolTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbSymbolTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}
