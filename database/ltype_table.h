#pragma once

#include "database/ltype_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbLTypeTableIterator : public qdr::TypedTableIterator<CQdrDbLTypeTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The linetypes. A new drawing has "CONTINUOUS", "ByLayer", "ByBlock" and "Hidden".
class QDR_API CQdrDbLTypeTable
    : public qdr::TypedTable<CQdrDbLTypeTableRecord, CQdrDbLTypeTableIterator> {
 public:
  explicit CQdrDbLTypeTable(CQdrDbDatabase* database);

  /// Makes the default records; "ByLayer" becomes current.
  void initLinetypeTable();

  /// Enters an entity in the referring set of its linetype, or takes it out.
  void addRefEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);

  /// False for "CONTINUOUS" and for a record that an entity or a layer refers to.
  bool removeRecord(const wchar_t* name);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;
};
