#pragma once

#include "database/layer_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbLayerTableIterator : public qdr::TypedTableIterator<CQdrDbLayerTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The layers. A new drawing has "PipeLine", "WeldNum", "Dimension" and "0", which always stays.
class QDR_API CQdrDbLayerTable
    : public qdr::TypedTable<CQdrDbLayerTableRecord, CQdrDbLayerTableIterator> {
 public:
  explicit CQdrDbLayerTable(CQdrDbDatabase* database);

  /// Makes the default records over the default linetypes and colours; "0" becomes current.
  void initLayerTable();

  /// Enters an entity in the referring set of its layer, or takes it out.
  void addRefEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);

  /// False for "0", with a message, and for a layer that entities refer to, erased ones too.
  bool removeRecord(const wchar_t* name);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;
};
