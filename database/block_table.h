#pragma once

#include "database/block_table_record.h"
#include "database/typed_table.h"
#include "platform/export.h"

class CQdrDbBlockTableIterator : public qdr::TypedTableIterator<CQdrDbBlockTableRecord> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

/// The blocks of a drawing: the spaces "MODEL_SPACE" and "PAPER_SPACE", whose entities are the
/// drawing, and definitions that inserts refer to. The current record is the current space, where
/// CQdrDbDatabase::addEntity puts entities.
class QDR_API CQdrDbBlockTable
    : public qdr::TypedTable<CQdrDbBlockTableRecord, CQdrDbBlockTableIterator> {
 public:
  static constexpr const wchar_t* kModelSpace = L"MODEL_SPACE";
  static constexpr const wchar_t* kPaperSpace = L"PAPER_SPACE";

  explicit CQdrDbBlockTable(CQdrDbDatabase* database);

  /// Makes "PAPER_SPACE" if asked, and "MODEL_SPACE", which becomes current.
  void initBlockTable(bool withPaperSpace);

  /// Makes a record of this name the current space. Always false, on success as well.
  bool SetCurentSpace(const wchar_t* name);

  /// Deletes a block with its entities; a removed current space falls back to "MODEL_SPACE". Tests
  /// neither references nor spaces: dealing with the inserts is the caller's. False without one.
  bool removeRecord(const wchar_t* name);

  /// The entity of the current space that bears this number, or null.
  CQdrDbObjectId getObjectId(std::uint64_t hardId);

  /// Blocks as they stand in a file.
  void read() override;

 protected:
  void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to) override;
  void onRemoved(CQdrDbTableRecord& record) override;

 private:
  CQdrDbBlockTableRecord* addSpace(const wchar_t* name);
};
