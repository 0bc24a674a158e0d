#pragma once

#include <set>

#include "database/object_id.h"

namespace qdr {

/// Ids in the order of creation. Ids of equal creation numbers are one element.
using IdSet = std::set<CQdrDbObjectId>;

/// Enters an id; constant cost when it is the newest of the set. False when the set holds another
/// object of that number, which stays; true when the id is in the set afterwards.
inline bool insertId(IdSet& ids, const CQdrDbObjectId& id) {
  return *ids.insert(ids.end(), id) == id;
}

/// Takes an id out. Another object of that number stays, and then the answer is false.
inline bool eraseId(IdSet& ids, const CQdrDbObjectId& id) {
  const auto found = ids.find(id);
  if (found == ids.end() || *found != id) return false;
  ids.erase(found);
  return true;
}

/// True when this very object is in the set.
inline bool containsId(const IdSet& ids, const CQdrDbObjectId& id) {
  const auto found = ids.find(id);
  return found != ids.end() && *found == id;
}

}  // namespace qdr
