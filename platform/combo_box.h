#pragma once

#include <vector>

#include "platform/wnd.h"

inline constexpr int CB_ERR = -1;

/// What a row painted by its owner is drawn into. State bit 1 is the selected row.
struct DRAWITEMSTRUCT {
  unsigned itemID = 0;
  unsigned itemState = 0;
  CDC* dc = nullptr;
  CRect rcItem;
  std::uintptr_t itemData = 0;
};

struct MEASUREITEMSTRUCT {
  unsigned itemID = 0;
  unsigned itemWidth = 0;
  unsigned itemHeight = 0;
};

/// A list of rows of which one is selected, or none. Rows count from 0; each carries a number or
/// pointer of the caller. A row out of range is CB_ERR.
class QDR_API CComboBox : public CWnd {
 public:
  qdr::WindowKind kind() const override { return qdr::WindowKind::combo; }

  int GetCount() const { return static_cast<int>(m_rows.size()); }
  /// These answer the row.
  int AddString(const wchar_t* text) { return InsertString(-1, text); }
  /// In front of `row`; -1 is behind the last one.
  int InsertString(int row, const wchar_t* text);
  /// Answers the rows that are left.
  int DeleteString(int row);
  void ResetContent();

  /// -1 when nothing is selected; -1 selects nothing.
  int GetCurSel() const { return m_selected; }
  int SetCurSel(int row);

  int GetLBText(int row, CString& text) const;
  int GetLBTextLen(int row) const;
  /// The first row behind `after` with this text, ignoring case, going on from the top.
  int FindStringExact(int after, const wchar_t* text) const;

  /// 0 for a row out of range.
  std::uintptr_t GetItemData(int row) const;
  int SetItemData(int row, std::uintptr_t data);
  void* GetItemDataPtr(int row) const;
  int SetItemDataPtr(int row, void* data);

  /// Painting of rows, for lists that paint them themselves.
  virtual void DrawItem(DRAWITEMSTRUCT* /*item*/) {}
  virtual void MeasureItem(MEASUREITEMSTRUCT* /*item*/) {}

  /// The person has chosen a row: backends call it after SetCurSel.
  virtual void OnSelchange() {}

 private:
  struct Row {
    CString text;
    std::uintptr_t data = 0;
  };

  bool holds(int row) const { return row >= 0 && row < GetCount(); }

  std::vector<Row> m_rows;
  int m_selected = CB_ERR;
};
