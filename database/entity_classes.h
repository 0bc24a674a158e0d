#pragma once

#include <cstdint>

#include "database/class_type.h"

class CQdrDbDatabase;
class CQdrDbEntity;
class CQdrUndoHandler;

namespace qdr {

/// What the rest of the system must know of one concrete entity class. The rows stand in
/// entities/entity_classes.cpp; whatever differs between classes by data alone is read here.
struct EntityClass {
  QdrDb::ClassType type;

  /// Status bits at construction, CQdrDbObject::ObjectStatus.
  std::uint8_t status;

  /// An entity for the file reader to fill; null when a file cannot bring one.
  CQdrDbEntity* (*make)(CQdrDbDatabase* database);

  /// A copy with an identity of its own; null when the class cannot be copied.
  CQdrDbEntity* (*copy)(CQdrDbEntity& source);

  /// Plays the handler's current record; null when steps on the class are not recorded.
  bool (*undo)(CQdrUndoHandler& handler, bool redo);

  bool trimmable;
  bool extendable;
  bool explodable;
};

/// The row of a class; null for a class type that no entity bears.
const EntityClass* entityClass(QdrDb::ClassType type);

}  // namespace qdr
