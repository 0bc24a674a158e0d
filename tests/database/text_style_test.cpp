#include <gtest/gtest.h>

#include "database/database.h"
#include "platform/headless/memory_files.h"
#include "platform/platform_context.h"
#include "tests/support/drawing_bytes.h"

namespace {

using qdr_test::putNumber;

// A normal font of two shapes whose description, the first one, is 6 bytes long and ends with
// above, below, modes, 0.
std::string normalFont(std::uint8_t modes) {
  std::string bytes(30 + 2 * 4 + 6, '\0');
  putNumber(bytes, 28, std::uint16_t{2});
  putNumber(bytes, 32, std::uint16_t{6});
  putNumber(bytes, 38 + 4, modes);
  return bytes;
}

// A big font with one escape range, whose first entry puts a description of 5 bytes at 60.
std::string bigFont(std::uint8_t modes) {
  std::string bytes(65, '\0');
  putNumber(bytes, 29, std::uint16_t{1});
  putNumber(bytes, 35 + 2, std::uint16_t{5});
  putNumber(bytes, 35 + 4, std::uint32_t{60});
  putNumber(bytes, 60 + 3, modes);
  return bytes;
}

struct HostFolder : ISystem {
  std::wstring computerName() override { return L"machine"; }
  std::wstring userName() override { return L"user"; }
  SYSTEMTIME utcTime() override { return {}; }
  SYSTEMTIME localTime() override { return {}; }
  std::wstring modulePath() override { return L"/host/qdraft"; }
};

class TextStyles : public testing::Test {
 protected:
  TextStyles() {
    files.put(L"/host/font/upright.shx", normalFont(0));
    files.put(L"/host/font/hanging.shx", normalFont(2));
    files.put(L"/host/font/BIGUP.shx", bigFont(0));
    files.put(L"/host/font/bighang.shx", bigFont(2));
    files.put(L"/host/font/short.shx", "x");
  }

  PlatformContext context() {
    PlatformContext parts;
    parts.files = &files;
    parts.system = &system;
    return parts;
  }

  qdr::MemoryFiles files;
  HostFolder system;
  qdr::ScopedPlatform scope{context()};
  CQdrDbDatabase database{false};
  CQdrDbTextStyleTableRecord style{&database};
};

TEST_F(TextStyles, FontsTellWhetherTheyHang) {
  EXPECT_EQ(_GetVectorFontPath(), L"/host/font");
  EXPECT_TRUE(style.isNormalVertical(L"hanging"));
  EXPECT_TRUE(style.isNormalVertical(L"hanging")) << "the open file is rewound";
  EXPECT_FALSE(style.isNormalVertical(L"upright"));
  EXPECT_FALSE(style.isNormalVertical(L"short"));
  EXPECT_FALSE(style.isNormalVertical(L"absent"));
  EXPECT_FALSE(style.isNormalVertical(L""));
  EXPECT_TRUE(style.isBigVertical(L"bighang"));
  EXPECT_FALSE(style.isBigVertical(L"bigup")) << "found in any case";
}

TEST_F(TextStyles, TheMarkOfAVerticalFontDependsOnTheOrder) {
  style.setFileName(L"upright");
  style.setBigFileName(L"bighang");
  EXPECT_TRUE(style.isVerticalFont());
  style.setIsVertical(true);
  EXPECT_TRUE(style.isVertical());
  style.setBigFileName(L"bigup");
  EXPECT_TRUE(style.isVerticalFont()) << "a big font never clears it";
  style.setFileName(L"upright");
  EXPECT_FALSE(style.isVerticalFont());
  style.setIsVertical(true);
  EXPECT_FALSE(style.isVertical());
}

TEST_F(TextStyles, OutlineFonts) {
  wchar_t buffer[CQdrDbTableRecord::kNameSize] = L"untouched";
  wchar_t* face = buffer;
  bool bold = true;
  bool italic = false;
  int charset = 1;
  int pitch = 2;
  EXPECT_FALSE(style.font(face, bold, italic, charset, pitch));
  EXPECT_STREQ(buffer, L"untouched");
  style.setFont(L"Serif", false, true, 129, 34);
  EXPECT_TRUE(style.isTTF());
  EXPECT_TRUE(style.font(face, bold, italic, charset, pitch));
  EXPECT_STREQ(buffer, L"Serif");
  EXPECT_FALSE(bold);
  EXPECT_TRUE(italic);
  EXPECT_EQ(charset, 129);
  EXPECT_EQ(pitch, 34);
}

TEST_F(TextStyles, AFileKeepsEveryField) {
  auto* record = new CQdrDbTextStyleTableRecord(&database);
  record->setName(L"Title");
  record->setFileName(L"hanging");
  record->setBigFileName(L"bigup");
  record->setFont(L"Serif", true, false, 7, 8);
  record->setMirrorY(true);
  record->setTextSize(1.5);
  record->setWidthFactor(2.5);
  record->setObliquingAngle(0.25);
  record->setPriorSize(3.5);
  database.m_textStyleTable.add(record);
  const std::string bytes = qdr_test::savedBytes(database);
  const std::size_t at = qdr_test::kTextStyleTable + 2 + 704;  // behind "STANDARD"
  EXPECT_EQ(qdr_test::numberAt<std::uint8_t>(bytes, at + 175), 0x1C);
  EXPECT_EQ(qdr_test::numberAt<double>(bytes, at + 176), 1.5);
  EXPECT_EQ(qdr_test::numberAt<double>(bytes, at + 200), 3.5);
  EXPECT_EQ(qdr_test::textAt(bytes, at + 532), L"Serif");
  EXPECT_EQ(qdr_test::numberAt<std::int32_t>(bytes, at + 700), 8);
  const auto loaded = qdr_test::drawingOf(bytes);
  CQdrDbTextStyleTableRecord* back = nullptr;
  ASSERT_TRUE(loaded->m_textStyleTable.getRecord(L"Title", back));
  EXPECT_STREQ(back->fileName(), L"hanging");
  EXPECT_STREQ(back->bigFileName(), L"bigup");
  EXPECT_EQ(back->widthFactor(), 2.5);
  EXPECT_EQ(back->obliquingAngle(), 0.25);
  EXPECT_TRUE(back->isMirrorY());
  EXPECT_TRUE(back->isVerticalFont());
}

}  // namespace
