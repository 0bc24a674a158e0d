#include "database/project_info_table.h"

#include "database/file/dropped_records.h"
#include "database/file/field_stream.h"

CQdrDbProjectInfoTable::CQdrDbProjectInfoTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassProjectInfoTable;
}

bool CQdrDbProjectInfoTable::removeRecord(const wchar_t* name) {
  return removeAndDelete(name);
}

void CQdrDbProjectInfoTable::onAdded(CQdrDbTableRecord& record) {
  m_current = static_cast<CQdrDbProjectInfoTableRecord*>(&record);
  ++m_nextNumber;
}

void CQdrDbProjectInfoTable::save() {
  qdr::FieldWriter stream(file());
  stream.text(m_firstText);
  stream.text(m_secondText);
  saveRecords();
  stream.number(m_nextNumber);
  saveEnd();
}

void CQdrDbProjectInfoTable::read() {
  qdr::FieldReader stream(file());
  stream.text(m_firstText);
  stream.text(m_secondText);
  qdr::readAndDrop<CQdrDbProjectInfoTableRecord>(m_database, file());
  stream.number(m_nextNumber);
  readEnd();
}
