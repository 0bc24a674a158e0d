#pragma once

#include <vector>

#include "platform/wnd.h"

inline constexpr unsigned LVIS_FOCUSED = 1;
inline constexpr unsigned LVIS_SELECTED = 2;

/// A table of rows and columns of text. Rows and columns count from 0; each row carries a number
/// or pointer of the caller, and any number of rows may be selected. A place out of range answers
/// -1, false, 0 or the empty text.
class QDR_API CListCtrl : public CWnd {
 public:
  qdr::WindowKind kind() const override { return qdr::WindowKind::list; }

  /// These answer the place taken; a place behind the last one is the end.
  int InsertColumn(int column, const wchar_t* heading, int format = 0, int width = -1);
  int InsertItem(int row, const wchar_t* text);

  int columnCount() const { return static_cast<int>(m_columns.size()); }
  CString columnHeading(int column) const;
  int GetColumnWidth(int column) const;
  int GetItemCount() const { return static_cast<int>(m_rows.size()); }
  bool DeleteItem(int row);
  bool DeleteAllItems();

  bool SetItemText(int row, int column, const wchar_t* text);
  CString GetItemText(int row, int column) const;

  bool SetItemData(int row, std::uintptr_t data);
  std::uintptr_t GetItemData(int row) const;

  /// Sets the state bits that `mask` names.
  bool SetItemState(int row, unsigned state, unsigned mask);
  unsigned GetItemState(int row, unsigned mask) const;
  int GetSelectedCount() const;
  /// The first selected row behind `row`, -1 for the first of all; -1 when there is none.
  int nextSelected(int row = -1) const;

  /// Opens the label of a row for editing; editedRow answers it until endLabelEdit.
  bool EditLabel(int row);
  int editedRow() const { return m_editedRow; }
  /// Backends end the editing so; null is a cancelled one. OnEndLabelEdit gets both.
  void endLabelEdit(const wchar_t* text);

  /// A click on a cell: backends report it.
  virtual void OnClick(int /*row*/, int /*column*/) {}

 protected:
  virtual void OnEndLabelEdit(int /*row*/, const wchar_t* /*text*/) {}

 private:
  struct Column {
    CString heading;
    int format = 0;
    int width = -1;
  };
  struct Row {
    std::vector<CString> cells;
    std::uintptr_t data = 0;
    unsigned state = 0;
  };

  const Row* rowAt(int row) const;
  Row* rowAt(int row);

  std::vector<Column> m_columns;
  std::vector<Row> m_rows;
  int m_editedRow = -1;
};
