#include "database/file/hard_id_map.h"

#include "database/database.h"

namespace qdr {

void HardIdMap::complete(const CQdrDbTable& table) {
  Records& numbers = m_tables[&table];
  numbers.clear();
  const auto enter = [&](bool fromFile) {
    for (const auto& [name, id] : table.records()) {
      const auto* record = static_cast<const CQdrDbTableRecord*>(id.getPObject());
      if (m_fromFile.contains(record) == fromFile) numbers.emplace(id.hardId(), id);
    }
  };
  enter(true);
  enter(false);
  if (table.classType() == QdrDb::eClassColorTable) completeColors(table);
}

void HardIdMap::completeColors(const CQdrDbTable& colors) {
  m_colors.clear();
  m_hasColors = true;
  for (const auto& [name, id] : colors.records()) {
    const std::int32_t index = _wtoi(name);
    CString canonical;
    canonical.Format(L"%d", index);
    if (canonical == name) m_colors.emplace(index, id);
  }
}

bool HardIdMap::find(const CQdrDbTable& table, std::uint64_t number, CQdrDbObjectId& id) const {
  const auto numbers = m_tables.find(&table);
  if (numbers == m_tables.end()) return false;
  const auto found = numbers->second.find(number);
  id = found == numbers->second.end() ? CQdrDbObjectId() : found->second;
  return true;
}

bool HardIdMap::findColor(std::int32_t index, CQdrDbObjectId& id) const {
  const auto found = m_colors.find(index);
  id = found == m_colors.end() ? CQdrDbObjectId() : found->second;
  return m_hasColors;
}

void HardIdMap::clear() {
  *this = {};
}

namespace {

CQdrDbObjectId recordNamed(const CQdrDbTable& table, const wchar_t* name) {
  CQdrDbObjectId id;
  table.getAt(name, id);
  return id;
}

// An object that stands in for a number in searches of a set; it draws no number of its own.
class NumberProbe : public CQdrDbObject {
 public:
  NumberProbe(const CQdrDbObject& any, std::uint64_t number) : CQdrDbObject(any) {
    m_createdTime = number;
  }
  void makeProperty() override {}
};

}  // namespace

CQdrDbObjectId recordByNumber(const CQdrDbTable& table, std::uint64_t number) {
  CQdrDbObjectId id;
  const CQdrDbDatabase* database = table.database();
  if (database && database->hardIds().find(table, number, id)) return id;
  return table.getAt(number, id) ? id : CQdrDbObjectId();
}

CQdrDbObjectId recordByNumber(const CQdrDbTable& table, std::uint64_t number,
                              const wchar_t* fallback) {
  const CQdrDbObjectId id = recordByNumber(table, number);
  return id.isNull() ? recordNamed(table, fallback) : id;
}

CQdrDbObjectId colorByIndex(const CQdrDbDatabase& database, std::int32_t index) {
  CQdrDbObjectId id;
  if (!database.hardIds().findColor(index, id)) {
    CString name;
    name.Format(L"%d", index);
    id = recordNamed(database.m_colorTable, name);
  }
  return id.isNull() ? recordNamed(database.m_colorTable, L"256") : id;
}

CQdrDbObjectId memberByNumber(const IdSet& ids, std::uint64_t number) {
  if (ids.empty()) return {};
  const NumberProbe probe(*ids.begin()->getPObject(), number);
  const auto found = ids.find(CQdrDbObjectId(&probe));
  return found == ids.end() ? CQdrDbObjectId() : *found;
}

}  // namespace qdr
