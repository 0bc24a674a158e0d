#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "database/object_id.h"
#include "platform/file.h"

// Saving and reading run over one list of fields, so the order of bytes stands in one place:
//
//     template <class Stream>
//     void CQdrDbPoint::fields(Stream& stream) {
//       stream.number(m_size);
//       stream.number(m_fill);
//       stream.part(m_position);
//     }
//
//     void CQdrDbPoint::save() {
//       CQdrDbEntity::save();
//       qdr::FieldWriter stream(file());
//       fields(stream);
//     }
//
// Every step answers false when the file ends inside it; what is missing keeps its value and the
// steps that follow do nothing. Where the two directions differ, `if constexpr (Stream::kReads)`.
namespace qdr {

/// What stands in a file as it stands in memory, of fixed width. Flags are bytes, never bool.
template <class T>
concept FieldNumber = (std::is_arithmetic_v<T> ||
                       std::is_enum_v<T>)&&!std::same_as<std::remove_cv_t<T>, bool> &&
                      !std::same_as<std::remove_cv_t<T>, wchar_t>;

/// Runs a field list into a file. A null file takes nothing.
class FieldWriter {
 public:
  static constexpr bool kReads = false;

  explicit FieldWriter(CFile* file) : m_file(file) {}
  CFile* file() const { return m_file; }

  template <FieldNumber Number>
  bool number(const Number& value) {
    return bytes(&value, sizeof value);
  }

  /// A text of N characters as N units.
  template <std::size_t N>
  bool text(const wchar_t (&value)[N]) {
    if (m_file) writeUnits(m_file, value, N);
    return m_file != nullptr;
  }

  bool bytes(const void* data, std::size_t count) {
    writeRaw(m_file, data, static_cast<unsigned>(count));
    return m_file != nullptr;
  }

  /// A value that saves and reads itself.
  template <class Part>
  bool part(const Part& value) {
    if (m_file) value.save(m_file);
    return m_file != nullptr;
  }

  /// An object by its number, 0 for none. `bind` serves reading.
  template <class Bind>
  bool reference(const CQdrDbObjectId& id, Bind&&) {
    return number(id.hardId());
  }

  /// A count and that many elements, each through `each(stream, element)`. What the count cannot
  /// hold is left out.
  template <std::integral Count, class List, class Each>
  bool list(List& elements, std::size_t /*bytesEach*/, Each&& each) {
    constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<Count>::max());
    const std::size_t count = std::min<std::size_t>(elements.size(), kMost);
    number(static_cast<Count>(count));
    for (std::size_t i = 0; i < count; ++i)
      each(*this, elements[i]);
    return m_file != nullptr;
  }

 private:
  CFile* m_file;
};

/// Runs a field list from a file. A null file gives nothing.
class FieldReader {
 public:
  static constexpr bool kReads = true;

  explicit FieldReader(CFile* file) : m_file(file) {}
  CFile* file() const { return m_file; }

  template <FieldNumber Number>
  bool number(Number& value) {
    return bytes(&value, sizeof value);
  }

  template <std::size_t N>
  bool text(wchar_t (&value)[N]) {
    return m_file && readUnits(m_file, value, N);
  }

  bool bytes(void* data, std::size_t count) {
    return readRaw(m_file, data, static_cast<unsigned>(count));
  }

  template <class Part>
  bool part(Part& value) {
    if (!m_file || m_file->bytesLeft() == 0) return false;
    value.read(m_file);
    return true;
  }

  /// `bind(number)` answers the id that a number other than 0 stands for; 0 is the null id.
  template <class Bind>
  bool reference(CQdrDbObjectId& id, Bind&& bind) {
    std::uint64_t hardId = 0;
    if (!number(hardId)) return false;
    id = hardId == 0 ? CQdrDbObjectId() : bind(hardId);
    return true;
  }

  /// The elements take the place of those in the list. `bytesEach` is the least that an element
  /// occupies: the list never holds more elements than the file has bytes for, whatever the count
  /// says, and an element that the file cuts is left out. A negative count is 0.
  template <std::integral Count, class List, class Each>
  bool list(List& elements, std::size_t bytesEach, Each&& each) {
    Count count = 0;
    if (!number(count)) return false;
    const std::uint64_t whole = m_file->bytesLeft() / bytesEach;
    elements.clear();
    if (count <= 0) return true;
    elements.reserve(static_cast<std::size_t>(std::min(static_cast<std::uint64_t>(count), whole)));
    for (Count i = 0; i < count; ++i) {
      if (m_file->bytesLeft() < bytesEach) return false;
      each(*this, elements.emplace_back());
    }
    return true;
  }

 private:
  CFile* m_file;
};

}  // namespace qdr
