#pragma once

#include <set>
#include <vector>

#include "database/entity_access.h"
#include "platform/export.h"

class CQdrDbDatabase;
class CQdrDbEntity;
class CQdrDbEntityTracker;

/// Commands, prompts and grips of one drawing.
class QDR_API CQdrCommandHandler {
 public:
  explicit CQdrCommandHandler(CQdrDbDatabase* database);
  virtual ~CQdrCommandHandler();
  CQdrCommandHandler(const CQdrCommandHandler&) = delete;
  CQdrCommandHandler& operator=(const CQdrCommandHandler&) = delete;

  void SetDatabase(CQdrDbDatabase* database) { m_database = database; }
  CQdrDbDatabase* database() const { return m_database; }

  /// Lets go of entities that are about to be deleted.
  void forgetEntities(const qdr::EntitySet& gone);

 private:
  std::vector<CQdrDbEntityTracker*> m_trackers;
  std::set<CQdrDbEntity*> m_trackedEntities;
  CQdrDbDatabase* m_database = nullptr;
  CQdrDbEntity* m_lastEntity = nullptr;
};
