#pragma once

#include "platform/wnd.h"

/// A field of text with a caret. Positions are characters before which the caret stands.
class QDR_API CEdit : public CWnd {
 public:
  qdr::WindowKind kind() const override { return qdr::WindowKind::edit; }

  /// The caret goes to the start.
  void SetWindowText(const wchar_t* text) override;

  /// Selects from `first` to `last` with the caret at `last`; (0, -1) is all, a negative first
  /// position ends the selection at the caret. Positions behind the text mean its end.
  void SetSel(int first, int last);
  void GetSel(int& first, int& last) const;

  /// Puts `text` in the place of the selection, the caret behind it.
  void ReplaceSel(const wchar_t* text);

  /// Line breaks can be typed.
  void setMultiline(bool multiline) { m_multiline = multiline; }

  /// Besides the messages of every window: EM_SETSEL, EM_SCROLLCARET and WM_VSCROLL to the end.
  LRESULT WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) override;

 protected:
  /// Backspace deletes the selection or the character before the caret, other control characters
  /// do nothing, the rest is inserted.
  void OnChar(unsigned character, unsigned repeat, unsigned flags) override;
  /// Arrows, Home, End and Delete.
  void OnKeyDown(unsigned key, unsigned repeat, unsigned flags) override;

 private:
  void replace(int first, int last, const CString& text);

  int m_anchor = 0;
  int m_caret = 0;
  bool m_multiline = false;
};

/// The line in which prompts appear and answers are typed.
class QDR_API CEditCmd : public CEdit {
 public:
  /// Puts a character that another window received behind the text.
  void onMyChar(unsigned character, unsigned repeat, unsigned flags);

 protected:
  /// Enter, Esc and Space go to the active view as WM_KEYDOWN first; then the field has its key.
  void OnKeyDown(unsigned key, unsigned repeat, unsigned flags) override;
};
