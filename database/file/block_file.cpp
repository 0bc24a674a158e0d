// Blocks that travel between drawings: entities written out as a drawing of their own, and a
// drawing brought in as a block.

#include <memory>
#include <unordered_set>
#include <vector>

#include "database/database.h"
#include "database/entity_access.h"
#include "geometry/vector2d.h"
#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/system.h"

namespace {

template <class Record>
Record* recordOf(const CQdrDbObjectId& id) {
  return static_cast<Record*>(id.getPObject());
}

// A record of this name in the target: the one that is there, or a copy that is added. Null when
// there is none to copy.
template <class Record, class Table>
Record* ensureRecord(const Record* source, CQdrDbDatabase& database, Table& table) {
  if (!source) return nullptr;
  Record* record = nullptr;
  if (table.getRecord(source->getName(), record)) return record;
  record = new Record(&database);
  *record = *source;
  record->setOwnerId(table.objectId());
  if (table.add(record)) return record;
  delete record;
  return nullptr;
}

CQdrDbLTypeTableRecord* ensureLinetype(const CQdrDbObjectId& linetype, CQdrDbDatabase& target) {
  return ensureRecord(recordOf<CQdrDbLTypeTableRecord>(linetype), target, target.m_linetypeTable);
}

CQdrDbColorTableRecord* ensureColor(const CQdrDbObjectId& color, CQdrDbDatabase& target) {
  return ensureRecord(recordOf<CQdrDbColorTableRecord>(color), target, target.m_colorTable);
}

void ensureLayer(const CQdrDbObjectId& id, CQdrDbDatabase& target) {
  const auto* source = recordOf<CQdrDbLayerTableRecord>(id);
  if (!source || target.m_layerTable.has(source->getName())) return;
  CQdrDbLayerTableRecord* layer = ensureRecord(source, target, target.m_layerTable);
  if (!layer) return;
  layer->setLinetypeId(ensureLinetype(source->getLinetypeId(), target));
  layer->setColorId(ensureColor(source->getColorId(), target));
}

// The block that an insert shows, if its table still holds it.
CQdrDbBlockTableRecord* liveBlockOf(const CQdrDbEntity& entity, CQdrDbDatabase& source) {
  if (classTypeOf(qdr::asObject(&entity)) != QdrDb::eClassBlockInsert) return nullptr;
  CQdrDbTableRecord* used = qdr::usedRecordOf(entity);
  if (!used || !source.m_blockTable.has(CQdrDbObjectId(used))) return nullptr;
  return static_cast<CQdrDbBlockTableRecord*>(used);
}

// A block and all blocks that stand in it, each once, however they contain one another.
std::vector<CQdrDbBlockTableRecord*> blocksWithin(CQdrDbBlockTableRecord* outermost,
                                                  CQdrDbDatabase& source) {
  std::vector<CQdrDbBlockTableRecord*> blocks{outermost};
  std::unordered_set<const CQdrDbBlockTableRecord*> seen{outermost};
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    for (const CQdrDbObjectId& id : blocks[i]->getEntitySet()) {
      const CQdrDbEntity* entity = id.isErased() ? nullptr : qdr::asEntity(id);
      CQdrDbBlockTableRecord* inner = entity ? liveBlockOf(*entity, source) : nullptr;
      if (inner && seen.insert(inner).second) blocks.push_back(inner);
    }
  }
  return blocks;
}

// All blocks are there by name before the first is filled, so that filling one, which asks for what
// its entities use, finds the others and goes no deeper.
void ensureBlocks(CQdrDbBlockTableRecord* outermost, CQdrDbDatabase& source,
                  CQdrDbDatabase& target) {
  struct Pair {
    CQdrDbBlockTableRecord* from;
    CQdrDbBlockTableRecord* to;
  };
  std::vector<Pair> made;
  for (CQdrDbBlockTableRecord* block : blocksWithin(outermost, source)) {
    if (target.m_blockTable.has(block->getName())) continue;
    auto* copy = new CQdrDbBlockTableRecord(&target);
    copy->setName(block->getName());
    copy->setOwnerId(target.BlockTable());
    copy->initDisplayRec();
    if (target.m_blockTable.add(copy)) {
      made.push_back({block, copy});
    } else {
      delete copy;
    }
  }
  for (const Pair& pair : made)
    *pair.to = *pair.from;
}

// A copy of an entity at home in another drawing, outside its blocks; null for a class without
// copies.
CQdrDbEntity* copyInto(CQdrDbEntity& original, CQdrDbDatabase& target) {
  CQdrDbEntity* copy = qdr::copyOf(original);
  if (!copy) return nullptr;
  qdr::asObject(copy)->setDatabase(&target);
  qdr::takeLooksByName(*copy, original);
  return copy;
}

template <class Record, class Table>
void mergeTable(const Table& from, CQdrDbDatabase& target, Table& to) {
  for (const auto& [name, id] : from.records()) {
    ensureRecord(recordOf<const Record>(id), target, to);
  }
}

void mergeLayers(const CQdrDbLayerTable& from, CQdrDbDatabase& target) {
  for (const auto& [name, id] : from.records())
    ensureLayer(id, target);
}

// Existing symbols take the number of the record they are to stand for, unless an index that orders
// by it holds them.
void mergeSymbols(const CQdrDbSymbolTable& from, CQdrDbDatabase& target) {
  for (const auto& [name, id] : from.records()) {
    CQdrDbSymbolTableRecord* record =
        ensureRecord(recordOf<const CQdrDbSymbolTableRecord>(id), target, target.m_symbolTable);
    if (record && record->getNumEntity() == 0) record->setCreatedTime(id.hardId());
  }
}

void mergeRecords(CQdrDbDatabase& from, CQdrDbDatabase& target) {
  mergeTable<CQdrDbLTypeTableRecord>(from.m_linetypeTable, target, target.m_linetypeTable);
  mergeTable<CQdrDbColorTableRecord>(from.m_colorTable, target, target.m_colorTable);
  mergeLayers(from.m_layerTable, target);
  mergeTable<CQdrDbTextStyleTableRecord>(from.m_textStyleTable, target, target.m_textStyleTable);
  mergeSymbols(from.m_symbolTable, target);
}

void copySpace(CQdrDbBlockTableRecord& space, CQdrDbDatabase& target, CQdrDbBlockTableRecord& block,
               const CQdrGeVector2d& shift) {
  for (const CQdrDbObjectId& id : space.getEntitySet()) {
    CQdrDbEntity* original = id.isErased() ? nullptr : qdr::asEntity(id);
    CQdrDbEntity* copy = original ? copyInto(*original, target) : nullptr;
    if (!copy) continue;
    qdr::shiftWithBlock(*copy, shift);
    block.addEntity(qdr::asObject(copy)->objectId());
  }
}

void saveTo(CQdrDbDatabase& database, const CString& path) {
  CFile file;
  if (!file.Open(path, CFile::modeCreateWrite)) return;
  CArchive archive(&file, CArchive::store, 4096, nullptr);
  database.Save(archive);
  archive.Close();
  file.Close();
  database.m_pFile = nullptr;
}

}  // namespace

void CQdrDbDatabase::WriteAsBlockPropertySub(CQdrDbEntity* entity, CQdrDbDatabase* target) {
  if (!entity || !target || target == this) return;
  ensureLayer(qdr::layerIdOf(*entity), *target);
  ensureLinetype(qdr::linetypeIdOf(*entity), *target);
  ensureColor(qdr::colorIdOf(*entity), *target);
  ensureRecord(recordOf<CQdrDbTextStyleTableRecord>(qdr::textStyleIdOf(*entity)), *target,
               target->m_textStyleTable);
  if (CQdrDbBlockTableRecord* block = liveBlockOf(*entity, *this)) {
    ensureBlocks(block, *this, *target);
  }
}

void CQdrDbDatabase::WriteAsBlock(const CString& path, const CQdrGePoint2d& basePoint,
                                  std::vector<CQdrDbEntity*>* entities,
                                  const CString& description) {
  if (!entities || entities->empty()) return;
  const auto target = std::make_unique<CQdrDbDatabase>(false);
  target->m_vars = m_vars;
  target->m_vars.basePoint = QdrXY(basePoint.x, basePoint.y);
  target->m_header.blockDescription = description;
  for (CQdrDbEntity* entity : *entities) {
    if (!entity) continue;
    WriteAsBlockPropertySub(entity, target.get());
    CQdrDbObjectId id;
    target->addEntity(copyInto(*entity, *target), id);
  }
  saveTo(*target, path);
  CString message;
  message.Format(L"Block Saved as '%s'", path);
  AfxMessageBox(message);
}

CQdrDbBlockTableRecord* CQdrDbDatabase::ReadAsBlock(const CString& path) {
  CFile file;
  if (!file.Open(path, CFile::modeRead)) return nullptr;
  CQdrDbDatabase source(false);
  CArchive archive(&file, CArchive::load, 4096, nullptr);
  source.Read(archive);
  archive.Close();
  file.Close();
  source.m_pFile = nullptr;

  mergeRecords(source, *this);
  auto* block = new CQdrDbBlockTableRecord(this);
  block->setName(qdr::titleOf(path).GetString());
  block->setOwnerId(BlockTable());
  block->initDisplayRec();
  const CQdrGeVector2d shift(-source.m_vars.basePoint.x, -source.m_vars.basePoint.y);
  CQdrDbBlockTableRecord* space = nullptr;
  if (source.m_blockTable.getRecord(CQdrDbBlockTable::kModelSpace, space)) {
    copySpace(*space, *this, *block, shift);
  }
  m_blockTable.add(block);
  return block;
}
