#include "database/block_table_record.h"

#include <utility>

#include "database/database.h"
#include "database/ent_set_iterator.h"
#include "database/entity_access.h"
#include "platform/wide_string.h"

namespace {

// The spaces show themselves as soon as they have a display record; a definition does not.
bool namesSpace(const CString& name) {
  return name.CompareNoCase(CQdrDbBlockTable::kModelSpace) == 0 ||
         name.Find(CQdrDbBlockTable::kPaperSpace) == 0;
}

}  // namespace

CQdrDbBlockTableRecord::CQdrDbBlockTableRecord(CQdrDbDatabase* database)
    : CQdrDbTableRecord(database) {
  m_classType = QdrDb::eClassBlockTableRecord;
  m_status = eInvisible;
}

CQdrDbBlockTableRecord::~CQdrDbBlockTableRecord() {
  // The set compares living objects, so it is empty before the first of them dies.
  std::vector<CQdrDbObject*> doomed(m_aside.begin(), m_aside.end());
  for (const qdr::IdSet* ids : {&m_entitySet, &m_attDefSet})
    for (const CQdrDbObjectId& id : *ids)
      doomed.push_back(id.getPObject());
  m_entitySet.clear();
  m_attDefSet.clear();
  for (CQdrDbObject* entity : doomed)
    delete entity;
}

CQdrDbBlockTableRecord& CQdrDbBlockTableRecord::operator=(CQdrDbBlockTableRecord& source) {
  if (&source == this || !m_database) return *this;
  initDisplayRec();
  const std::vector<CQdrDbObjectId> ids(source.m_entitySet.begin(), source.m_entitySet.end());
  for (const CQdrDbObjectId& id : ids) {
    CQdrDbEntity* original = qdr::asEntity(id);
    if (!original || id.isErased()) continue;
    if (source.m_database) source.m_database->WriteAsBlockPropertySub(original, m_database);
    CQdrDbEntity* copy = qdr::copyOf(*original);
    if (!copy) continue;
    qdr::asObject(copy)->setDatabase(m_database);
    qdr::takeLooksByName(*copy, *original);
    addEntity(qdr::asObject(copy)->objectId());
  }
  return *this;
}

void CQdrDbBlockTableRecord::initDisplayRec() {
  if (!m_database) return;
  CQdrDbDisplayTable& displays = m_database->m_displayTable;
  if (displays.getRecord(m_name, m_displayRecord)) {
    displays.setCurrentRecord(m_displayRecord);
    return;
  }
  auto* record = new CQdrDbDisplayTableRecord(m_database);
  record->setName(m_name);
  record->setOwnerId(displays.objectId());
  if (!displays.add(record)) {
    delete record;
    return;
  }
  m_displayRecord = record;
  if (namesSpace(CString(m_name))) displays.setCurrentRecord(record);
}

std::set<CQdrDbObjectId>& CQdrDbBlockTableRecord::setFor(const CQdrDbObjectId& id) {
  return classTypeOf(id.getPObject()) == QdrDb::eClassAttDef ? m_attDefSet : m_entitySet;
}

// An entity stands in one block only. The owner it names is looked up and not followed: an entity
// that was taken out of its block keeps naming it, and the block may be gone.
void CQdrDbBlockTableRecord::takeFromOtherBlock(const CQdrDbObjectId& id) {
  const CQdrDbObjectId owner = id.getPObject()->ownerId();
  if (owner.isNull() || owner == this || !m_database) return;
  if (!m_database->m_blockTable.has(owner)) return;
  static_cast<CQdrDbBlockTableRecord*>(owner.getPObject())->removeEntity(id);
}

std::size_t CQdrDbBlockTableRecord::addEntity(const CQdrDbObjectId& id) {
  if (id.isNull()) return getNumEntity();
  CQdrDbObject* entity = id.getPObject();
  takeFromOtherBlock(id);
  m_aside.erase(entity);
  entity->setOwnerId(this);
  if (!qdr::insertId(setFor(id), id)) {
    m_aside.insert(entity);
    return getNumEntity();
  }
  if (m_displayRecord) m_displayRecord->addEntity(id);
  return getNumEntity();
}

std::size_t CQdrDbBlockTableRecord::removeEntity(const CQdrDbObjectId& id) {
  if (id.isNull()) return getNumEntity();
  m_aside.erase(id.getPObject());
  qdr::eraseId(setFor(id), id);
  if (m_displayRecord) m_displayRecord->removeEntity(id);
  return getNumEntity();
}

void CQdrDbBlockTableRecord::keepAside(const CQdrDbObjectId& id) {
  if (!id.isNull() && !qdr::containsId(setFor(id), id)) m_aside.insert(id.getPObject());
}

std::size_t CQdrDbBlockTableRecord::addReference(const CQdrDbObjectId& id) {
  if (!id.isNull()) qdr::insertId(m_referenceSet, id);
  return m_referenceSet.size();
}

std::size_t CQdrDbBlockTableRecord::removeReference(const CQdrDbObjectId& id) {
  if (!id.isNull()) qdr::eraseId(m_referenceSet, id);
  return m_referenceSet.size();
}

std::size_t CQdrDbBlockTableRecord::ClearReferenceSet() {
  m_referenceSet.clear();
  return 0;
}

bool CQdrDbBlockTableRecord::newIterator(CQdrDbEntSetIterator*& iterator, bool atStart) {
  if (m_entitySet.empty()) return false;
  iterator = new CQdrDbEntSetIterator(&m_entitySet);
  iterator->start(atStart);
  return true;
}

std::vector<CQdrDbEntity*> CQdrDbBlockTableRecord::ownedEntities() const {
  std::vector<CQdrDbEntity*> owned;
  owned.reserve(m_entitySet.size() + m_attDefSet.size() + m_aside.size());
  const auto append = [&](CQdrDbObject* object) {
    if (CQdrDbEntity* entity = qdr::asEntity(object)) owned.push_back(entity);
  };
  for (const CQdrDbObjectId& id : m_entitySet)
    append(id.getPObject());
  for (const CQdrDbObjectId& id : m_attDefSet)
    append(id.getPObject());
  for (CQdrDbObject* object : m_aside)
    append(object);
  return owned;
}

int CQdrDbBlockTableRecord::ClearEntity() {
  if (m_entitySet.empty()) return -1;
  std::vector<CQdrDbEntity*> doomed;
  for (const CQdrDbObjectId& id : m_entitySet) {
    if (id.isErased()) {
      m_aside.insert(id.getPObject());
    } else if (CQdrDbEntity* entity = qdr::asEntity(id)) {
      doomed.push_back(entity);
    }
  }
  if (m_database) m_database->forgetEntities(doomed);
  m_entitySet.clear();
  for (CQdrDbEntity* entity : doomed)
    delete qdr::asObject(entity);
  return 0;
}

void CQdrDbBlockTableRecord::OnCurveChanged(CQdrDbCurve* curve, int kind) {
  constexpr int kBoundary = 1;
  CQdrDbEntityTableRecord* hatches = nullptr;
  if (kind != kBoundary || !m_database) return;
  if (!m_database->m_entityTable.getRecord(qdr::entityKeyword(QdrDb::eClassHatch), hatches)) return;
  const std::vector<CQdrDbObjectId> ids(hatches->getEntitySet().begin(),
                                        hatches->getEntitySet().end());
  for (const CQdrDbObjectId& id : ids) {
    CQdrDbEntity* hatch = qdr::asEntity(id);
    if (!hatch || id.isErased()) continue;
    if (qdr::boundaryChanged(*hatch, curve)) m_database->invalidateView();
  }
}

void CQdrDbBlockTableRecord::GetTextTable(std::vector<CQdrDbEntity*>& tables) {
  for (const CQdrDbObjectId& id : m_entitySet)
    if (classTypeOf(id.getPObject()) == QdrDb::eClassTextTable) tables.push_back(qdr::asEntity(id));
}

CQdrDbEntity* CQdrDbBlockTableRecord::GetTextTable(const CString& name) {
  std::vector<CQdrDbEntity*> tables;
  GetTextTable(tables);
  for (CQdrDbEntity* table : tables)
    if (qdr::textTableName(*table).CompareNoCase(name) == 0) return table;
  return nullptr;
}
