#include "database/text_style_table_record.h"

#include <cwchar>

#include "database/file/field_stream.h"
#include "database/fixed_text.h"
#include "database/font_file_look.h"

CQdrDbTextStyleTableRecord::CQdrDbTextStyleTableRecord(CQdrDbDatabase* database)
    : CQdrDbReferredRecord(database) {
  m_classType = QdrDb::eClassTextStyleTableRecord;
}

CQdrDbTextStyleTableRecord& CQdrDbTextStyleTableRecord::operator=(
    const CQdrDbTextStyleTableRecord& source) {
  if (this == &source) return *this;
  std::wcscpy(m_name, source.m_name);
  m_flags = source.m_flags;
  m_textSize = source.m_textSize;
  m_widthFactor = source.m_widthFactor;
  m_obliquingAngle = source.m_obliquingAngle;
  m_priorSize = source.m_priorSize;
  std::wcscpy(m_fileName, source.m_fileName);
  std::wcscpy(m_bigFileName, source.m_bigFileName);
  std::wcscpy(m_face, source.m_face);
  m_bold = source.m_bold;
  m_italic = source.m_italic;
  m_charset = source.m_charset;
  m_pitchAndFamily = source.m_pitchAndFamily;
  return *this;
}

void CQdrDbTextStyleTableRecord::setFlag(StyleFlag flag, bool on) {
  m_flags = static_cast<std::uint8_t>(on ? m_flags | flag : m_flags & ~flag);
}

void CQdrDbTextStyleTableRecord::setFileName(const wchar_t* name) {
  qdr::copyText(m_fileName, name);
  setFlag(eVerticalFont, isNormalVertical(m_fileName));
}

void CQdrDbTextStyleTableRecord::setBigFileName(const wchar_t* name) {
  qdr::copyText(m_bigFileName, name);
  if (m_bigFileName[0] && isBigVertical(m_bigFileName)) setFlag(eVerticalFont, true);
}

bool CQdrDbTextStyleTableRecord::isNormalVertical(const wchar_t* name) const {
  return qdr::isNormalFontVertical(name);
}

bool CQdrDbTextStyleTableRecord::isBigVertical(const wchar_t* name) const {
  return qdr::isBigFontVertical(name);
}

bool CQdrDbTextStyleTableRecord::font(wchar_t*& face, bool& bold, bool& italic, int& charset,
                                      int& pitchAndFamily) const {
  if (!isTTF()) return false;
  if (face) std::wcscpy(face, m_face);
  bold = m_bold != 0;
  italic = m_italic != 0;
  charset = m_charset;
  pitchAndFamily = m_pitchAndFamily;
  return true;
}

void CQdrDbTextStyleTableRecord::setFont(const wchar_t* face, bool bold, bool italic, int charset,
                                         int pitchAndFamily) {
  setIsTTF(true);
  qdr::copyText(m_face, face);
  m_bold = bold ? 1 : 0;
  m_italic = italic ? 1 : 0;
  m_charset = charset;
  m_pitchAndFamily = pitchAndFamily;
}

template <class Stream>
void CQdrDbTextStyleTableRecord::fields(Stream& stream) {
  stream.number(m_flags);
  stream.number(m_textSize);
  stream.number(m_widthFactor);
  stream.number(m_obliquingAngle);
  stream.number(m_priorSize);
  stream.text(m_fileName);
  stream.text(m_bigFileName);
  stream.text(m_face);
  stream.number(m_bold);
  stream.number(m_italic);
  stream.number(m_charset);
  stream.number(m_pitchAndFamily);
}

void CQdrDbTextStyleTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbTextStyleTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}
