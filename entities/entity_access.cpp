#include "database/entity_access.h"

#include "database/database.h"
#include "database/entity_classes.h"
#include "entities/entity.h"
#include "geometry/vector2d.h"

namespace {

const qdr::EntityClass* rowOf(const CQdrDbEntity& entity) {
  return qdr::entityClass(entity.classType());
}

const wchar_t* nameOf(const CQdrDbObjectId& record) {
  return record.isNull() ? nullptr
                         : static_cast<CQdrDbTableRecord*>(record.getPObject())->getName();
}

CQdrDbObjectId sameNamed(const CQdrDbTable& table, const CQdrDbObjectId& record,
                         const wchar_t* fallback) {
  CQdrDbObjectId id;
  if (!table.getAt(nameOf(record), id)) table.getAt(fallback, id);
  return id;
}

/// The table that holds the used records of a class; null when it uses none.
const CQdrDbTable* usedTable(const CQdrDbDatabase& database, QdrDb::ClassType type) {
  switch (type) {
    case QdrDb::eClassText:
      return &database.m_textStyleTable;
    case QdrDb::eClassBlockInsert:
      return &database.m_blockTable;
    case QdrDb::eClassSymbol:
      return &database.m_symbolTable;
    default:
      return nullptr;
  }
}

void takeUsedRecordByName(CQdrDbEntity& entity, const CQdrDbEntity& source) {
  const CQdrDbTable* to = usedTable(*entity.database(), source.classType());
  if (!to || !source.database()) return;
  const CQdrDbObjectId used(qdr::usedRecordOf(source));
  if (!usedTable(*source.database(), source.classType())->has(used)) return;
  CQdrDbTableRecord* record = nullptr;
  if (to->getRecord(nameOf(used), record)) qdr::setUsedRecordOf(entity, record);
}

}  // namespace

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

void refreshGrips(CQdrDbEntity& entity) {
  entity.setGripPoints();
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

CQdrDbTableRecord* usedRecordOf(const CQdrDbEntity& entity) {
  const EntityClass* row = rowOf(entity);
  return row && row->usedRecord ? row->usedRecord(entity) : nullptr;
}

void setUsedRecordOf(CQdrDbEntity& entity, CQdrDbTableRecord* record) {
  const EntityClass* row = rowOf(entity);
  if (row && row->setUsedRecord) row->setUsedRecord(entity, record);
}

CQdrDbObjectId textStyleIdOf(const CQdrDbEntity& entity) {
  return entity.classType() == QdrDb::eClassText ? usedRecordOf(entity) : nullptr;
}

void setTextStyleOf(CQdrDbEntity& text, const CQdrDbObjectId& style) {
  setUsedRecordOf(text, static_cast<CQdrDbTableRecord*>(style.getPObject()));
}

void takeLooksByName(CQdrDbEntity& entity, const CQdrDbEntity& source) {
  const CQdrDbDatabase* database = entity.database();
  if (!database) return;
  entity.setLayer(sameNamed(database->m_layerTable, source.LayerId(), L"0"));
  entity.setLineType(sameNamed(database->m_linetypeTable, source.LineTypeId(), L"ByLayer"));
  entity.setColor(sameNamed(database->m_colorTable, source.ColorId(), L"256"));
  takeUsedRecordByName(entity, source);
}

CQdrDbEntity* copyOf(CQdrDbEntity& entity) {
  return entity.CopyEntity(true);
}

void drawEntity(CQdrDbEntity& entity, CDC* dc) {
  entity.Draw(dc);
}

void entityAdded(CQdrDbEntity& entity) {
  const EntityClass* row = rowOf(entity);
  if (row && row->added) row->added(entity);
}

bool boundaryChanged(CQdrDbEntity& entity, CQdrDbCurve* curve) {
  const EntityClass* row = rowOf(entity);
  return row && row->boundaryChanged && row->boundaryChanged(entity, curve);
}

void forgetEntities(CQdrDbEntity& keeper, const EntitySet& gone) {
  const EntityClass* row = rowOf(keeper);
  if (row && row->forget) row->forget(keeper, gone);
}

void blockLoaded(CQdrDbEntity& entity, std::set<CQdrDbObjectId>& members) {
  const EntityClass* row = rowOf(entity);
  if (row && row->blockLoaded) row->blockLoaded(entity, members);
}

void shiftWithBlock(CQdrDbEntity& entity, const CQdrGeVector2d& shift) {
  const QdrDb::ClassType type = entity.classType();
  const bool follows =
      entity.IsCurveEntity() || type == QdrDb::eClassText || type == QdrDb::eClassBlockInsert;
  if (!follows) return;
  entity.TranslateBy(shift);
  entity.setGripPoints();
}

CString textTableName(const CQdrDbEntity& entity) {
  const EntityClass* row = rowOf(entity);
  return row && row->nameOf ? row->nameOf(entity) : CString();
}

}  // namespace qdr
