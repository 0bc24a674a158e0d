#pragma once

#include <cstddef>

#include "database/id_set.h"
#include "database/table_record.h"
#include "platform/export.h"

class CQdrDbEntSetIterator;

/// The entities of one keyword. An index: it owns none of them.
class QDR_API CQdrDbEntityTableRecord : public CQdrDbTableRecord {
 public:
  explicit CQdrDbEntityTableRecord(CQdrDbDatabase* database);

  /// Both answer the number of entities afterwards.
  std::size_t addEntity(const CQdrDbObjectId& id);
  std::size_t removeEntity(const CQdrDbObjectId& id);
  std::size_t getNumEntity() const { return m_entities.size(); }

  /// An iterator for the caller to delete.
  bool newIterator(CQdrDbEntSetIterator*& iterator, bool atStart = true);

  std::set<CQdrDbObjectId>& getEntitySet() { return m_entities; }

 private:
  qdr::IdSet m_entities;
};
