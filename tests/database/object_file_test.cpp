// Heads of objects and the common form of tables as bytes of a drawing file.

#include <gtest/gtest.h>

#include <string>

#include "database/database.h"
#include "platform/headless/memory_file.h"

namespace {

using namespace std::string_literals;

constexpr std::uint64_t kNumber = 0x0102030405060708;
const std::string kNumberBytes = "\x08\x07\x06\x05\x04\x03\x02\x01";

std::string nameBytes(const std::string& ascii) {
  std::string bytes;
  for (const char letter : ascii)
    bytes += {letter, '\0'};
  bytes.resize(162);
  return bytes;
}

TEST(ObjectFile, HeadAndNameHaveTheirBytes) {
  CQdrDbDatabase database(false);
  CQdrDbEntityTableRecord record(&database);
  record.setCreatedTime(kNumber);
  record.setName(static_cast<const wchar_t*>(L"Ab"));
  record.setErased();
  qdr::MemoryFile out;
  database.m_pFile = &out;
  record.save();
  ASSERT_TRUE(out.Close());
  const std::string expected = kNumberBytes + "\x2d\0\0\0\x02"s + nameBytes("Ab");
  EXPECT_EQ(out.bytes(), expected);

  // The class in a file never changes that of an object.
  std::string altered = expected;
  altered[8] = 13;
  qdr::MemoryFile in(altered);
  database.m_pFile = &in;
  CQdrDbEntityTableRecord read(&database);
  read.read();
  EXPECT_EQ(read.hardObjectId(), kNumber);
  EXPECT_EQ(read.classType(), QdrDb::eClassColorTableRecord);
  EXPECT_TRUE(read.isErased());
  EXPECT_EQ(std::wstring(read.getName()), L"Ab");
  database.m_pFile = nullptr;
}

TEST(ObjectFile, AShortHeadKeepsWhatItMisses) {
  CQdrDbDatabase database(false);
  struct Row {
    std::size_t length;
    bool number, status;
  };
  const std::string whole = kNumberBytes + "\x2d\0\0\0\x02"s;
  for (const Row& row : {Row{0, false, false}, Row{7, false, false}, Row{8, true, false},
                         Row{12, true, false}, Row{13, true, true}}) {
    qdr::MemoryFile in(whole.substr(0, row.length));
    database.m_pFile = &in;
    CQdrDbEntityTableRecord record(&database);
    const std::uint64_t own = record.getCreatedTime();
    record.read();
    EXPECT_EQ(record.getCreatedTime(), row.number ? kNumber : own) << row.length;
    EXPECT_EQ(record.isErased(), row.status) << row.length;
  }
  database.m_pFile = nullptr;
}

TEST(ObjectFile, TablesLeaveErasedRecordsOutAndCountTheRest) {
  CQdrDbDatabase database(false);
  CQdrDbEntityTable& table = database.m_entityTable;
  for (const wchar_t* name : {L"b", L"a", L"C"}) {
    auto* record = new CQdrDbEntityTableRecord(&database);
    record->setName(name);
    record->setCreatedTime(kNumber);
    if (*name == L'b') record->setErased();
    table.add(record);
  }
  qdr::MemoryFile out;
  database.m_pFile = &out;
  table.save();
  ASSERT_TRUE(out.Close());
  const std::string head = kNumberBytes + "\x2d\0\0\0\0"s;
  const std::string expected = "\x02\0"s + head + nameBytes("C") + head + nameBytes("a") + "\0\0"s;
  EXPECT_EQ(out.bytes(), expected);

  // A count beyond the bytes ends with them; a record without a name is dropped.
  qdr::MemoryFile in("\xff\xff"s + head + nameBytes("d") + head + nameBytes(""));
  database.m_pFile = &in;
  table.read();
  database.m_pFile = nullptr;
  EXPECT_EQ(table.size(), 4u);
  CQdrDbEntityTableRecord* read = nullptr;
  ASSERT_TRUE(table.getRecord(L"d", read));
  EXPECT_TRUE(read->ownerId() == &table);
}

}  // namespace
