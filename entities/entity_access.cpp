#include "database/entity_access.h"

#include "entities/entity.h"

namespace qdr {

CQdrDbEntity* asEntity(CQdrDbObject* object) {
  // By class and not by status: a file brings any status byte.
  const QdrDb::ClassType type = classTypeOf(object);
  const bool isEntity = type >= QdrDb::eClassEntity && type <= QdrDb::eClassTextTable;
  return isEntity ? static_cast<CQdrDbEntity*>(object) : nullptr;
}

CQdrDbEntity* asEntity(const CQdrDbObjectId& id) {
  return asEntity(id.getPObject());
}

CQdrDbObject* asObject(CQdrDbEntity* entity) {
  return entity;
}

const CQdrDbObject* asObject(const CQdrDbEntity* entity) {
  return entity;
}

bool isDbEntity(const CQdrDbEntity& entity) {
  return entity.IsDbEntity();
}

void setDbEntity(CQdrDbEntity& entity, bool member) {
  entity.SetDbEntity(member);
}

CQdrDbObjectId layerIdOf(const CQdrDbEntity& entity) {
  return entity.LayerId();
}

CQdrDbObjectId linetypeIdOf(const CQdrDbEntity& entity) {
  return entity.LineTypeId();
}

CQdrDbObjectId colorIdOf(const CQdrDbEntity& entity) {
  return entity.ColorId();
}

void setLayerOf(CQdrDbEntity& entity, const CQdrDbObjectId& layer) {
  entity.setLayer(layer);
}

void setLinetypeOf(CQdrDbEntity& entity, const CQdrDbObjectId& linetype) {
  entity.setLineType(linetype);
}

void setColorOf(CQdrDbEntity& entity, const CQdrDbObjectId& color) {
  entity.setColor(color);
}

CQdrDbEntity* copyOf(CQdrDbEntity& entity) {
  return entity.CopyEntity(true);
}

void drawEntity(CQdrDbEntity& entity, CDC* dc) {
  entity.Draw(dc);
}

}  // namespace qdr
