#include "platform/list_ctrl.h"

#include <algorithm>
#include <utility>

const CListCtrl::Row* CListCtrl::rowAt(int row) const {
  return row >= 0 && row < GetItemCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

CListCtrl::Row* CListCtrl::rowAt(int row) {
  return row >= 0 && row < GetItemCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

int CListCtrl::InsertColumn(int column, const wchar_t* heading, int format, int width) {
  if (column < 0) return -1;
  const int place = std::min(column, columnCount());
  m_columns.insert(m_columns.begin() + place, {CString(heading), format, width});
  for (Row& row : m_rows)
    row.cells.insert(row.cells.begin() + place, CString());
  contentChanged();
  return place;
}

int CListCtrl::InsertItem(int row, const wchar_t* text) {
  if (row < 0) return -1;
  const int place = std::min(row, GetItemCount());
  Row inserted;
  inserted.cells.resize(std::max<std::size_t>(m_columns.size(), 1));
  inserted.cells.front() = CString(text);
  m_rows.insert(m_rows.begin() + place, std::move(inserted));
  if (m_editedRow >= place) ++m_editedRow;
  contentChanged();
  return place;
}

CString CListCtrl::columnHeading(int column) const {
  if (column < 0 || column >= columnCount()) return {};
  return m_columns[static_cast<std::size_t>(column)].heading;
}

int CListCtrl::GetColumnWidth(int column) const {
  if (column < 0 || column >= columnCount()) return 0;
  return m_columns[static_cast<std::size_t>(column)].width;
}

bool CListCtrl::DeleteItem(int row) {
  if (!rowAt(row)) return false;
  m_rows.erase(m_rows.begin() + row);
  if (m_editedRow == row) m_editedRow = -1;
  if (m_editedRow > row) --m_editedRow;
  contentChanged();
  return true;
}

bool CListCtrl::DeleteAllItems() {
  m_rows.clear();
  m_editedRow = -1;
  contentChanged();
  return true;
}

bool CListCtrl::SetItemText(int row, int column, const wchar_t* text) {
  Row* const found = rowAt(row);
  if (!found || column < 0 || column >= static_cast<int>(found->cells.size())) return false;
  found->cells[static_cast<std::size_t>(column)] = CString(text);
  contentChanged();
  return true;
}

CString CListCtrl::GetItemText(int row, int column) const {
  const Row* const found = rowAt(row);
  if (!found || column < 0 || column >= static_cast<int>(found->cells.size())) return {};
  return found->cells[static_cast<std::size_t>(column)];
}

bool CListCtrl::SetItemData(int row, std::uintptr_t data) {
  Row* const found = rowAt(row);
  if (found) found->data = data;
  return found != nullptr;
}

std::uintptr_t CListCtrl::GetItemData(int row) const {
  const Row* const found = rowAt(row);
  return found ? found->data : 0;
}

bool CListCtrl::SetItemState(int row, unsigned state, unsigned mask) {
  Row* const found = rowAt(row);
  if (!found) return false;
  found->state = (found->state & ~mask) | (state & mask);
  contentChanged();
  return true;
}

unsigned CListCtrl::GetItemState(int row, unsigned mask) const {
  const Row* const found = rowAt(row);
  return found ? found->state & mask : 0;
}

int CListCtrl::GetSelectedCount() const {
  return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(), [](const Row& row) {
    return (row.state & LVIS_SELECTED) != 0;
  }));
}

int CListCtrl::nextSelected(int row) const {
  for (int next = std::max(row, -1) + 1; next < GetItemCount(); ++next)
    if (GetItemState(next, LVIS_SELECTED) != 0) return next;
  return -1;
}

bool CListCtrl::EditLabel(int row) {
  if (!rowAt(row)) return false;
  m_editedRow = row;
  contentChanged();
  return true;
}

void CListCtrl::endLabelEdit(const wchar_t* text) {
  const int row = std::exchange(m_editedRow, -1);
  if (rowAt(row)) OnEndLabelEdit(row, text);
}
