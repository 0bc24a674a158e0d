#include "database/table_iterator.h"

#include <algorithm>

CQdrDbTableIterator::CQdrDbTableIterator(CQdrDbTable* table)
    : m_table(table), m_position(table->records().end()) {}

void CQdrDbTableIterator::start(bool atStart) {
  if (atStart) m_position = m_table->records().begin();
}

void CQdrDbTableIterator::step(bool forward) {
  const CQdrDbTable::Records& records = m_table->records();
  if (forward) {
    if (m_position != records.end()) ++m_position;
  } else {
    m_position = m_position == records.begin() ? records.end() : std::prev(m_position);
  }
}

bool CQdrDbTableIterator::getRecordId(CQdrDbObjectId& id) const {
  if (done()) return false;
  id = m_position->second;
  return !id.isNull();
}

bool CQdrDbTableIterator::getRecord(CQdrDbTableRecord*& record, bool includeErased) const {
  record = nullptr;
  if (done() || m_position->second.isNull()) return false;
  if (!includeErased && m_position->second.isErased()) return false;
  record = static_cast<CQdrDbTableRecord*>(m_position->second.getPObject());
  return true;
}

bool CQdrDbTableIterator::seek(const CQdrDbObjectId& id) {
  m_position = std::ranges::find_if(m_table->records(),
                                    [&](const auto& entry) { return entry.second == id; });
  return !done();
}

bool CQdrDbTableIterator::seek(const CQdrDbTableRecord* record) {
  return seek(CQdrDbObjectId(record));
}
