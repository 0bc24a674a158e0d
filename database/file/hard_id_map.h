#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "database/id_set.h"
#include "database/object_id.h"

class CQdrDbDatabase;
class CQdrDbTable;
class CQdrDbTableRecord;

namespace qdr {

/// What the numbers in a file stand for, filled while a drawing is read. A number means a record of
/// this file first, the first by name; then a default record that was there before, whose number
/// may be equal.
class HardIdMap {
 public:
  /// A record that came from the file and entered its table.
  void noteRead(const CQdrDbTableRecord& record) { m_fromFile.insert(&record); }

  /// The table is complete: from here on its numbers are answered from this map.
  void complete(const CQdrDbTable& table);

  /// The record that a number stands for. False when the table is not complete in this map.
  bool find(const CQdrDbTable& table, std::uint64_t number, CQdrDbObjectId& id) const;

  /// The colour record named by an index. False when the colour table is not complete.
  bool findColor(std::int32_t index, CQdrDbObjectId& id) const;

  /// Forgets everything; reading is over.
  void clear();

 private:
  using Records = std::unordered_map<std::uint64_t, CQdrDbObjectId>;

  void completeColors(const CQdrDbTable& colors);

  std::unordered_set<const CQdrDbTableRecord*> m_fromFile;
  std::unordered_map<const CQdrDbTable*, Records> m_tables;
  std::unordered_map<std::int32_t, CQdrDbObjectId> m_colors;
  bool m_hasColors = false;
};

/// The record of a table that bears a number: through the map of a read under way, else by a walk.
/// Null on a miss.
CQdrDbObjectId recordByNumber(const CQdrDbTable& table, std::uint64_t number);

/// The same, on a miss the record of this name, or null without one.
CQdrDbObjectId recordByNumber(const CQdrDbTable& table, std::uint64_t number,
                              const wchar_t* fallback);

/// The colour record named by an index, on a miss "256". Makes no record.
CQdrDbObjectId colorByIndex(const CQdrDbDatabase& database, std::int32_t index);

/// The member of a set that bears a number, or null. Logarithmic.
CQdrDbObjectId memberByNumber(const IdSet& ids, std::uint64_t number);

}  // namespace qdr
