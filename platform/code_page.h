#pragma once

#include <string>
#include <string_view>

#include "platform/export.h"

/// Turns characters into bytes of a multi-byte code page.
class QDR_API ICodePage {
 public:
  virtual ~ICodePage() = default;

  /// The bytes of one character; empty when the code page has none.
  virtual std::string bytesOf(wchar_t character) = 0;
};

namespace qdr {

/// The text in the code page in which vector fonts are indexed: CP949 unless a host sets another.
/// A character that it lacks becomes its base letter ('e' for an e with an accent) where it has
/// one, else '?'.
QDR_API std::string toCodePage(std::wstring_view text);

/// Sets the code page of toCodePage, which stays the caller's; null gives back CP949.
QDR_API void setCodePage(ICodePage* codePage);

/// The plain letter under the accents of a Latin letter; 0 when there is none.
QDR_API wchar_t baseLetter(wchar_t character);

}  // namespace qdr
