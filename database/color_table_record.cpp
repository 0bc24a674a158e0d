#include "database/color_table_record.h"

#include <cwchar>

#include "database/file/field_stream.h"
#include "database/fixed_text.h"

namespace {

struct NaturalColor {
  unsigned long value;
  const wchar_t* name;
};

// Red lowest. White is told apart by its index.
constexpr NaturalColor kNaturalColors[] = {
    {0x000000, L"black"}, {0xFF0000, L"blue"},    {0x00FF00, L"green"},  {0xFFFF00, L"cyan"},
    {0x0000FF, L"red"},   {0xFF00FF, L"magenta"}, {0x00FFFF, L"yellow"},
};

constexpr unsigned long kWhite = 0xFFFFFF;

const wchar_t* whiteName(int index) {
  if (index == 0) return L"ByBlock";
  return index == 256 ? L"ByLayer" : L"white";
}

}  // namespace

CQdrDbColorTableRecord::CQdrDbColorTableRecord(CQdrDbDatabase* database)
    : CQdrDbLayerReferredRecord(database) {
  m_classType = QdrDb::eClassColorTableRecord;
}

CQdrDbColorTableRecord& CQdrDbColorTableRecord::operator=(const CQdrDbColorTableRecord& source) {
  if (this == &source) return *this;
  std::wcscpy(m_name, source.m_name);
  std::wcscpy(m_colorName, source.m_colorName);
  m_color = source.m_color;
  m_modified = source.m_modified;
  return *this;
}

int CQdrDbColorTableRecord::colorIndex() const {
  return _wtoi(m_name);
}

void CQdrDbColorTableRecord::setColorName(const wchar_t* name) {
  qdr::copyText(m_colorName, name);
}

void CQdrDbColorTableRecord::getNaturColorName(CString& name) {
  name = m_name;
  const unsigned long color = getColor() & 0xFFFFFF;
  if (color == kWhite) name = whiteName(colorIndex());
  for (const NaturalColor& row : kNaturalColors) {
    if (row.value == color) name = row.name;
  }
  setColorName(name);
}

template <class Stream>
void CQdrDbColorTableRecord::fields(Stream& stream) {
  stream.text(m_colorName);
  stream.number(m_color);
  stream.number(m_modified);
}

void CQdrDbColorTableRecord::save() {
  CQdrDbTableRecord::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbColorTableRecord::read() {
  CQdrDbTableRecord::read();
  qdr::FieldReader stream(file());
  fields(stream);
}
