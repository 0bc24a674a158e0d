#include "database/revision_table_record.h"

#include "database/auto_name.h"
#include "database/database.h"
#include "database/file/field_stream.h"

CQdrDbRevisionTableRecord::CQdrDbRevisionTableRecord(CQdrDbDatabase* database)
    : CQdrDbTableRecord(database) {
  m_classType = QdrDb::eClassRevisionTableRecord;
  m_status = eInvisible;
}

void CQdrDbRevisionTableRecord::SetAutoName(wchar_t* buffer) {
  if (!m_database) return;
  qdr::writeAutoName(buffer, m_database->m_projectInfoTable.GetNextName());
  setName(buffer);
}

template <class Stream>
void CQdrDbRevisionTableRecord::fields(Stream& stream) {
  stream.number(m_number);
  stream.text(m_firstText);
  stream.text(m_secondText);
  stream.text(m_thirdText);
}

void CQdrDbRevisionTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbRevisionTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}
