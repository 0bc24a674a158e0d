#pragma once

#include <cstddef>
#include <cstdint>
#include <cwchar>

namespace qdr {

/// Characters of "*S4294967295" with its terminator.
inline constexpr std::size_t kAutoNameSize = 13;

/// Writes "*S" and a number into a buffer of at least kAutoNameSize characters.
inline void writeAutoName(wchar_t* buffer, std::uint32_t number) {
  std::swprintf(buffer, kAutoNameSize, L"*S%u", number);
}

}  // namespace qdr
