#pragma once

#include <cstddef>
#include <cwchar>

namespace qdr {

/// Copies a text into a fixed buffer, cut to fit and ended. Null is the empty text.
template <std::size_t N>
void copyText(wchar_t (&buffer)[N], const wchar_t* text) {
  if (text == buffer) return;
  buffer[0] = L'\0';
  if (!text) return;
  std::wcsncpy(buffer, text, N - 1);
  buffer[N - 1] = L'\0';
}

}  // namespace qdr
