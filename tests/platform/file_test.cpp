#include "platform/file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/headless/memory_file.h"
#include "platform/platform_context.h"
#include "tests/support/faulty_files.h"

namespace {

using qdr::MemoryFile;
using qdr::testing_support::FaultyFiles;

// Bytes that tell their place, longer than any buffer of the file.
std::string pattern(std::size_t length) {
  std::string bytes(length, '\0');
  for (std::size_t i = 0; i < length; ++i)
    bytes[i] = static_cast<char>(i * 7 + i / 251);
  return bytes;
}

class FileOverMemory : public testing::Test {
 protected:
  FaultyFiles files;
  qdr::ScopedPlatform scope{{.files = &files}};

  void SetUp() override { files.put(L"/plans/a.kov", "earlier"); }
};

TEST_F(FileOverMemory, TransfersOfAnySizeKeepTheirOrder) {
  const std::string bytes = pattern(300'000);
  const unsigned sizes[] = {1, 8, 20, 0, 65535, 65536, 65537, 3, 100'000};
  CFile file;
  ASSERT_TRUE(file.Open(L"/plans/a.kov", 4097));
  std::size_t at = 0;
  for (std::size_t i = 0; at < bytes.size(); ++i) {
    const auto size = static_cast<unsigned>(
        std::min<std::size_t>(sizes[i % std::size(sizes)], bytes.size() - at));
    file.Write(bytes.data() + at, size);
    at += size;
  }
  EXPECT_EQ(file.bytesLeft(), 0u);
  EXPECT_TRUE(file.Close());
  ASSERT_EQ(*files.content(L"/plans/a.kov"), bytes);

  for (const std::size_t piece : {std::size_t{1'000'000}, std::size_t{7}}) {
    files.readPiece = piece;
    ASSERT_TRUE(file.Open(L"/plans/a.kov", 0));
    std::string got(bytes.size(), '?');
    at = 0;
    for (std::size_t i = 0; at < bytes.size(); ++i) {
      const auto size = static_cast<unsigned>(
          std::min<std::size_t>(sizes[i % std::size(sizes)], bytes.size() - at));
      EXPECT_EQ(file.bytesLeft(), bytes.size() - at);
      ASSERT_EQ(file.Read(got.data() + at, size), size);
      at += size;
    }
    EXPECT_EQ(got, bytes);
    EXPECT_EQ(file.bytesLeft(), 0u);
    EXPECT_TRUE(file.Close());
  }
}

TEST_F(FileOverMemory, ShortReadsLeaveTheTailOfTheBuffer) {
  CFile file;
  ASSERT_TRUE(file.Open(L"/plans/a.kov", 0));
  char buffer[] = "##########";
  EXPECT_FALSE(qdr::readRaw(&file, buffer, 10));
  EXPECT_STREQ(buffer, "earlier###");
  EXPECT_EQ(file.Read(buffer, 1), 0u);
  EXPECT_FALSE(qdr::readRaw(nullptr, buffer, 1));
}

TEST_F(FileOverMemory, AReadThatFailsIsNotAnEnd) {
  files.put(L"/plans/b.kov", pattern(200'000));
  files.readFailsAfter = 70'000;
  CFile file;
  ASSERT_TRUE(file.Open(L"/plans/b.kov", 0));
  std::string got(200'000, '?');
  EXPECT_EQ(file.Read(got.data(), 200'000), 70'000u);
  EXPECT_EQ(file.bytesLeft(), 0u);
  EXPECT_EQ(file.lastError(), "Input/output error");
  EXPECT_FALSE(file.Close());
}

struct Fault {
  const char* name;
  void (*arm)(FaultyFiles& files);
  unsigned bytes;
};

TEST_F(FileOverMemory, AFailedSaveLeavesTheEarlierFile) {
  const Fault rows[] = {
      {"disk full in the middle", [](FaultyFiles& f) { f.diskRoom = 100'000; }, 300'000},
      {"disk full at the last flush", [](FaultyFiles& f) { f.diskRoom = 5; }, 10},
      {"sync refused", [](FaultyFiles& f) { f.syncFails = true; }, 10},
      {"close loses bytes", [](FaultyFiles& f) { f.closeFails = true; }, 10},
      {"rename refused", [](FaultyFiles& f) { f.renameFails = true; }, 10},
  };
  for (const Fault& row : rows) {
    const std::string bytes = pattern(row.bytes);
    CFile file;
    ASSERT_TRUE(file.Open(L"/plans/a.kov", 4097)) << row.name;
    row.arm(files);
    for (unsigned i = 0; i < row.bytes; i += 10)
      file.Write(bytes.data() + i, 10);
    EXPECT_FALSE(file.Close()) << row.name;
    EXPECT_FALSE(file.Close()) << row.name << ", asked again";
    EXPECT_NE(file.lastError(), "") << row.name;
    EXPECT_EQ(*files.content(L"/plans/a.kov"), "earlier") << row.name;
    EXPECT_EQ(files.count(), 1u) << row.name << ": the sibling stays";
    files.diskRoom = FaultyFiles::kNever;
    files.syncFails = files.closeFails = files.renameFails = false;
  }
}

TEST_F(FileOverMemory, AnAbandonedSaveLeavesTheEarlierFile) {
  {
    CFile file;
    ASSERT_TRUE(file.Open(L"/plans/a.kov", 4097));
    file.Write("half", 4);
    EXPECT_EQ(files.count(), 2u);
    EXPECT_EQ(file.GetFilePath(), L"/plans/a.kov");
  }
  EXPECT_EQ(files.count(), 1u);
  EXPECT_EQ(*files.content(L"/plans/a.kov"), "earlier");
}

TEST_F(FileOverMemory, OpenRefusesWhatItCannotDo) {
  CFile file;
  EXPECT_FALSE(file.Open(L"/plans/none.kov", 0));
  EXPECT_EQ(file.lastError(), "No such file or directory");
  EXPECT_FALSE(file.Open(L"/plans", 4097));
  EXPECT_FALSE(file.Open(L"/plans/a.kov", 1));
  files.createFails = true;
  EXPECT_FALSE(file.Open(L"/plans/a.kov", 4097));
  EXPECT_EQ(file.lastError(), "Permission denied");
  EXPECT_FALSE(file.Close());
  file.Write("x", 1);
  EXPECT_EQ(file.Read(&file, 1), 0u);
  EXPECT_EQ(*files.content(L"/plans/a.kov"), "earlier");
}

TEST_F(FileOverMemory, FindsByNameAndByPattern) {
  files.put(L"/plans/b.kov", "12");
  files.put(L"/plans/sub/c.kov", "");
  files.put(L"/plans/notes.txt", "");
  CFileFind find;
  EXPECT_FALSE(find.FindFile(L"/plans/none.kov"));
  ASSERT_TRUE(find.FindFile(L"\\plans\\b.kov"));
  EXPECT_FALSE(find.FindNextFile());
  EXPECT_EQ(find.GetFileName(), L"b.kov");
  EXPECT_EQ(find.GetLength(), 2u);
  ASSERT_TRUE(find.FindFile(L"/plans/*.k?v"));
  EXPECT_TRUE(find.FindNextFile());
  EXPECT_EQ(find.GetFilePath(), L"/plans/a.kov");
  EXPECT_FALSE(find.FindNextFile());
  EXPECT_EQ(find.GetFileName(), L"b.kov");
  ASSERT_TRUE(find.FindFile(L"/plans/s*b*"));
  find.FindNextFile();
  EXPECT_TRUE(find.IsDirectory());
}

TEST(MemoryFile, SavesAndReadsWithoutAFileSystem) {
  MemoryFile out;
  const double value = 0.1;
  out.Write(&value, sizeof value);
  EXPECT_TRUE(out.Close());
  MemoryFile in(out.bytes());
  double got = 0.0;
  EXPECT_EQ(in.bytesLeft(), 8u);
  EXPECT_TRUE(qdr::readRaw(&in, &got, sizeof got));
  EXPECT_EQ(got, 0.1);
}

TEST(Archive, CarriesTheFileUntilClosed) {
  MemoryFile file;
  CArchive archive(&file, CArchive::store, 4096, nullptr);
  EXPECT_TRUE(archive.IsStoring());
  EXPECT_EQ(archive.GetFile(), &file);
  archive.Close();
  EXPECT_EQ(archive.GetFile(), nullptr);
  EXPECT_TRUE(file.Close());
}

}  // namespace
