#include "platform/wide_string.h"

#include <algorithm>
#include <cwchar>

namespace {

constexpr const wchar_t* kBlanks = L" \t\n\v\f\r";

std::wstring_view view(const wchar_t* text) {
  return text ? std::wstring_view(text) : std::wstring_view();
}

int indexOf(std::size_t position) {
  return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

}  // namespace

CString::CString(const wchar_t* text, int length) {
  if (text && length > 0) m_text.assign(text, static_cast<std::size_t>(length));
}

CString::CString(wchar_t character, int repeat) {
  if (repeat > 0) m_text.assign(static_cast<std::size_t>(repeat), character);
}

CString::CString(const char* utf8) : m_text(qdr::fromUtf8(utf8 ? utf8 : "")) {}

wchar_t CString::GetAt(int index) const {
  return index >= 0 && index < GetLength() ? m_text[static_cast<std::size_t>(index)] : L'\0';
}

void CString::SetAt(int index, wchar_t character) {
  if (index >= 0 && index < GetLength()) m_text[static_cast<std::size_t>(index)] = character;
}

CString CString::Left(int count) const {
  return Mid(0, count);
}

CString CString::Right(int count) const {
  return Mid(std::max(0, GetLength() - std::max(0, count)));
}

CString CString::Mid(int first) const {
  return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
  first = std::clamp(first, 0, GetLength());
  return CString(
      m_text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(std::max(0, count))));
}

int CString::Find(wchar_t character, int start) const {
  return start < 0 ? -1 : indexOf(m_text.find(character, static_cast<std::size_t>(start)));
}

int CString::Find(const wchar_t* text, int start) const {
  return start < 0 ? -1 : indexOf(m_text.find(view(text), static_cast<std::size_t>(start)));
}

int CString::FindOneOf(const wchar_t* characters) const {
  return indexOf(m_text.find_first_of(view(characters)));
}

int CString::ReverseFind(wchar_t character) const {
  return indexOf(m_text.rfind(character));
}

int CString::Delete(int first, int count) {
  first = std::max(0, first);
  if (count > 0 && first < GetLength())
    m_text.erase(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
  return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
  // The inserted text may be part of this one.
  const std::wstring inserted(view(text));
  m_text.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())), inserted);
  return GetLength();
}

int CString::Insert(int index, wchar_t character) {
  m_text.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())), 1, character);
  return GetLength();
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
  const std::wstring sought(view(from));
  const std::wstring put(view(to));
  if (sought.empty()) return 0;
  std::wstring result;
  int count = 0;
  std::size_t at = 0;
  for (std::size_t hit = m_text.find(sought); hit != std::wstring::npos;
       hit = m_text.find(sought, at)) {
    result.append(m_text, at, hit - at).append(put);
    at = hit + sought.size();
    ++count;
  }
  if (count == 0) return 0;
  result.append(m_text, at);
  m_text = std::move(result);
  return count;
}

int CString::Replace(wchar_t from, wchar_t to) {
  const auto count = std::count(m_text.begin(), m_text.end(), from);
  std::replace(m_text.begin(), m_text.end(), from, to);
  return static_cast<int>(count);
}

int CString::Remove(wchar_t character) {
  return static_cast<int>(std::erase(m_text, character));
}

CString& CString::Trim() {
  return TrimRight().TrimLeft();
}

CString& CString::TrimLeft() {
  m_text.erase(0, std::min(m_text.find_first_not_of(kBlanks), m_text.size()));
  return *this;
}

CString& CString::TrimRight() {
  m_text.erase(m_text.find_last_not_of(kBlanks) + 1);
  return *this;
}

CString& CString::MakeUpper() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), qdr::upperCase);
  return *this;
}

CString& CString::MakeLower() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), qdr::lowerCase);
  return *this;
}

int CString::Compare(const wchar_t* other) const {
  return m_text.compare(view(other));
}

int CString::CompareNoCase(const wchar_t* other) const {
  return qdr::compareNoCase(m_text, view(other));
}

CString& CString::operator+=(const CString& other) {
  m_text += other.m_text;
  return *this;
}

CString& CString::operator+=(const wchar_t* other) {
  m_text += view(other);
  return *this;
}

CString& CString::operator+=(wchar_t other) {
  m_text += other;
  return *this;
}

namespace qdr {

bool isBlank(wchar_t character) {
  return character != L'\0' && std::wcschr(kBlanks, character) != nullptr;
}

wchar_t upperCase(wchar_t character) {
  return character >= L'a' && character <= L'z' ? character - L'a' + L'A' : character;
}

wchar_t lowerCase(wchar_t character) {
  return character >= L'A' && character <= L'Z' ? character - L'A' + L'a' : character;
}

int compareNoCase(std::wstring_view a, std::wstring_view b) {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const wchar_t x = lowerCase(a[i]);
    const wchar_t y = lowerCase(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace qdr
