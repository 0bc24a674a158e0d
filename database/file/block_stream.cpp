// Blocks as they stand in a file: the record, then its entities, each led by its class type.

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "database/block_table.h"
#include "database/block_table_record.h"
#include "database/database.h"
#include "database/entity_access.h"
#include "database/entity_classes.h"
#include "database/file/field_stream.h"

namespace {

void saveMembers(qdr::FieldWriter& stream, const std::set<CQdrDbObjectId>& members) {
  const auto isLive = [](const CQdrDbObjectId& id) { return !id.isErased(); };
  constexpr auto kMost = std::numeric_limits<std::uint32_t>::max();
  const auto live = static_cast<std::size_t>(std::ranges::count_if(members, isLive));
  const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(live, kMost));
  stream.number(count);
  for (const CQdrDbObjectId& id : members) {
    if (!isLive(id)) continue;
    stream.number(static_cast<std::int32_t>(classTypeOf(id.getPObject())));
    id.save();
  }
}

// What a class type calls for, filled from the file; null for a type that calls for nothing.
CQdrDbEntity* readEntity(QdrDb::ClassType type, CQdrDbDatabase* database) {
  const qdr::EntityClass* row = qdr::entityClass(type);
  if (!row || !row->make) return nullptr;
  CQdrDbEntity* entity = row->make(database);
  if (entity) qdr::asObject(entity)->read();
  return entity;
}

// Enters an entity in the drawing; one of a block that could not join its table is dropped.
void settle(CQdrDbEntity* entity, CQdrDbDatabase& database, bool joined) {
  CQdrDbObjectId id;
  if (joined) {
    database.addEntity(entity, id);
  } else {
    delete qdr::asObject(entity);
  }
}

void readEntities(CFile* file, CQdrDbDatabase& database, bool joined) {
  qdr::FieldReader stream(file);
  std::uint32_t count = 0;
  stream.number(count);
  for (; count > 0 && file->bytesLeft() > 0; --count) {
    std::int32_t type = 0;
    if (!stream.number(type)) return;
    CQdrDbEntity* entity = readEntity(static_cast<QdrDb::ClassType>(type), &database);
    if (entity) settle(entity, database, joined);
  }
}

// Attribute definitions are led by a class type of two bytes where the writer puts four. Both agree
// because no object bears that class: the count is 0 in every file that this system writes.
void readAttributeDefinitions(CFile* file, CQdrDbDatabase& database, bool joined) {
  qdr::FieldReader stream(file);
  std::uint32_t count = 0;
  stream.number(count);
  for (; count > 0 && file->bytesLeft() > 0; --count) {
    std::uint16_t ignoredType = 0;
    if (!stream.number(ignoredType)) return;
    CQdrDbEntity* definition = readEntity(QdrDb::eClassText, &database);
    if (definition) settle(definition, database, joined);
  }
}

}  // namespace

void CQdrDbBlockTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  saveMembers(stream, m_entitySet);
  saveMembers(stream, m_attDefSet);
}

void CQdrDbBlockTableRecord::read() {
  CQdrDbTableRecord::read();
  if (!file()) return;
  CQdrDbBlockTable& blocks = m_database->m_blockTable;
  const bool joined = blocks.add(this);
  if (joined) {
    blocks.setCurrentRecord(this);
    initDisplayRec();
    const QdrDbDrawingVars_tag& vars = m_database->m_vars;
    if (m_displayRecord) m_displayRecord->SetCurDispWin(vars.displayMin, vars.displayMax);
  }
  readEntities(file(), *m_database, joined);
  readAttributeDefinitions(file(), *m_database, joined);
  for (CQdrDbEntity* entity : ownedEntities())
    qdr::blockLoaded(*entity, m_entitySet);
}

void CQdrDbBlockTable::read() {
  CFile* stream = file();
  if (!stream) return;
  std::uint16_t count = 0;
  qdr::FieldReader(stream).number(count);
  for (; count > 0 && stream->bytesLeft() > 0; --count) {
    auto record = std::make_unique<CQdrDbBlockTableRecord>(m_database);
    record->setOwnerId(objectId());
    record->read();
    CQdrDbBlockTableRecord* filed = nullptr;
    if (getRecord(record->getName(), filed) && filed == record.get()) {
      record.release();
    } else {
      getRecord(kModelSpace, m_current);
    }
  }
  readEnd();
}
