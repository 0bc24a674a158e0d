#include "database/entity_table_record.h"

#include "database/ent_set_iterator.h"

CQdrDbEntityTableRecord::CQdrDbEntityTableRecord(CQdrDbDatabase* database)
    : CQdrDbTableRecord(database) {
  m_classType = QdrDb::eClassColorTableRecord;
}

std::size_t CQdrDbEntityTableRecord::addEntity(const CQdrDbObjectId& id) {
  if (!id.isNull()) qdr::insertId(m_entities, id);
  return m_entities.size();
}

std::size_t CQdrDbEntityTableRecord::removeEntity(const CQdrDbObjectId& id) {
  qdr::eraseId(m_entities, id);
  return m_entities.size();
}

bool CQdrDbEntityTableRecord::newIterator(CQdrDbEntSetIterator*& iterator, bool atStart) {
  iterator = new CQdrDbEntSetIterator(&m_entities);
  iterator->start(atStart);
  return true;
}
