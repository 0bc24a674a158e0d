#include "database/table_record.h"

#include <cwchar>

#include "platform/file.h"

CQdrDbTableRecord::CQdrDbTableRecord(CQdrDbDatabase* database) : CQdrDbObject(database) {}

void CQdrDbTableRecord::save() {
  CQdrDbObject::save();
  qdr::writeUnits(file(), m_name, kNameSize);
}

void CQdrDbTableRecord::read() {
  CQdrDbObject::read();
  qdr::readUnits(file(), m_name, kNameSize);
}

void CQdrDbTableRecord::setName(wchar_t* name) {
  if (!name || name == m_name) return;
  if (std::wcslen(name) >= kNameSize) name[kNameSize - 1] = L'\0';
  std::wcscpy(m_name, name);
}

void CQdrDbTableRecord::setName(const wchar_t* name) {
  if (!name) return;
  wchar_t copy[kNameSize] = {};
  std::wcsncpy(copy, name, kNameSize - 1);
  setName(copy);
}

void CQdrDbTableRecord::getName(wchar_t* buffer) const {
  std::wcscpy(buffer, m_name);
}
