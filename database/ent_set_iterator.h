#pragma once

#include "database/id_set.h"
#include "platform/export.h"

class CQdrDbEntity;

/// Walks a set of entity ids in the order of creation. Erasing the element here kills it.
class QDR_API CQdrDbEntSetIterator {
 public:
  explicit CQdrDbEntSetIterator(std::set<CQdrDbObjectId>* ids);
  virtual ~CQdrDbEntSetIterator() = default;

  /// To the first id; does nothing when `atStart` is false.
  void start(bool atStart = true);

  /// True behind the last id.
  bool done() const { return m_position == m_ids->end(); }

  /// One id forward or back. Behind the last one there is no further step forward; before the first
  /// one the walk is done.
  void step(bool forward = true);

  /// False at the end.
  bool getEntityId(CQdrDbObjectId& id) const;

  /// The entity here. An erased one is null and false unless asked for; the walk stays.
  bool getEntity(CQdrDbEntity*& entity, bool includeErased = false) const;

  /// Walks to this very entity; at the end and false when it is not in the set.
  bool seek(const CQdrDbObjectId& id);
  bool seek(const CQdrDbEntity* entity);

 private:
  std::set<CQdrDbObjectId>* m_ids;
  std::set<CQdrDbObjectId>::const_iterator m_position;
};
