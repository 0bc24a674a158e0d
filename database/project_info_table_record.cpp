#include "database/project_info_table_record.h"

#include "database/auto_name.h"
#include "database/database.h"
#include "database/file/field_stream.h"

CQdrDbProjectInfoTableRecord::CQdrDbProjectInfoTableRecord(CQdrDbDatabase* database)
    : CQdrDbTableRecord(database) {
  m_classType = QdrDb::eClassProjectInfoTableRecord;
  m_status = eInvisible;
}

void CQdrDbProjectInfoTableRecord::SetAutoName(wchar_t* buffer) {
  if (!m_database) return;
  qdr::writeAutoName(buffer, m_database->m_projectInfoTable.GetNextName());
  setName(buffer);
}

template <class Stream>
void CQdrDbProjectInfoTableRecord::fields(Stream& stream) {
  stream.number(m_first);
  stream.number(m_second);
  stream.text(m_text);
}

void CQdrDbProjectInfoTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbProjectInfoTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}
