// Entities on their way into the drawing and out of it.

#include <vector>

#include "database/database.h"
#include "database/entity_access.h"

void CQdrDbDatabase::addEntity(CQdrDbEntity* entity, CQdrDbObjectId& id) {
  if (!entity) return;
  addEntitySub(entity, id);
  qdr::entityAdded(*entity);
}

void CQdrDbDatabase::addEntitySub(CQdrDbEntity* entity, CQdrDbObjectId& id) {
  if (!entity) return;
  CQdrDbObject* object = qdr::asObject(entity);
  object->setDatabase(this);
  qdr::setDbEntity(*entity, true);
  id = object->objectId();
  if (CQdrDbBlockTableRecord* space = m_blockTable.getCurrentRecord()) {
    space->addEntity(id);
    object->setOwnerId(space);
  }
  m_entityTable.addEntity(id);
  m_colorTable.addRefEntity(id);
  m_linetypeTable.addRefEntity(id);
  m_layerTable.addRefEntity(id);
  if (object->classType() == QdrDb::eClassText) m_textStyleTable.addRefEntity(id);
  m_lastEntity = entity;
}

void CQdrDbDatabase::removeEntity(CQdrDbEntity* entity) {
  if (!entity) return;
  CQdrDbObject* object = qdr::asObject(entity);
  const CQdrDbObjectId id = object->objectId();
  qdr::setDbEntity(*entity, false);
  const CQdrDbObjectId owner = object->ownerId();
  if (!owner.isNull() && m_blockTable.has(owner))
    static_cast<CQdrDbBlockTableRecord*>(owner.getPObject())->removeEntity(id);
  object->setOwnerId(CQdrDbObjectId::kNULL);
  m_entityTable.removeEntity(id);
  m_colorTable.removeEntity(id);
  m_linetypeTable.removeEntity(id);
  m_layerTable.removeEntity(id);
  if (object->classType() == QdrDb::eClassText) m_textStyleTable.removeEntity(id);
  if (m_lastEntity == entity) m_lastEntity = nullptr;
}

void CQdrDbDatabase::forgetEntities(const std::vector<CQdrDbEntity*>& entities) {
  if (m_closing || entities.empty()) return;
  qdr::EntitySet gone;
  gone.reserve(entities.size());
  for (const CQdrDbEntity* entity : entities)
    gone.insert(qdr::asObject(entity));
  m_commandHandler.forgetEntities(gone);
  m_undoHandler.forgetEntities(gone);
  forgetInKeepers(QdrDb::eClassHatch, gone);
  forgetInKeepers(QdrDb::eClassBlockInsert, gone);
  forgetInDisplays(gone);
  for (CQdrDbEntity* entity : entities)
    forgetInSets(*entity);
}

// What removeEntity takes an entity out of, for one that may stand in any of it, and the references
// of the block that an insert shows.
void CQdrDbDatabase::forgetInSets(CQdrDbEntity& entity) {
  const CQdrDbObjectId id(qdr::asObject(&entity));
  const CQdrDbObjectId block(qdr::usedRecordOf(entity));
  if (classTypeOf(id.getPObject()) == QdrDb::eClassBlockInsert && m_blockTable.has(block))
    static_cast<CQdrDbBlockTableRecord*>(block.getPObject())->removeReference(id);
  removeEntity(&entity);
}

// Costs the smaller of the number of entities and what each display shows, so that many displays of
// small blocks are no burden.
void CQdrDbDatabase::forgetInDisplays(const qdr::EntitySet& gone) {
  for (const auto& [name, displayId] : m_displayTable.records()) {
    auto* display = static_cast<CQdrDbDisplayTableRecord*>(displayId.getPObject());
    std::vector<CQdrDbObjectId> shown;
    if (display->getDisplayedIdSet().size() < gone.size()) {
      for (const CQdrDbObjectId& id : display->getDisplayedIdSet())
        if (gone.contains(id.getPObject())) shown.push_back(id);
    } else {
      shown.assign(gone.begin(), gone.end());
    }
    for (const CQdrDbObjectId& id : shown)
      display->removeEntity(id);
  }
}

void CQdrDbDatabase::forgetInKeepers(QdrDb::ClassType keeperClass, const qdr::EntitySet& gone) {
  CQdrDbEntityTableRecord* keepers = nullptr;
  if (!m_entityTable.getRecord(qdr::entityKeyword(keeperClass), keepers)) return;
  const std::vector<CQdrDbObjectId> ids(keepers->getEntitySet().begin(),
                                        keepers->getEntitySet().end());
  for (const CQdrDbObjectId& id : ids)
    if (CQdrDbEntity* keeper = qdr::asEntity(id)) qdr::forgetEntities(*keeper, gone);
}
