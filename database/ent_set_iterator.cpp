#include "database/ent_set_iterator.h"

#include <iterator>

#include "database/entity_access.h"

CQdrDbEntSetIterator::CQdrDbEntSetIterator(std::set<CQdrDbObjectId>* ids)
    : m_ids(ids), m_position(ids->end()) {}

void CQdrDbEntSetIterator::start(bool atStart) {
  if (atStart) m_position = m_ids->begin();
}

void CQdrDbEntSetIterator::step(bool forward) {
  if (forward) {
    if (m_position != m_ids->end()) ++m_position;
  } else {
    m_position = m_position == m_ids->begin() ? m_ids->end() : std::prev(m_position);
  }
}

bool CQdrDbEntSetIterator::getEntityId(CQdrDbObjectId& id) const {
  if (done()) return false;
  id = *m_position;
  return !id.isNull();
}

bool CQdrDbEntSetIterator::getEntity(CQdrDbEntity*& entity, bool includeErased) const {
  entity = nullptr;
  if (done()) return false;
  if (!includeErased && m_position->isErased()) return false;
  entity = qdr::asEntity(*m_position);
  return entity != nullptr;
}

bool CQdrDbEntSetIterator::seek(const CQdrDbObjectId& id) {
  m_position = m_ids->find(id);
  if (!done() && *m_position != id) m_position = m_ids->end();
  return !done();
}

bool CQdrDbEntSetIterator::seek(const CQdrDbEntity* entity) {
  return seek(CQdrDbObjectId(qdr::asObject(entity)));
}
