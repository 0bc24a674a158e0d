#include <string>

#include "platform/file.h"
#include "platform/utf16.h"

CStdioFile::CStdioFile() = default;
CStdioFile::~CStdioFile() = default;

bool CStdioFile::Open(const wchar_t* path, unsigned mode) {
  m_encoding = Encoding::unknown;
  m_pushedBack.clear();
  return (mode & ~unsigned{typeText}) == modeRead && CFile::Open(path, mode);
}

bool CStdioFile::nextByte(unsigned char& byte) {
  if (m_pushedBack.empty()) return Read(&byte, 1) == 1;
  byte = static_cast<unsigned char>(m_pushedBack.front());
  m_pushedBack.erase(0, 1);
  return true;
}

// A single byte at the end is no unit.
bool CStdioFile::nextUnit(char16_t& unit) {
  unsigned char first = 0;
  unsigned char second = 0;
  if (!nextByte(first) || !nextByte(second)) return false;
  unit = m_encoding == Encoding::utf16Little ? static_cast<char16_t>(first | (second << 8))
                                             : static_cast<char16_t>((first << 8) | second);
  return true;
}

// Tells the encoding by the byte order mark; bytes that are none go back before the text.
void CStdioFile::readMark() {
  char bytes[3] = {};
  const std::string mark(bytes, Read(bytes, sizeof bytes));
  m_encoding = Encoding::utf8;
  m_pushedBack = mark;
  if (mark == "\xEF\xBB\xBF") {
    m_pushedBack.clear();
    return;
  }
  if (mark.starts_with("\xFF\xFE")) m_encoding = Encoding::utf16Little;
  if (mark.starts_with("\xFE\xFF")) m_encoding = Encoding::utf16Big;
  if (m_encoding != Encoding::utf8) m_pushedBack.erase(0, 2);
}

bool CStdioFile::readByteLine(std::string& bytes) {
  unsigned char byte = 0;
  bool any = false;
  while (nextByte(byte)) {
    any = true;
    if (byte == '\n') break;
    bytes += static_cast<char>(byte);
  }
  return any;
}

bool CStdioFile::readUnitLine(std::u16string& units) {
  char16_t unit = 0;
  bool any = false;
  while (nextUnit(unit)) {
    any = true;
    if (unit == u'\n') break;
    units += unit;
  }
  return any;
}

bool CStdioFile::ReadString(CString& line) {
  if (m_encoding == Encoding::unknown) readMark();
  std::wstring text;
  bool any = false;
  if (m_encoding == Encoding::utf8) {
    std::string bytes;
    any = readByteLine(bytes);
    text = qdr::fromUtf8(bytes);
  } else {
    std::u16string units;
    any = readUnitLine(units);
    text = qdr::fromUnits(units);
  }
  if (!text.empty() && text.back() == L'\r') text.pop_back();
  line = CString(std::move(text));
  return any;
}
