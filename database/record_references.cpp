#include "database/record_references.h"

#include "database/database.h"
#include "database/entity_access.h"

namespace qdr {

const RecordReference kLayerReference = {layerIdOf, setLayerOf, &CQdrDbDatabase::m_currentLayerId};
const RecordReference kLinetypeReference = {linetypeIdOf, setLinetypeOf,
                                            &CQdrDbDatabase::m_currentLinetypeId};
const RecordReference kColorReference = {colorIdOf, setColorOf, &CQdrDbDatabase::m_currentColorId};
const RecordReference kTextStyleReference = {textStyleIdOf, setTextStyleOf,
                                             &CQdrDbDatabase::m_currentTextStyleId};

void followRecord(CQdrDbDatabase* database, const RecordReference& reference,
                  const CQdrDbObjectId& from, const CQdrDbObjectId& to) {
  if (!database || database->isClosing()) return;
  CQdrDbObjectId& current = database->*reference.current;
  if (current == from) current = to;
  for (const auto& [name, blockId] : database->m_blockTable.records()) {
    const auto* block = static_cast<const CQdrDbBlockTableRecord*>(blockId.getPObject());
    for (CQdrDbEntity* entity : block->ownedEntities()) {
      if (reference.get(*entity) == from) reference.set(*entity, to);
    }
  }
}

}  // namespace qdr
