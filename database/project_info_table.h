#pragma once

#include <cstdint>

#include "database/project_info_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbProjectInfoTableIterator
    : public qdr::TypedTableIterator<CQdrDbProjectInfoTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// Project information, filled by the host: two texts and records. Adding a record makes it current
/// and advances the number that names the next one, and the next revision too. A load keeps texts
/// and number and drops the records.
class QDR_API CQdrDbProjectInfoTable
    : public qdr::TypedTable<CQdrDbProjectInfoTableRecord, CQdrDbProjectInfoTableIterator> {
 public:
  explicit CQdrDbProjectInfoTable(CQdrDbDatabase* database);

  std::uint32_t GetNextName() const { return m_nextNumber; }
  /// For a host that adds the records of a file again behind a load.
  void setNextName(std::uint32_t number) { m_nextNumber = number; }

  /// False when there is none of that name.
  bool removeRecord(const wchar_t* name);

  void save() override;
  void read() override;

  wchar_t m_firstText[81] = {};
  wchar_t m_secondText[81] = {};

 protected:
  void onAdded(CQdrDbTableRecord& record) override;

 private:
  std::uint32_t m_nextNumber = 0;
};
