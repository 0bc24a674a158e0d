#pragma once

#include <cstdint>

#include "database/revision_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbRevisionTableIterator : public qdr::TypedTableIterator<CQdrDbRevisionTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The revisions of a drawing, filled by the host. Adding a record makes it current. The number of
/// the table is only saved and read; a load keeps it and drops the records.
class QDR_API CQdrDbRevisionTable
    : public qdr::TypedTable<CQdrDbRevisionTableRecord, CQdrDbRevisionTableIterator> {
 public:
  explicit CQdrDbRevisionTable(CQdrDbDatabase* database);

  std::uint32_t GetNextName() const { return m_nextNumber; }

  /// False when there is none of that name.
  bool removeRecord(const wchar_t* name);

  void save() override;
  void read() override;

 protected:
  void onAdded(CQdrDbTableRecord& record) override;

 private:
  std::uint32_t m_nextNumber = 0;
};
