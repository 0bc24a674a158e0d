#pragma once

#include <set>
#include <unordered_set>
#include <vector>

#include "database/object_id.h"
#include "platform/wide_string.h"

class CDC;
class CQdrDbCurve;
class CQdrDbEntity;
class CQdrDbTableRecord;
class CQdrGeVector2d;

// What the database asks of the entities that it holds. The entity classes stand above the
// database: these are declared here and defined beside them, in entities/entity_access.cpp.
namespace qdr {

/// Entities that are about to be deleted.
using EntitySet = std::unordered_set<const CQdrDbObject*>;

/// The object as an entity; null for null and for tables and records.
CQdrDbEntity* asEntity(CQdrDbObject* object);
CQdrDbEntity* asEntity(const CQdrDbObjectId& id);

/// The entity as an object; null for null.
CQdrDbObject* asObject(CQdrDbEntity* entity);
const CQdrDbObject* asObject(const CQdrDbEntity* entity);

bool isDbEntity(const CQdrDbEntity& entity);

/// Marks an entity as a member of the drawing; true also fills its grips.
void setDbEntity(CQdrDbEntity& entity, bool member);

/// Brings grips and box up to date with the geometry.
void refreshGrips(CQdrDbEntity& entity);

// The records an entity uses.
CQdrDbObjectId layerIdOf(const CQdrDbEntity& entity);
CQdrDbObjectId linetypeIdOf(const CQdrDbEntity& entity);
CQdrDbObjectId colorIdOf(const CQdrDbEntity& entity);

/// The style of a text, the block of an insert, the outline of a symbol: a record that is compared
/// and looked up but not followed, as it may be gone. Null for other classes.
CQdrDbTableRecord* usedRecordOf(const CQdrDbEntity& entity);

/// Null for every class but text.
CQdrDbObjectId textStyleIdOf(const CQdrDbEntity& entity);

// For an entity of the drawing these move its id from one referring set to the other.
void setLayerOf(CQdrDbEntity& entity, const CQdrDbObjectId& layer);
void setLinetypeOf(CQdrDbEntity& entity, const CQdrDbObjectId& linetype);
void setColorOf(CQdrDbEntity& entity, const CQdrDbObjectId& color);
void setUsedRecordOf(CQdrDbEntity& entity, CQdrDbTableRecord* record);
void setTextStyleOf(CQdrDbEntity& text, const CQdrDbObjectId& style);

/// Gives an entity, by name, layer, linetype, colour and used record of another one that may stand
/// in another database, with "0", "ByLayer" and "256" for what its own database lacks.
void takeLooksByName(CQdrDbEntity& entity, const CQdrDbEntity& source);

/// A copy with an identity of its own, outside any database; null for a class that has none.
CQdrDbEntity* copyOf(CQdrDbEntity& entity);

void drawEntity(CQdrDbEntity& entity, CDC* dc);

/// What follows when an entity has joined the drawing: a hatch brings its boundaries along.
void entityAdded(CQdrDbEntity& entity);

/// A hatch looks at a changed boundary; true when it has to be drawn anew. False for other classes.
bool boundaryChanged(CQdrDbEntity& entity, CQdrDbCurve* curve);

/// Hatches drop boundaries and inserts drop members that are about to be deleted.
void forgetEntities(CQdrDbEntity& keeper, const EntitySet& gone);

/// All entities of a block have been read: a hatch binds its boundaries to them.
void blockLoaded(CQdrDbEntity& entity, std::set<CQdrDbObjectId>& members);

/// Moves what follows the base of a block: curves, texts and inserts. All else stays.
void shiftWithBlock(CQdrDbEntity& entity, const CQdrGeVector2d& shift);

/// The name of a text table; empty for every other class.
CString textTableName(const CQdrDbEntity& entity);

}  // namespace qdr
