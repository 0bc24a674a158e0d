#pragma once

#include <array>

#include "database/entity_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbEntityTableIterator : public qdr::TypedTableIterator<CQdrDbEntityTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// Every entity of the drawing by the keyword of its class; classes without one are left out. A
/// record exists from the first entity of its keyword on. A drawing file does not hold this table.
class QDR_API CQdrDbEntityTable
    : public qdr::TypedTable<CQdrDbEntityTableRecord, CQdrDbEntityTableIterator> {
 public:
  explicit CQdrDbEntityTable(CQdrDbDatabase* database);
  using TypedTable::has;

  /// Writes the keyword of a class into `nameOut` (at least CQdrDbTableRecord::kNameSize), or
  /// leaves it alone when there is none, and looks up whatever name then stands there.
  bool has(QdrDb::ClassType type, wchar_t* nameOut, CQdrDbEntityTableRecord*& out) const;

  /// False for an entity whose class has no keyword.
  bool addEntity(const CQdrDbObjectId& id);

  /// False when its class has no record.
  bool removeEntity(const CQdrDbObjectId& id);

  /// False while the record holds an entity.
  bool removeRecord(const wchar_t* name);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;

 private:
  CQdrDbEntityTableRecord* recordOf(const CQdrDbObjectId& id);

  // Records met so far by class type, so that adding an entity compares no names.
  std::array<CQdrDbEntityTableRecord*, QdrDb::eClassTextTable + 1> m_byType{};
};
