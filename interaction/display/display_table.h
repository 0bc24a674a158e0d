#pragma once

#include "database/typed_table.h"
#include "interaction/display/display_table_record.h"
#include "platform/export.h"

class CQdrDbDisplayTableIterator : public qdr::TypedTableIterator<CQdrDbDisplayTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The views of a drawing, one for each block, and the one being looked through.
class QDR_API CQdrDbDisplayTable
    : public qdr::TypedTable<CQdrDbDisplayTableRecord, CQdrDbDisplayTableIterator> {
 public:
  explicit CQdrDbDisplayTable(CQdrDbDatabase* database);

  /// Makes a record over the limits of the drawing and offers it to the table, which takes records
  /// with a name only: it comes to nothing. Views of a drawing are made with their blocks.
  void initDisplayTable();

  /// Makes a record current; the one before becomes the previous one. False when there is no such
  /// record, and then nothing changes.
  bool setCurrentRecord(const wchar_t* name);
  bool setCurrentRecord(CQdrDbDisplayTableRecord* record);
  CQdrDbDisplayTableRecord* getPreviousRecord() const { return m_previous; }

  /// Enters an entity in the current record, if there is one. Always true.
  bool addEntity(const CQdrDbObjectId& id);

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;

 private:
  void rebindBlocks(const CQdrDbTableRecord& from, CQdrDbDisplayTableRecord* to);

  CQdrDbDisplayTableRecord* m_previous = nullptr;
};
