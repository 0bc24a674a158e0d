#pragma once

#include <cstdint>
#include <vector>

#include "database/symbol_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbSymbolTableIterator : public qdr::TypedTableIterator<CQdrDbSymbolTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The outlines that symbols show. Adding a record makes it current and advances the number that
/// names the next one. Symbols point at records, so one that leaves the table lives on unseen
/// until the table dies.
class QDR_API CQdrDbSymbolTable
    : public qdr::TypedTable<CQdrDbSymbolTableRecord, CQdrDbSymbolTableIterator> {
 public:
  explicit CQdrDbSymbolTable(CQdrDbDatabase* database);
  ~CQdrDbSymbolTable() override;

  /// Empties the table; the number stays.
  void initSymbolTable();

  std::uint32_t GetNextName() const { return m_nextNumber; }

  /// Writes the name given last, "*S" and the number before the next one, into a buffer of at least
  /// CQdrDbTableRecord::kNameSize characters. Answers its record, or null.
  CQdrDbObjectId GetLastName(wchar_t* buffer) const;

  /// Enters a symbol record in the referring set of the record that bears its name; false for null,
  /// for any other class and on a miss.
  bool addRefEntity(const CQdrDbObjectId& id);

  /// False when there is none of that name.
  bool removeRecord(const wchar_t* name);

  /// The next number stands between the records and the end.
  void save() override;
  void read() override;

 protected:
  void onAdded(CQdrDbTableRecord& record) override;

 private:
  std::uint32_t m_nextNumber = 0;
  std::vector<CQdrDbTableRecord*> m_retired;
};
