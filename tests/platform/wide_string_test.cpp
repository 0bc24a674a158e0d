#include "platform/wide_string.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

namespace {

template <class... Arguments>
std::string formatted(const wchar_t* format, const Arguments&... arguments) {
  CString text;
  text.Format(format, arguments...);
  return qdr::toUtf8(text.text());
}

TEST(WideString, ClampsPositionsAndCounts) {
  const CString text(L"layer");
  EXPECT_EQ(text.Left(-1), L"");
  EXPECT_EQ(text.Left(9), L"layer");
  EXPECT_EQ(text.Right(2), L"er");
  EXPECT_EQ(text.Right(9), L"layer");
  EXPECT_EQ(text.Mid(-3, 2), L"la");
  EXPECT_EQ(text.Mid(3), L"er");
  EXPECT_EQ(text.Mid(5, 1), L"");
  EXPECT_EQ(text.Mid(1, 2147483647), L"ayer");
  EXPECT_EQ(text.GetAt(5), L'\0');
  EXPECT_EQ(text[-1], L'\0');
}

TEST(WideString, FindsForwardAndBackward) {
  const CString text(L"a,b,c");
  EXPECT_EQ(text.Find(L','), 1);
  EXPECT_EQ(text.Find(L',', 2), 3);
  EXPECT_EQ(text.Find(L"b,"), 2);
  EXPECT_EQ(text.Find(L"x"), -1);
  EXPECT_EQ(text.Find(L',', 99), -1);
  EXPECT_EQ(text.ReverseFind(L','), 3);
  EXPECT_EQ(text.ReverseFind(L'x'), -1);
}

TEST(WideString, EditsInPlace) {
  CString text(L"  one two \t\n");
  EXPECT_EQ(CString(text).TrimLeft(), L"one two \t\n");
  EXPECT_EQ(CString(text).TrimRight(), L"  one two");
  text.Trim();
  EXPECT_EQ(text.Delete(3, 99), 3);
  EXPECT_EQ(text.Delete(7), 3);
  EXPECT_EQ(text.Insert(99, L"!"), 4);
  EXPECT_EQ(text.Insert(-1, L'<'), 5);
  EXPECT_EQ(text, L"<one!");
  EXPECT_EQ(text.Replace(L"one", L"oneone"), 1);
  EXPECT_EQ(text.Replace(L"", L"x"), 0);
  EXPECT_EQ(text, L"<oneone!");
  CString blank(L" \t ");
  EXPECT_EQ(blank.Trim(), L"");
}

TEST(WideString, MapsTheCaseOfPlainLettersOnly) {
  EXPECT_EQ(CString(L"zaé[").MakeUpper(), L"ZAé[");
  EXPECT_EQ(CString(L"ZAÉ@").MakeLower(), L"zaÉ@");
  EXPECT_EQ(CString(L"ByLayer").CompareNoCase(L"BYLAYER"), 0);
  EXPECT_NE(CString(L"é").CompareNoCase(L"É"), 0);
  EXPECT_LT(CString(L"ab").CompareNoCase(L"ABC"), 0);
}

TEST(WideString, OrdersByCodePoint) {
  std::map<CString, int> names = {{L"a", 1}, {L"Z", 2}, {L"가", 3}, {L"10", 4}, {L"9", 5}};
  std::wstring order;
  for (const auto& [name, value] : names)
    order += name.text() + L" ";
  EXPECT_EQ(order, L"10 9 Z a 가 ");
}

TEST(WideString, FormatsLikeTheCLibrary) {
  const CString name(L"Öl");
  EXPECT_EQ(formatted(L"%s\n%s", name, L"b"), "Öl\nb");
  EXPECT_EQ(formatted(L"%S|%s", "narrow", "also"), "narrow|also");
  EXPECT_EQ(formatted(L"%d%% %u", -5, 7u), "-5% 7");
  EXPECT_EQ(formatted(L"%u %x %d", -1, -1, 0xFFFFFFFFu), "4294967295 ffffffff -1");
  EXPECT_EQ(formatted(L"%d %I64d %ld", std::int64_t{1} << 40, std::int64_t{-1} << 40, -3L),
            "1099511627776 -1099511627776 -3");
  EXPECT_EQ(formatted(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, -42, 42, 42),
            "[   42][42   ][-0042][+42][ 42]");
  EXPECT_EQ(formatted(L"[%5.2f][%*.*f]", 3.14159, 8, 3, 2.5), "[ 3.14][   2.500]");
  EXPECT_EQ(formatted(L"[%.3s][%6s][%c]", L"abcdef", L"xy", L'가'), "[abc][    xy][가]");
  EXPECT_EQ(formatted(L"%g %g %e", 1e-5, 100000.0, 12345.678), "1e-05 100000 1.234568e+04");
  EXPECT_EQ(formatted(L"%#x %#o %X %.4d", 255, 8, 48879, 7), "0xff 010 BEEF 0007");
  EXPECT_EQ(formatted(L"[%.0d][%3.0u][%.0x][%#.0o]", 0, 0, 0, 0), "[][   ][][0]");
  EXPECT_EQ(formatted(L"%#.3o %#.1o %#o", 7, 7, 0), "007 07 0");
  EXPECT_EQ(formatted(L"%#.0f %#.0e %#.4G %#g %#g %#g", 2.0, 2.0, 1e5, 0.0, 1e-5, 999999.5),
            "2. 2.e+00 1.000E+05 0.00000 1.00000e-05 1.00000e+06");
  EXPECT_EQ(formatted(L"%f %.1f", std::nan(""), -std::numeric_limits<double>::infinity()),
            "nan -inf");
}

// Ties are exact in binary, so C rounds them to the even digit; 1.005 lies below its decimal.
TEST(WideString, FormatRoundsExactTiesToEven) {
  EXPECT_EQ(formatted(L"%.0f %.0f %.1f %.1f %.2f", 0.5, 1.5, 0.25, 0.75, 1.005),
            "0 2 0.2 0.8 1.00");
  EXPECT_EQ(formatted(L"%.0f", 1e22), "10000000000000000000000");
}

TEST(WideString, FormatSurvivesWrongFormats) {
  EXPECT_EQ(formatted(L"%d %s %f|"), "0  0.000000|");
  EXPECT_EQ(formatted(L"%s %d %f", 12, L"34x", L"1.5"), "12 34 1.500000");
  EXPECT_EQ(formatted(L"%d", 2.9), "2");
  EXPECT_EQ(formatted(L"%q %", 1), "%q %");
  EXPECT_EQ(formatted(L"%999999999d", 1).size(), 4095u);
  EXPECT_EQ(formatted(L"%.999999999f", 1e300).size(), 301u + 1u + 4095u);
  CString self(L"abc");
  self.Format(L"%s-%s", self, self);
  EXPECT_EQ(self, L"abc-abc");
}

struct Number {
  const wchar_t* text;
  double expected;
};

TEST(Numbers, TextToDouble) {
  const Number rows[] = {
      {L"10.25", 10.25},
      {L" \t-3.5e2mm", -350.0},
      {L".5", 0.5},
      {L"5.", 5.0},
      {L"+7", 7.0},
      {L"1e", 1.0},
      {L"1e+", 1.0},
      {L"2E-1", 0.2},
      {L"0x10", 0.0},
      {L"inf", 0.0},
      {L"nan", 0.0},
      {L"", 0.0},
      {L"--1", 0.0},
      {L".", 0.0},
      {L"1,5", 1.0},
      {L"1e-999", 0.0},
      {L"0.1", 0.1},
      {L"00012", 12.0},
      {L"0e999", 0.0},
      {L"e5", 0.0},
      {L"1e99999999999", HUGE_VAL},
      {L"-1e400", -HUGE_VAL},
  };
  for (const Number& row : rows)
    EXPECT_EQ(_wtof(row.text), row.expected) << qdr::toUtf8(row.text);
  EXPECT_EQ(_wtof(nullptr), 0.0);
}

TEST(Numbers, TextToInteger) {
  EXPECT_EQ(_wtoi(L" -12abc"), -12);
  EXPECT_EQ(_wtoi(L"+3.9"), 3);
  EXPECT_EQ(_wtoi(L"abc"), 0);
  EXPECT_EQ(_wtoi(L"99999999999999999999"), 2147483647);
  EXPECT_EQ(_wtoi(L"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(_wtoi(L"-99999999999"), -2147483647 - 1);
}

TEST(Numbers, DigitsAndLetters) {
  EXPECT_TRUE(_isDigitValue(L"0123"));
  EXPECT_FALSE(_isDigitValue(L""));
  EXPECT_FALSE(_isDigitValue(L"-1"));
  EXPECT_TRUE(_isNumericValue(L"--1"));
  EXPECT_TRUE(_isNumericValue(L""));
  EXPECT_FALSE(_isNumericValue(L"1e5"));
  EXPECT_FALSE(_isNumericValue(L"12가"));
  EXPECT_FALSE(_isNumericValue(L"é"));
  EXPECT_TRUE(_isNumericValue(L"12°×"));
}

TEST(Utf8, BytesThatAreNoUtf8AreLatin1) {
  EXPECT_EQ(qdr::fromUtf8("a\xC3\xA9\xEA\xB0\x80\xF0\x9F\x98\x80"), L"aé가\U0001F600");
  EXPECT_EQ(qdr::fromUtf8("caf\xE9"), L"café");
  EXPECT_EQ(qdr::fromUtf8("\xC0\xAF"), L"À¯");                 // overlong
  EXPECT_EQ(qdr::fromUtf8("\xED\xA0\x80"), L"í\u00A0\u0080");  // a surrogate
  EXPECT_EQ(qdr::fromUtf8("\xE9\xE9"), L"éé");                 // cut off
  EXPECT_EQ(qdr::toUtf8(L"é가\U0001F600"), "\xC3\xA9\xEA\xB0\x80\xF0\x9F\x98\x80");
  EXPECT_EQ(qdr::toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

}  // namespace
