#include "platform/combo_box.h"

int CComboBox::InsertString(int row, const wchar_t* text) {
  if (row < -1 || row > GetCount()) return CB_ERR;
  const int place = row < 0 ? GetCount() : row;
  m_rows.insert(m_rows.begin() + place, {CString(text), 0});
  if (m_selected >= place) ++m_selected;
  contentChanged();
  return place;
}

int CComboBox::DeleteString(int row) {
  if (!holds(row)) return CB_ERR;
  m_rows.erase(m_rows.begin() + row);
  if (m_selected == row) SetCurSel(-1);
  if (m_selected > row) --m_selected;
  contentChanged();
  return GetCount();
}

void CComboBox::ResetContent() {
  m_rows.clear();
  SetCurSel(-1);
}

int CComboBox::SetCurSel(int row) {
  m_selected = holds(row) ? row : CB_ERR;
  SetWindowText(holds(row) ? m_rows[static_cast<std::size_t>(row)].text.GetString() : L"");
  return m_selected;
}

int CComboBox::GetLBText(int row, CString& text) const {
  if (!holds(row)) return CB_ERR;
  text = m_rows[static_cast<std::size_t>(row)].text;
  return text.GetLength();
}

int CComboBox::GetLBTextLen(int row) const {
  CString text;
  return GetLBText(row, text);
}

int CComboBox::FindStringExact(int after, const wchar_t* text) const {
  const int count = GetCount();
  for (int i = 1; i <= count; ++i) {
    const int row = ((after < -1 ? -1 : after) + i) % count;
    if (m_rows[static_cast<std::size_t>(row)].text.CompareNoCase(text) == 0) return row;
  }
  return CB_ERR;
}

std::uintptr_t CComboBox::GetItemData(int row) const {
  return holds(row) ? m_rows[static_cast<std::size_t>(row)].data : 0;
}

int CComboBox::SetItemData(int row, std::uintptr_t data) {
  if (!holds(row)) return CB_ERR;
  m_rows[static_cast<std::size_t>(row)].data = data;
  return row;
}

void* CComboBox::GetItemDataPtr(int row) const {
  return reinterpret_cast<void*>(GetItemData(row));
}

int CComboBox::SetItemDataPtr(int row, void* data) {
  return SetItemData(row, reinterpret_cast<std::uintptr_t>(data));
}
