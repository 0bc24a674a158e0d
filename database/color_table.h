#pragma once

#include "database/color_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbColorTableIterator : public qdr::TypedTableIterator<CQdrDbColorTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The colours in use, each named by its index in decimal. A new drawing has "0" to "7" and "256";
/// other indices have a record from their first use on.
class QDR_API CQdrDbColorTable
    : public qdr::TypedTable<CQdrDbColorTableRecord, CQdrDbColorTableIterator> {
 public:
  explicit CQdrDbColorTable(CQdrDbDatabase* database);
  using TypedTable::getRecord;

  /// Makes the default records; "256" becomes current.
  void initColorTable();

  /// The first record, by name, of this value; on a miss `out` stays.
  bool getRecord(unsigned long value, CQdrDbColorTableRecord*& out, bool = false) const;

  /// Enters an entity in the referring set of its colour, or takes it out.
  void addRefEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);

  /// False for "256" and for a record that an entity or a layer refers to.
  bool removeRecord(const wchar_t* name);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;
};
