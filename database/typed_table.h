#pragma once

#include "database/table.h"
#include "database/table_iterator.h"

namespace qdr {

/// What all concrete tables share: the operations of the base with records and iterators of their
/// own class, and a current record.
template <class Record, class Iterator>
class TypedTable : public CQdrDbTable {
 public:
  using CQdrDbTable::CQdrDbTable;
  using CQdrDbTable::getRecord;
  using CQdrDbTable::newIterator;

  bool add(Record* record) { return CQdrDbTable::add(record); }
  bool add(CQdrDbObjectId& out, Record* record) { return CQdrDbTable::add(out, record); }

  /// The record of exactly this name; on a miss `out` stays.
  bool getRecord(const wchar_t* name, Record*& out, bool = false) const {
    CQdrDbTableRecord* found = nullptr;
    if (!CQdrDbTable::getRecord(name, found)) return false;
    out = static_cast<Record*>(found);
    return true;
  }

  /// An iterator for the caller to delete, at the first record if `atStart`.
  bool newIterator(Iterator*& iterator, bool atStart = true) {
    iterator = new Iterator(this);
    iterator->start(atStart);
    return true;
  }

  /// Null until one is set.
  Record* getCurrentRecord() const { return m_current; }
  void setCurrentRecord(Record* record) { m_current = record; }

 protected:
  CQdrDbTableRecord* newRecord() override { return new Record(m_database); }

  /// A derived table that overrides these calls them, so that the current record never dangles.
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override {
    if (m_current == &from) m_current = static_cast<Record*>(&to);
  }
  void onRemoved(CQdrDbTableRecord& record) override {
    if (m_current == &record) m_current = nullptr;
  }

  Record* m_current = nullptr;
};

}  // namespace qdr
