#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

#include "database/object.h"
#include "database/table_record.h"
#include "platform/export.h"
#include "platform/wide_string.h"

class CQdrDbTableIterator;

/// A named collection of records, which it owns: a record dies with the table, when another one of
/// its name is added, or when it is removed. Names are unique and compare by case.
class QDR_API CQdrDbTable : public CQdrDbObject {
 public:
  using Records = std::map<CString, CQdrDbObjectId>;

  explicit CQdrDbTable(CQdrDbDatabase* database);
  ~CQdrDbTable() override;

  CQdrDbTable(const CQdrDbTable&) = delete;
  CQdrDbTable& operator=(const CQdrDbTable&) = delete;

  /// The table as it stands in a file: count, records in the order of names, 0. Erased records are
  /// left out.
  void save() override;

  /// Adds the records of a file to those that are here; one of the same name is replaced.
  void read() override;
  void makeProperty() override {}

  /// Looks a name up. Only when `out` comes in null, a name not found as it stands is tried again
  /// in upper and then in lower case. On a miss `out` stays.
  bool getAt(const wchar_t* name, CQdrDbObjectId& out, bool = false) const;

  /// Looks a number up, in the order of names. On a miss `out` holds the last id of the table.
  bool getAt(std::uint64_t hardId, CQdrDbObjectId& out, bool = false) const;

  /// The record of exactly this name; on a miss `out` stays.
  bool getRecord(const wchar_t* name, CQdrDbTableRecord*& out, bool = false) const;

  bool has(const wchar_t* name) const;

  /// Compares pointers and follows none, so it may be asked about a record that is gone.
  bool has(const CQdrDbObjectId& id) const;

  /// Takes a record over. A record that bears its name is replaced: what names the old one follows
  /// to this one, then the old one dies. False, and the record stays the caller's, when it has no
  /// name. A record that is here already stays, true. The owner id is the caller's to set.
  bool add(CQdrDbTableRecord* record);

  /// The same; `out` takes the record's id.
  bool add(CQdrDbObjectId& out, CQdrDbTableRecord* record);

  /// Renames a record of this table and files it under the name it then bears. Nothing happens when
  /// the record is not filed under its name, keeps its name, or the name belongs to another one.
  void reName(CQdrDbTableRecord* record, wchar_t* newName);

  /// An iterator for the caller to delete, at the first record if `atStart`.
  bool newIterator(CQdrDbTableIterator*& iterator, bool atStart = true);

  /// Number of records, erased ones included.
  std::size_t size() const { return m_records.size(); }
  const Records& records() const { return m_records; }

 protected:
  /// An empty record for read to fill; null when the table reads none.
  virtual CQdrDbTableRecord* newRecord() { return nullptr; }

  /// A record has entered the table.
  virtual void onAdded(CQdrDbTableRecord&) {}

  /// Whatever names `from` follows to `to`. `from` is about to die; the database's undo list is
  /// taken care of.
  virtual void onReplaced(CQdrDbTableRecord& from, CQdrDbTableRecord& to);

  /// Whatever names `record` lets go of it. The record is about to die; the database's undo list is
  /// taken care of.
  virtual void onRemoved(CQdrDbTableRecord& record);

  /// Takes a record out and deletes it; false when there is none of that name.
  bool removeAndDelete(const wchar_t* name);

  // The two halves of save and read between which some tables have fields of their own.
  void saveRecords();
  void readRecords();
  void saveEnd();
  void readEnd();

  /// Deletes all records without telling anyone.
  void deleteRecords();

  Records m_records;

 private:
  void replace(CQdrDbObjectId& place, CQdrDbTableRecord& record);
  bool isPartOfDatabase() const;
};
