#include <gtest/gtest.h>

#include <string>

#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/headless/memory_file.h"
#include "platform/headless/memory_files.h"
#include "platform/platform_context.h"
#include "platform/utf16.h"

namespace {

class TextFile : public testing::Test {
 protected:
  qdr::MemoryFiles files;
  qdr::ScopedPlatform scope{{.files = &files}};

  // The lines, each ended by '|'.
  std::wstring linesOf(std::string bytes) {
    files.put(L"/t.txt", std::move(bytes));
    CStdioFile file;
    if (!file.Open(L"/t.txt", 16384)) return L"not open";
    std::wstring result;
    CString line;
    while (file.ReadString(line))
      result += line.text() + L"|";
    EXPECT_EQ(line, L"");
    return result;
  }
};

struct Lines {
  const char* name;
  std::string bytes;
  const wchar_t* expected;
};

TEST_F(TextFile, EncodingsAndLineEnds) {
  using namespace std::string_literals;
  const Lines rows[] = {
      {"line feeds", "a\nb\n", L"a|b|"},
      {"carriage returns go with line feeds only", "a\r\n\r\nb\rc", L"a||b\rc|"},
      {"no end of the last line", "a\nb", L"a|b|"},
      {"empty file", "", L""},
      {"one empty line", "\n", L"|"},
      {"UTF-8", "\xEA\xB0\x80\n", L"가|"},
      {"UTF-8 with its mark", "\xEF\xBB\xBFx", L"x|"},
      {"Latin-1", "5\xB0\n\xE9t\xE9", L"5°|été|"},
      {"UTF-16 little", "\xFF\xFE\x00\xAC\r\x00\n\x00z\x00"s, L"가|z|"},
      {"UTF-16 big", "\xFE\xFF\xAC\x00\x00\n\xD8\x3D\xDE\x00"s, L"가|\U0001F600|"},
      {"UTF-16 with half a unit behind", "\xFF\xFE"s + "a\0b"s, L"a|"},
      {"shorter than a mark", "\xEF\xBB", L"ï»|"},
  };
  for (const Lines& row : rows)
    EXPECT_EQ(linesOf(row.bytes), row.expected) << row.name;
}

TEST_F(TextFile, OpensForReadingOnly) {
  CStdioFile file;
  EXPECT_FALSE(file.Open(L"/t.txt", 4097 | 16384));
  EXPECT_FALSE(file.Open(L"/none.txt", 16384));
}

TEST_F(TextFile, FindsFontsInAnyCaseButTheExactOneFirst) {
  files.put(L"/font/Romans.SHX", "");
  files.put(L"/font/txt.shx", "1");
  files.put(L"/font/TXT.SHX", "2");
  EXPECT_EQ(qdr::findFileInAnyCase(L"/font/romans.shx"), L"/font/Romans.SHX");
  EXPECT_EQ(qdr::findFileInAnyCase(L"/font\\txt.shx"), L"/font\\txt.shx");
  EXPECT_EQ(qdr::findFileInAnyCase(L"/font/Txt.shx"), L"/font/TXT.SHX");
  EXPECT_EQ(qdr::findFileInAnyCase(L"/font/none.shx"), L"");
  EXPECT_EQ(qdr::findFileInAnyCase(L"/font/"), L"");
}

TEST_F(TextFile, StreamsComeFromTheSameFiles) {
  files.put(L"/f.shx", std::string("ab\0c", 4));
  EXPECT_EQ(_wfopen(L"/none.shx", L"rb"), nullptr);
  std::FILE* const stream = _wfopen(L"\\f.shx", L"rb");
  ASSERT_NE(stream, nullptr);
  char bytes[8] = {};
  EXPECT_EQ(std::fread(bytes, 1, sizeof bytes, stream), 4u);
  EXPECT_EQ(bytes[3], 'c');
  std::fclose(stream);
}

TEST(FilePath, CutsAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(qdr::folderOf(L"/a/b\\c.kov"), L"/a/b");
  EXPECT_EQ(qdr::folderOf(L"c.kov"), L"");
  EXPECT_EQ(qdr::folderOf(L"/c.kov"), L"/");
  EXPECT_EQ(qdr::fileNameOf(L"a\\b/c.kov"), L"c.kov");
  EXPECT_EQ(qdr::titleOf(L"/x.y/site.v2.kov"), L"site.v2");
  EXPECT_EQ(qdr::titleOf(L"/x.y/site"), L"site");
  EXPECT_EQ(qdr::titleOf(L"/x/.kov"), L".kov");
  EXPECT_EQ(qdr::extensionOf(L"/x.y/site"), L"");
  EXPECT_EQ(qdr::extensionOf(L"/x/site.KOV"), L"KOV");
  EXPECT_EQ(qdr::joinPath(L"/a/", L"b"), L"/a/b");
  EXPECT_EQ(qdr::joinPath(L"/a", L"b"), L"/a/b");
  EXPECT_EQ(qdr::joinPath(L"", L"b"), L"b");
}

// The bytes of a field by hand: U+AC00 is 00 AC, U+1F600 is the pair 3D D8 00 DE.
TEST(Units, FieldsAreCutBeforeAPairAndFilledWithZeros) {
  using namespace std::string_literals;
  struct Row {
    const wchar_t* text;
    unsigned units;
    std::string bytes;
    const wchar_t* readBack;
  };
  const Row rows[] = {
      {L"a가", 4, "a\0\x00\xAC\0\0\0\0"s, L"a가"},
      {L"abcd", 3, "a\0b\0\0\0"s, L"ab"},
      {L"a\U0001F600", 4, "a\0\x3D\xD8\x00\xDE\0\0"s, L"a\U0001F600"},
      {L"a\U0001F600", 3, "a\0\0\0\0\0"s, L"a"},
      {nullptr, 2, "\0\0\0\0"s, L""},
      {L"x", 1, "\0\0"s, L""},
  };
  for (const Row& row : rows) {
    qdr::MemoryFile out;
    qdr::writeUnits(&out, row.text, row.units);
    out.Close();
    EXPECT_EQ(out.bytes(), row.bytes) << row.units;
    qdr::MemoryFile in(out.bytes());
    std::wstring buffer(row.units, L'#');
    EXPECT_TRUE(qdr::readUnits(&in, buffer.data(), row.units));
    EXPECT_STREQ(buffer.c_str(), row.readBack);
  }
}

TEST(Units, ReadingAlwaysTerminates) {
  using namespace std::string_literals;
  wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
  qdr::MemoryFile full("a\0b\0c\0d\0"s);
  EXPECT_TRUE(qdr::readUnits(&full, buffer, 4));
  EXPECT_STREQ(buffer, L"abc");
  qdr::MemoryFile shortFile("x\0y"s);
  EXPECT_FALSE(qdr::readUnits(&shortFile, buffer, 4));
  EXPECT_STREQ(buffer, L"x");
}

TEST(Units, LoneSurrogatesSurvive) {
  const std::u16string units = {0xD83D, u'x', 0xDE00, 0xD83D};
  EXPECT_EQ(qdr::toUnits(qdr::fromUnits(units)), units);
  EXPECT_EQ(qdr::fromUnits(units).size(), 4u);
  EXPECT_EQ(qdr::toUnits(std::wstring(1, static_cast<wchar_t>(0x110000))), u"\uFFFD");
}

}  // namespace
