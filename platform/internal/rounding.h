#pragma once

#include <cstdint>

namespace qdr {

/// Nearest integers below and above, for values within 63 bits; the library's forms are calls on
/// processors without an instruction for them.
inline std::int64_t floorToInt(double value) {
  const auto whole = static_cast<std::int64_t>(value);
  return whole - (static_cast<double>(whole) > value ? 1 : 0);
}

inline std::int64_t ceilToInt(double value) {
  const auto whole = static_cast<std::int64_t>(value);
  return whole + (static_cast<double>(whole) < value ? 1 : 0);
}

}  // namespace qdr
