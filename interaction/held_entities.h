#pragma once

#include <set>

#include "database/entity_access.h"
#include "interaction/command_handler.h"

namespace qdr {

/// A set of entities that a command keeps while its inputs wait: one that is deleted meanwhile
/// leaves the set. Neither the set nor the entities are owned.
class HeldEntities {
 public:
  HeldEntities(CQdrCommandHandler& handler, std::set<CQdrDbEntity*>& entities)
      : m_handler(handler), m_entities(entities) {
    m_handler.hold(*this);
  }
  ~HeldEntities() { m_handler.letGo(*this); }
  HeldEntities(const HeldEntities&) = delete;
  HeldEntities& operator=(const HeldEntities&) = delete;

  void forget(const EntitySet& gone) {
    std::erase_if(m_entities,
                  [&gone](CQdrDbEntity* entity) { return gone.contains(asObject(entity)); });
  }

 private:
  CQdrCommandHandler& m_handler;
  std::set<CQdrDbEntity*>& m_entities;
};

}  // namespace qdr
