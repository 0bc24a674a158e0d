#pragma once

#include "database/object_id.h"

class CQdrDbDatabase;
class CQdrDbEntity;

namespace qdr {

/// One of the ways in which a drawing refers to a record of a table.
struct RecordReference {
  CQdrDbObjectId (*get)(const CQdrDbEntity& entity);
  void (*set)(CQdrDbEntity& entity, const CQdrDbObjectId& id);
  CQdrDbObjectId CQdrDbDatabase::*current;
};

extern const RecordReference kLayerReference;
extern const RecordReference kLinetypeReference;
extern const RecordReference kColorReference;
extern const RecordReference kTextStyleReference;

/// Every entity of the drawing and its current id that name `from` name `to` from here on. Walks
/// all entities, erased ones and those held aside too: a referring set leaves out an entity whose
/// number another one bears, and none may be left with the id of a record that is about to die.
void followRecord(CQdrDbDatabase* database, const RecordReference& reference,
                  const CQdrDbObjectId& from, const CQdrDbObjectId& to);

}  // namespace qdr
