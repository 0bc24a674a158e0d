#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

#include "platform/wide_string.h"

namespace {

constexpr std::int64_t kExponentLimit = 1'000'000'000;

bool isDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

const wchar_t* skipBlanks(const wchar_t* at) {
  while (qdr::isBlank(*at))
    ++at;
  return at;
}

bool takeSign(const wchar_t*& at) {
  const bool negative = *at == L'-';
  if (negative || *at == L'+') ++at;
  return negative;
}

// A decimal number as it is scanned: its digits without sign, and what decides its magnitude.
struct Decimal {
  std::string characters;       // digits and point, as std::from_chars reads them
  bool hasDigits = false;       // at least one before or behind the point
  std::int64_t firstPlace = 0;  // power of ten of the first digit that is not 0
  bool hasSignificant = false;  // false while all digits are 0
};

void takeDigits(const wchar_t*& at, std::int64_t place, Decimal& number) {
  for (; isDigit(*at); ++at, --place) {
    number.characters += static_cast<char>(*at);
    number.hasDigits = true;
    if (number.hasSignificant || *at == L'0') continue;
    number.hasSignificant = true;
    number.firstPlace = place;
  }
}

Decimal scanDecimal(const wchar_t*& at) {
  Decimal number;
  const wchar_t* end = at;
  while (isDigit(*end))
    ++end;
  takeDigits(at, end - at - 1, number);
  if (*at == L'.') {
    number.characters += '.';
    ++at;
    takeDigits(at, -1, number);
  }
  return number;
}

// An exponent counts only with a digit behind its sign.
std::int64_t scanExponent(const wchar_t* at) {
  if (*at != L'e' && *at != L'E') return 0;
  ++at;
  const bool negative = takeSign(at);
  std::int64_t exponent = 0;
  for (; isDigit(*at); ++at)
    exponent = std::min(exponent * 10 + (*at - L'0'), kExponentLimit);
  return negative ? -exponent : exponent;
}

}  // namespace

double _wtof(const wchar_t* text) {
  if (!text) return 0.0;
  const wchar_t* at = skipBlanks(text);
  const double sign = takeSign(at) ? -1.0 : 1.0;
  Decimal number = scanDecimal(at);
  if (!number.hasDigits) return 0.0;
  const std::int64_t exponent = scanExponent(at);
  if (exponent != 0) number.characters += "e" + std::to_string(exponent);

  double value = 0.0;
  const char* const first = number.characters.data();
  const auto read = std::from_chars(first, first + number.characters.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    const bool tooLarge = number.hasSignificant && number.firstPlace + exponent > 0;
    value = tooLarge ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return sign * value;
}

int _wtoi(const wchar_t* text) {
  if (!text) return 0;
  const wchar_t* at = skipBlanks(text);
  const bool negative = takeSign(at);
  constexpr std::int64_t kGreatest = std::numeric_limits<int>::max();
  std::int64_t value = 0;
  for (; isDigit(*at); ++at)
    value = std::min(value * 10 + (*at - L'0'), kGreatest + 1);
  return static_cast<int>(negative ? -value : std::min(value, kGreatest));
}

bool _isDigitValue(const wchar_t* text) {
  if (!text || *text == L'\0') return false;
  while (isDigit(*text))
    ++text;
  return *text == L'\0';
}

bool _isNumericValue(const wchar_t* text) {
  if (!text) return true;
  while (*text != L'\0' && !qdr::isLetter(*text))
    ++text;
  return *text == L'\0';
}
