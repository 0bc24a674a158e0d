#include "database/table.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "database/typed_table.h"

namespace {

class Record : public CQdrDbTableRecord {
 public:
  explicit Record(CQdrDbDatabase* database = nullptr) : CQdrDbTableRecord(database) {}
  Record(const wchar_t* name, int* deaths) : CQdrDbTableRecord(nullptr), m_deaths(deaths) {
    setName(name);
  }
  ~Record() override {
    if (m_deaths) ++*m_deaths;
  }
  using CQdrDbTableRecord::setName;
  void setName(wchar_t* name) override {
    if (!m_keepsName) CQdrDbTableRecord::setName(name);
  }
  bool m_keepsName = false;

 private:
  int* m_deaths = nullptr;
};

class Iterator : public qdr::TypedTableIterator<Record> {
 public:
  using TypedTableIterator::TypedTableIterator;
};

class Table : public qdr::TypedTable<Record, Iterator> {
 public:
  Table() : TypedTable(nullptr) {}
  Record* put(const wchar_t* name, int* deaths = nullptr) {
    auto* record = new Record(name, deaths);
    if (add(record)) return record;
    delete record;
    return nullptr;
  }
  bool remove(const wchar_t* name) { return removeAndDelete(name); }
  std::vector<std::wstring> names() const {
    std::vector<std::wstring> names;
    for (const auto& [name, id] : records())
      names.push_back(name.text());
    return names;
  }
};

TEST(Table, RetriesInUpperAndLowerCaseForANullIdOnly) {
  Table table;
  Record* wall = table.put(L"Wall");
  Record* door = table.put(L"door");
  Record* roof = table.put(L"ROOF");
  struct Row {
    const wchar_t* name;
    bool withNull;
    Record* expected;
  };
  const Row rows[] = {
      {L"Wall", true, wall},     {L"Wall", false, wall},    {L"WALL", true, nullptr},
      {L"DOOR", true, door},     {L"DOOR", false, nullptr}, {L"Roof", true, roof},
      {L"Roof", false, nullptr}, {L"", true, nullptr},
  };
  Record other;
  for (const Row& row : rows) {
    CQdrDbObjectId id;
    if (!row.withNull) id = &other;
    EXPECT_EQ(table.getAt(row.name, id), row.expected != nullptr) << row.name;
    Record* const missed = row.withNull ? nullptr : &other;
    EXPECT_TRUE(id == (row.expected ? row.expected : missed)) << row.name;
  }
}

TEST(Table, FindsNumbersInTheOrderOfNames) {
  Table table;
  CQdrDbObjectId id;
  EXPECT_FALSE(table.getAt(std::uint64_t{1}, id));
  EXPECT_TRUE(id.isNull());
  Record* b = table.put(L"b");
  Record* a = table.put(L"a");
  a->setCreatedTime(50);
  b->setCreatedTime(50);
  EXPECT_TRUE(table.getAt(std::uint64_t{50}, id));
  EXPECT_TRUE(id == a);
  EXPECT_FALSE(table.getAt(std::uint64_t{51}, id));
  EXPECT_TRUE(id == b) << "a search that fails leaves the last id";
}

TEST(Table, AddReplacesAndDestroysTheRecordOfThatName) {
  Table table;
  int deaths = 0;
  Record* first = table.put(L"a", &deaths);
  table.setCurrentRecord(first);
  EXPECT_TRUE(table.add(first)) << "it is here already";
  EXPECT_EQ(deaths, 0);
  auto* second = new Record(L"a", &deaths);
  CQdrDbObjectId id;
  EXPECT_TRUE(table.add(id, second));
  EXPECT_TRUE(id == second);
  EXPECT_EQ(deaths, 1);
  EXPECT_EQ(table.getCurrentRecord(), second) << "what named the old one follows";
  EXPECT_EQ(table.size(), 1u);
  EXPECT_TRUE(second->ownerId().isNull()) << "the owner is the caller's to set";

  EXPECT_EQ(table.put(L"", &deaths), nullptr);
  EXPECT_FALSE(table.add(nullptr));
  EXPECT_EQ(table.size(), 1u);
}

TEST(Table, DeletesItsRecordsOnceEach) {
  int deaths = 0;
  {
    Table table;
    table.put(L"a", &deaths);
    Record* renamed = table.put(L"b", &deaths);
    const wchar_t* other = L"c";
    renamed->setName(other);
    table.add(renamed);
    EXPECT_EQ(table.names(), (std::vector<std::wstring>{L"a", L"b", L"c"}));
    table.setCurrentRecord(table.put(L"d", &deaths));
    EXPECT_TRUE(table.remove(L"d"));
    EXPECT_FALSE(table.remove(L"d"));
    EXPECT_EQ(table.getCurrentRecord(), nullptr);
    EXPECT_EQ(deaths, 1);
  }
  EXPECT_EQ(deaths, 3);
}

TEST(Table, ReNameFilesUnderTheNameTheRecordTakes) {
  const std::wstring tooLong(90, L'x');
  const std::wstring cut(80, L'x');
  struct Row {
    const char* name;
    std::wstring newName;
    bool keepsName;
    std::vector<std::wstring> expected;
  };
  const Row rows[] = {
      {"plain", L"z", false, {L"b", L"z"}},
      {"cut at 80", tooLong, false, {L"b", cut}},
      {"another record holds it", L"b", false, {L"a", L"b"}},
      {"the record keeps its own", L"z", true, {L"a", L"b"}},
      {"no name", L"", false, {L"a", L"b"}},
      {"the same", L"a", false, {L"a", L"b"}},
  };
  for (const Row& row : rows) {
    Table table;
    Record* record = table.put(L"a");
    table.put(L"b");
    record->m_keepsName = row.keepsName;
    std::wstring buffer = row.newName;
    table.reName(record, buffer.data());
    EXPECT_EQ(table.names(), row.expected) << row.name;
    CQdrDbObjectId id;
    EXPECT_TRUE(table.getAt(record->getName(), id) && id == record) << row.name;
  }
  Table table;
  Record stranger(L"a", nullptr);
  Record* own = table.put(L"a");
  wchar_t newName[] = L"z";
  table.reName(&stranger, newName);
  EXPECT_TRUE(table.has(own->objectId()) && !table.has(L"z"));
}

TEST(TableRecord, CutsANameInTheCallersBuffer) {
  Record record;
  std::wstring name(81, L'n');
  record.setName(name.data());
  EXPECT_EQ(std::wstring(record.getName()), std::wstring(80, L'n'));
  EXPECT_EQ(name[80], L'\0');
  record.setName(std::wstring(200, L'm').c_str());
  EXPECT_EQ(std::wstring(record.getName()), std::wstring(80, L'm'));
}

TEST(TableIterator, WalksInTheOrderOfNamesAndStandsStillOnErasedRecords) {
  Table table;
  Record* b = table.put(L"b");
  Record* a = table.put(L"a");
  Record* upper = table.put(L"C");
  b->setErased();
  Iterator* made = nullptr;
  ASSERT_TRUE(table.newIterator(made, true));
  const std::unique_ptr<Iterator> iterator(made);
  Record* record = nullptr;
  EXPECT_TRUE(iterator->getRecord(record) && record == upper) << "capitals stand first";
  iterator->step(true);
  EXPECT_TRUE(iterator->getRecord(record) && record == a);
  iterator->step(true);
  EXPECT_FALSE(iterator->getRecord(record));
  EXPECT_EQ(record, nullptr);
  CQdrDbTableRecord* erased = nullptr;
  EXPECT_TRUE(iterator->getRecord(erased, true) && erased == b);
  iterator->step(true);
  EXPECT_TRUE(iterator->done());
  iterator->step(true);
  EXPECT_TRUE(iterator->done());
  EXPECT_FALSE(iterator->getRecord(record));

  EXPECT_TRUE(iterator->seek(a->objectId()));
  iterator->step(false);
  EXPECT_TRUE(iterator->getRecord(record) && record == upper);
  iterator->step(false);
  EXPECT_TRUE(iterator->done()) << "before the first record the walk is done";
  const Record stranger;
  EXPECT_FALSE(iterator->seek(&stranger));
  EXPECT_TRUE(iterator->done());
}

}  // namespace
