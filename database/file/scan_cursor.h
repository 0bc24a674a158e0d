#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/utf16.h"

namespace qdr {

/// A place in bytes that are read and never passed.
class ScanCursor {
 public:
  explicit ScanCursor(std::string_view bytes, std::uint64_t at = 0) : m_bytes(bytes), m_at(at) {}

  std::uint64_t at() const { return m_at; }
  std::uint64_t left() const { return m_at < m_bytes.size() ? m_bytes.size() - m_at : 0; }
  std::string_view bytes() const { return m_bytes; }
  void moveTo(std::uint64_t at) { m_at = at; }

  bool skip(std::uint64_t count) {
    if (left() < count) return false;
    m_at += count;
    return true;
  }

  /// The number here, past which the cursor goes; false, and both stay, when bytes are missing.
  template <class Number>
  bool take(Number& value) {
    if (left() < sizeof value) return false;
    std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
    m_at += sizeof value;
    return true;
  }

  /// The number at a distance from here; 0 when bytes are missing.
  template <class Number>
  Number peek(std::uint64_t distance) const {
    Number value{};
    if (left() < distance || left() - distance < sizeof value) return value;
    std::memcpy(&value, m_bytes.data() + m_at + distance, sizeof value);
    return value;
  }

  /// A text of a fixed number of units.
  bool takeUnits(std::wstring& text, std::size_t count) {
    if (left() < 2 * count) return false;
    std::u16string units(count, u'\0');
    std::memcpy(units.data(), m_bytes.data() + m_at, 2 * count);
    m_at += 2 * count;
    text = fromUnits(std::u16string_view(units).substr(0, units.find(u'\0')));
    return true;
  }

 private:
  std::string_view m_bytes;
  std::uint64_t m_at;
};

}  // namespace qdr
