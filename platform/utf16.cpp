#include "platform/utf16.h"

#include <algorithm>
#include <cwchar>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr char32_t kFirstBeyondUnit = 0x10000;
constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kLastSurrogate = 0xDFFF;

bool isHigh(char32_t unit) {
  return unit >= kHighSurrogate && unit < kLowSurrogate;
}

bool isLow(char32_t unit) {
  return unit >= kLowSurrogate && unit <= kLastSurrogate;
}

// Takes the next character off the units in [at, end), which must not be empty.
char32_t takeCharacter(const char16_t*& at, const char16_t* end) {
  const char32_t unit = *at++;
  if (!isHigh(unit) || at == end || !isLow(*at)) return unit;
  const char32_t low = *at++;
  return kFirstBeyondUnit + ((unit - kHighSurrogate) << 10) + (low - kLowSurrogate);
}

// The one or two units of a character; answers how many.
int unitsOf(wchar_t character, char16_t units[2]) {
  char32_t code = static_cast<char32_t>(character);
  if (code > kLastCodePoint) code = kReplacement;
  if (code < kFirstBeyondUnit) {
    units[0] = static_cast<char16_t>(code);
    return 1;
  }
  code -= kFirstBeyondUnit;
  units[0] = static_cast<char16_t>(kHighSurrogate + (code >> 10));
  units[1] = static_cast<char16_t>(kLowSurrogate + (code & 0x3FF));
  return 2;
}

}  // namespace

namespace qdr {

std::u16string toUnits(std::wstring_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (const wchar_t character : text) {
    char16_t units[2];
    result.append(units, static_cast<std::size_t>(unitsOf(character, units)));
  }
  return result;
}

std::wstring fromUnits(std::u16string_view units) {
  std::wstring result;
  result.reserve(units.size());
  const char16_t* at = units.data();
  const char16_t* const end = at + units.size();
  while (at != end)
    result += static_cast<wchar_t>(takeCharacter(at, end));
  return result;
}

void encodeUnits(const wchar_t* text, char16_t* units, std::size_t count) {
  if (count == 0) return;
  std::size_t filled = 0;
  for (const wchar_t* at = text ? text : L""; *at != L'\0'; ++at) {
    char16_t pair[2];
    const auto needed = static_cast<std::size_t>(unitsOf(*at, pair));
    if (filled + needed > count - 1) break;
    std::copy_n(pair, needed, units + filled);
    filled += needed;
  }
  std::fill(units + filled, units + count, u'\0');
}

void decodeUnits(const char16_t* units, std::size_t count, wchar_t* buffer, std::size_t capacity) {
  if (capacity == 0) return;
  const char16_t* at = units;
  const char16_t* const end = std::find(units, units + count, u'\0');
  std::size_t filled = 0;
  while (at != end && filled + 1 < capacity)
    buffer[filled++] = static_cast<wchar_t>(takeCharacter(at, end));
  buffer[filled] = L'\0';
}

}  // namespace qdr
