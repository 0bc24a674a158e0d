#pragma once

#include "database/table.h"
#include "platform/export.h"

/// Walks the records of a table in the order of their names. Dead after the table has added or
/// removed a record.
class QDR_API CQdrDbTableIterator {
 public:
  explicit CQdrDbTableIterator(CQdrDbTable* table);
  virtual ~CQdrDbTableIterator() = default;

  /// To the first record; does nothing when `atStart` is false.
  void start(bool atStart = true);

  /// True behind the last record.
  bool done() const { return m_position == m_table->records().end(); }

  /// One record forward or back. Behind the last one there is no further step forward; before the
  /// first one the walk is done.
  void step(bool forward = true);

  /// False at the end and for a null id.
  bool getRecordId(CQdrDbObjectId& id) const;

  /// The record here. An erased one is null and false unless asked for; the walk stays.
  bool getRecord(CQdrDbTableRecord*& record, bool includeErased = false) const;

  /// Walks from the first record to this one; at the end and false when it is not in the table.
  bool seek(const CQdrDbObjectId& id);
  bool seek(const CQdrDbTableRecord* record);

 protected:
  CQdrDbTable* m_table;
  CQdrDbTable::Records::const_iterator m_position;
};

namespace qdr {

/// What the iterators of all concrete tables share: records of their own class.
template <class Record>
class TypedTableIterator : public CQdrDbTableIterator {
 public:
  using CQdrDbTableIterator::CQdrDbTableIterator;
  using CQdrDbTableIterator::getRecord;

  /// The record here; null and false when it is erased.
  bool getRecord(Record*& record) const {
    CQdrDbTableRecord* found = nullptr;
    const bool answer = CQdrDbTableIterator::getRecord(found, false);
    record = static_cast<Record*>(found);
    return answer;
  }
};

}  // namespace qdr
