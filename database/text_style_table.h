#pragma once

#include "database/text_style_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbTextStyleTableIterator : public qdr::TypedTableIterator<CQdrDbTextStyleTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The text styles. A new drawing has "STANDARD".
class QDR_API CQdrDbTextStyleTable
    : public qdr::TypedTable<CQdrDbTextStyleTableRecord, CQdrDbTextStyleTableIterator> {
 public:
  explicit CQdrDbTextStyleTable(CQdrDbDatabase* database);

  /// Makes "STANDARD", which becomes current.
  void initTextStyleTable();

  /// Enters a text in the referring set of its style, or takes it out. Other classes have none.
  void addRefEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);

  /// False for "STANDARD", for a name that is not here and for a style that texts refer to.
  bool removeRecord(const wchar_t* name);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;
};
