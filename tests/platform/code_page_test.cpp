#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace {

// Bytes of the Korean code page by its published table: U+AC00 is B0 A1, U+D7A3 is C6 52, the
// degree sign is A1 C6.
TEST(CodePage, IsKoreanWithBaseLettersForTheRest) {
  EXPECT_EQ(qdr::toCodePage(L"a1%"), "a1%");
  EXPECT_EQ(qdr::toCodePage(L"가힣°"), "\xB0\xA1\xC6\x52\xA1\xC6");
  EXPECT_EQ(qdr::toCodePage(L"éÅñçžŘ"), "eAnczR");
  EXPECT_EQ(qdr::toCodePage(L"\U0001F600"), "?");
  EXPECT_EQ(qdr::toCodePage(std::wstring(1, static_cast<wchar_t>(-5))), "?");
}

TEST(CodePage, TheHostMaySetAnother) {
  struct Doubled : ICodePage {
    std::string bytesOf(wchar_t character) override {
      return character < 128 ? std::string(2, static_cast<char>(character)) : std::string();
    }
  } doubled;
  qdr::setCodePage(&doubled);
  EXPECT_EQ(qdr::toCodePage(L"aé"), "aaee");
  qdr::setCodePage(nullptr);
  EXPECT_EQ(qdr::toCodePage(L"a"), "a");
}

}  // namespace
