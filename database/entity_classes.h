#pragma once

#include <cstdint>

#include "database/class_type.h"
#include "database/entity_access.h"

class CQdrDbCurve;
class CQdrDbDatabase;
class CQdrDbEntity;
class CQdrDbTableRecord;
class CQdrUndoHandler;
struct EntityTransforms;

namespace qdr {

struct DrawnBox;

/// What the rest of the system must know of one concrete entity class. The rows stand in
/// entities/entity_classes.cpp; whatever differs between classes by data alone is read here.
struct EntityClass {
  QdrDb::ClassType type;

  /// Status bits at construction, CQdrDbObject::ObjectStatus.
  std::uint8_t status;

  /// Bytes of an entity in a file without extended data, from the object head on; what counts that
  /// stand in its own fields add comes on top.
  std::uint16_t bodyBytes;

  /// An entity for the file reader to fill; null when a file cannot bring one.
  CQdrDbEntity* (*make)(CQdrDbDatabase* database) = nullptr;

  /// A copy with an identity of its own; null when the class cannot be copied.
  CQdrDbEntity* (*copy)(CQdrDbEntity& source) = nullptr;

  /// Plays the handler's current record; null when steps on the class are not recorded.
  bool (*undo)(CQdrUndoHandler& handler, bool redo) = nullptr;

  /// Own transforms of a class that is no curve; null when the virtual ones leave it alone.
  const EntityTransforms* transforms = nullptr;

  /// What the undo log moves an entity by where the virtual transforms leave it alone; else null.
  const EntityTransforms* stepTransforms = nullptr;

  /// Box of what it draws; null where the box around GetOutRect answers.
  DrawnBox (*drawnBox)(CQdrDbEntity& entity) = nullptr;

  /// What commands let through to Trim and Extend, and what they explode.
  bool trimmable = false;
  bool extendable = false;
  bool explodable = false;

  // Duties of the classes that hold or name more than others; null for the rest.

  /// The entity has joined the drawing: a hatch brings its boundaries along.
  void (*added)(CQdrDbEntity& entity) = nullptr;

  /// A hatch looks at a changed boundary; true when it has to be drawn anew.
  bool (*boundaryChanged)(CQdrDbEntity& hatch, CQdrDbCurve* curve) = nullptr;

  /// A hatch drops boundaries and an insert drops members that are about to be deleted.
  void (*forget)(CQdrDbEntity& keeper, const EntitySet& gone) = nullptr;

  /// All entities of its block have been read: a hatch binds its boundaries to them.
  void (*blockLoaded)(CQdrDbEntity& hatch, std::set<CQdrDbObjectId>& members) = nullptr;

  /// The record that it uses beside layer, linetype and colour: style of a text, block of an
  /// insert, outline of a symbol. Answered as the entity keeps it; it may be gone.
  CQdrDbTableRecord* (*usedRecord)(const CQdrDbEntity& entity) = nullptr;
  void (*setUsedRecord)(CQdrDbEntity& entity, CQdrDbTableRecord* record) = nullptr;

  /// The name of a text table.
  CString (*nameOf)(const CQdrDbEntity& entity) = nullptr;
};

/// The row of a class; null for a class type that no entity bears.
const EntityClass* entityClass(QdrDb::ClassType type);

}  // namespace qdr
