#include "database/revision_table.h"

#include "database/file/dropped_records.h"
#include "database/file/field_stream.h"

CQdrDbRevisionTable::CQdrDbRevisionTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassBlockTable;  // the two tables share the number
}

bool CQdrDbRevisionTable::removeRecord(const wchar_t* name) {
  return removeAndDelete(name);
}

void CQdrDbRevisionTable::onAdded(CQdrDbTableRecord& record) {
  m_current = static_cast<CQdrDbRevisionTableRecord*>(&record);
}

void CQdrDbRevisionTable::save() {
  saveRecords();
  qdr::FieldWriter(file()).number(m_nextNumber);
  saveEnd();
}

void CQdrDbRevisionTable::read() {
  qdr::readAndDrop<CQdrDbRevisionTableRecord>(m_database, file());
  qdr::FieldReader(file()).number(m_nextNumber);
  readEnd();
}
