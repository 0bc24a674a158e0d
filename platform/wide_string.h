#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/export.h"
#include "platform/format.h"

/// A text of wide characters, one code point each. Positions count from 0 in characters.
///
/// Copies are independent. Positions and counts out of range are clamped, never a fault. Case
/// mapping and comparison without case know the letters A to Z only, as every name in a drawing
/// does. Order is by code point: the order of every map of names.
class QDR_API CString {
 public:
  CString() = default;
  /// A null pointer is the empty text.
  CString(const wchar_t* text) : m_text(text ? text : L"") {}
  CString(const wchar_t* text, int length);
  /// `character`, `repeat` times.
  explicit CString(wchar_t character, int repeat = 1);
  explicit CString(std::wstring text) : m_text(std::move(text)) {}
  /// From UTF-8; bytes that are no UTF-8 stand for their Latin-1 letters.
  explicit CString(const char* utf8);

  operator const wchar_t*() const { return m_text.c_str(); }
  const wchar_t* GetString() const { return m_text.c_str(); }
  const std::wstring& text() const { return m_text; }

  int GetLength() const { return static_cast<int>(m_text.size()); }
  bool IsEmpty() const { return m_text.empty(); }
  void Empty() { m_text.clear(); }

  /// The character at `index`; 0 outside.
  wchar_t GetAt(int index) const;
  template <std::integral Index>
  wchar_t operator[](Index index) const {
    return GetAt(static_cast<int>(index));
  }
  /// No effect outside.
  void SetAt(int index, wchar_t character);

  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;

  /// First position at or behind `start`; -1 when there is none.
  int Find(wchar_t character, int start = 0) const;
  int Find(const wchar_t* text, int start = 0) const;
  /// First position of any of `characters`; -1 when there is none.
  int FindOneOf(const wchar_t* characters) const;
  /// Last position; -1 when there is none.
  int ReverseFind(wchar_t character) const;

  /// These answer the new length.
  int Delete(int first, int count = 1);
  int Insert(int index, const wchar_t* text);
  int Insert(int index, wchar_t character);

  /// These answer how many were replaced or removed. An empty `from` replaces nothing.
  int Replace(const wchar_t* from, const wchar_t* to);
  int Replace(wchar_t from, wchar_t to);
  int Remove(wchar_t character);

  /// Blanks, tabs and line ends go.
  CString& Trim();
  CString& TrimLeft();
  CString& TrimRight();
  CString& MakeUpper();
  CString& MakeLower();

  /// Negative, 0 or positive, by code point.
  int Compare(const wchar_t* other) const;
  /// The same with the letters A to Z equal to a to z.
  int CompareNoCase(const wchar_t* other) const;

  CString& operator+=(const CString& other);
  CString& operator+=(const wchar_t* other);
  CString& operator+=(wchar_t other);

  /// Fills the text by `format`; see qdr::formatted. The arguments may come from this text.
  template <class... Arguments>
  void Format(const wchar_t* format, const Arguments&... arguments) {
    m_text = qdr::formatted(format, {qdr::FormatArgument(arguments)...});
  }
  template <class... Arguments>
  void AppendFormat(const wchar_t* format, const Arguments&... arguments) {
    m_text += qdr::formatted(format, {qdr::FormatArgument(arguments)...});
  }

  friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
  friend bool operator==(const CString& a, const wchar_t* b) { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) {
    return a.m_text <=> b.m_text;
  }
  friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b) {
    return a.Compare(b) <=> 0;
  }
  friend CString operator+(const CString& a, const CString& b) {
    return CString(a.m_text + b.m_text);
  }
  friend CString operator+(const CString& a, const wchar_t* b) { return CString(a) += b; }
  friend CString operator+(const wchar_t* a, const CString& b) { return CString(a) += b; }
  friend CString operator+(const CString& a, wchar_t b) { return CString(a.m_text + b); }
  friend CString operator+(wchar_t a, const CString& b) { return CString(a + b.m_text); }

 private:
  std::wstring m_text;
};

template <>
struct std::hash<CString> {
  std::size_t operator()(const CString& text) const noexcept {
    return std::hash<std::wstring>()(text.text());
  }
};

/// The number that `text` begins with behind blanks: sign, digits, point, exponent. No hexadecimal
/// digits, "inf" or "nan"; 0 when it begins with no number. Too large a number is infinite.
QDR_API double _wtof(const wchar_t* text);

/// The integer that `text` begins with behind blanks, held within 32 bits; 0 when there is none.
QDR_API int _wtoi(const wchar_t* text);

/// True when `text` is one digit 0 to 9 or more and nothing else.
QDR_API bool _isDigitValue(const wchar_t* text);

/// True when `text` holds no letter, so also for the empty text and for "--1"; false for "1e5".
QDR_API bool _isNumericValue(const wchar_t* text);

namespace qdr {

/// Blank, tab, line end or form feed.
QDR_API bool isBlank(wchar_t character);

/// A letter of any script, whatever locale the process runs in.
QDR_API bool isLetter(wchar_t character);

/// Case of the letters A to Z; everything else stays.
QDR_API wchar_t upperCase(wchar_t character);
QDR_API wchar_t lowerCase(wchar_t character);

/// -1, 0 or 1 by code point, letters A to Z equal to a to z.
QDR_API int compareNoCase(std::wstring_view a, std::wstring_view b);

/// UTF-8 to wide characters and back. A byte that belongs to no well-formed sequence becomes its
/// Latin-1 letter; a wide character that is no code point becomes U+FFFD.
QDR_API std::wstring fromUtf8(std::string_view bytes);
QDR_API std::string toUtf8(std::wstring_view text);

}  // namespace qdr
