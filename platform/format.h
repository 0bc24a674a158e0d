#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>

#include "platform/export.h"

namespace qdr {

/// One argument of a format: its kind and value, so that a format that asks for another kind, or
/// for more than there are, reads no foreign memory. Texts are borrowed for the call.
class FormatArgument {
 public:
  enum class Kind { none, integer, real, wide, narrow };

  FormatArgument() = default;
  template <std::integral T>
  FormatArgument(T value)
      : m_kind(Kind::integer),
        m_bits(sizeof(T) > sizeof(int) ? 64 : 32),
        m_integer(static_cast<std::int64_t>(value)) {}
  template <class T>
  requires std::is_enum_v<T> FormatArgument(T value)
      : FormatArgument(static_cast<std::underlying_type_t<T>>(value)) {}
  template <std::floating_point T>
  FormatArgument(T value) : m_kind(Kind::real), m_real(static_cast<double>(value)) {}
  FormatArgument(const wchar_t* text) : m_kind(Kind::wide), m_wide(text) {}
  FormatArgument(const char* text) : m_kind(Kind::narrow), m_narrow(text) {}
  /// Any class that converts to a wide text, above all CString.
  template <class T>
  requires std::is_class_v<T> && std::convertible_to<const T&, const wchar_t*> FormatArgument(
      const T& text)
      : FormatArgument(static_cast<const wchar_t*>(text)) {}

  Kind kind() const { return m_kind; }
  /// Width of an integer after the promotion of small ones: 32 or 64.
  int bits() const { return m_bits; }
  std::int64_t integer() const { return m_integer; }
  double real() const { return m_real; }
  const wchar_t* wide() const { return m_wide; }
  const char* narrow() const { return m_narrow; }

 private:
  Kind m_kind = Kind::none;
  int m_bits = 32;
  union {
    std::int64_t m_integer = 0;
    double m_real;
    const wchar_t* m_wide;
    const char* m_narrow;
  };
};

/// The text of `format` with its arguments, whatever locale the process runs in.
///
/// "%s" takes a wide text, "%S" a narrow one in UTF-8, and either takes both. "%d %i %u %x %X %o"
/// take integers at their own width, "%c" a character, "%f %e %g" a double, "%%" is a
/// percent sign. Flags, width and precision, also as "*", act as in C; doubles
/// round as C does, exact ties to the even digit. Length letters (h, l, ll, w, I64) are skipped.
///
/// (1) an argument of another kind is converted, a missing one is 0 or empty
/// (2) a conversion that is none of these stands in the result as it is
/// (3) width and precision are held below 4096
QDR_API std::wstring formatted(const wchar_t* format,
                               std::initializer_list<FormatArgument> arguments);

}  // namespace qdr
