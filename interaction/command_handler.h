#pragma once

#include "database/entity_access.h"
#include "platform/export.h"

class CQdrDbDatabase;
class CQdrDbEntity;

/// Commands, prompts and grips of one drawing.
class QDR_API CQdrCommandHandler {
 public:
  explicit CQdrCommandHandler(CQdrDbDatabase* database);
  virtual ~CQdrCommandHandler();
  CQdrCommandHandler(const CQdrCommandHandler&) = delete;
  CQdrCommandHandler& operator=(const CQdrCommandHandler&) = delete;

  void SetDatabase(CQdrDbDatabase* database) { m_database = database; }
  CQdrDbDatabase* database() const { return m_database; }

  /// The entity that the last drawing routine made; null when it made none or that one is gone.
  CQdrDbEntity* lastEntity() const { return m_lastEntity; }
  void setLastEntity(CQdrDbEntity* entity) { m_lastEntity = entity; }

  /// Lets go of entities that are about to be deleted.
  void forgetEntities(const qdr::EntitySet& gone);

 private:
  CQdrDbDatabase* m_database = nullptr;
  CQdrDbEntity* m_lastEntity = nullptr;
};
