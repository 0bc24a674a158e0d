#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/export.h"

namespace qdr {

/// Wide characters to UTF-16 units and back. A lone surrogate keeps its number both ways, so that
/// units that are no well-formed UTF-16 survive; a wide character beyond U+10FFFF becomes U+FFFD.
QDR_API std::u16string toUnits(std::wstring_view text);
QDR_API std::wstring fromUnits(std::u16string_view units);

/// Fills a fixed field of `count` units: `text` cut at count - 1 units, never inside a surrogate
/// pair, and zeros behind it. Null is the empty text.
QDR_API void encodeUnits(const wchar_t* text, char16_t* units, std::size_t count);

/// Fills `buffer` of `capacity` characters from a fixed field of `count` units: up to the first 0
/// or the end of the field, cut at capacity - 1 characters, always terminated.
QDR_API void decodeUnits(const char16_t* units, std::size_t count, wchar_t* buffer,
                         std::size_t capacity);

}  // namespace qdr
