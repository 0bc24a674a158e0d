#include "platform/edit.h"

#include <algorithm>

#include "platform/frame.h"
#include "platform/input.h"

namespace {

// Typed text ends here; text set by the program has no bound.
constexpr int kTypedLimit = 32767;
constexpr unsigned kFirstPrintable = 32;
constexpr unsigned kDeleteCharacter = 127;

}  // namespace

void CEdit::SetWindowText(const wchar_t* text) {
  m_anchor = m_caret = 0;
  CWnd::SetWindowText(text);
}

void CEdit::SetSel(int first, int last) {
  const int length = m_text.GetLength();
  if (first < 0) {
    m_anchor = m_caret;
  } else {
    m_anchor = std::min(first, length);
    m_caret = last < 0 ? length : std::min(last, length);
  }
  contentChanged();
}

void CEdit::GetSel(int& first, int& last) const {
  first = std::min(m_anchor, m_caret);
  last = std::max(m_anchor, m_caret);
}

void CEdit::ReplaceSel(const wchar_t* text) {
  int first = 0;
  int last = 0;
  GetSel(first, last);
  replace(first, last, CString(text));
}

void CEdit::replace(int first, int last, const CString& text) {
  m_text.Delete(first, last - first);
  m_text.Insert(first, text);
  m_anchor = m_caret = first + text.GetLength();
  contentChanged();
}

LRESULT CEdit::WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) {
  if (message == EM_SETSEL) {
    SetSel(static_cast<int>(wParam), static_cast<int>(lParam));
    return 1;
  }
  const bool toEnd = message == WM_VSCROLL && wParam == SB_BOTTOM;
  if (toEnd || message == EM_SCROLLCARET) {
    if (peer()) peer()->scrollToEnd();
    return 1;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

void CEdit::OnChar(unsigned character, unsigned, unsigned) {
  int first = 0;
  int last = 0;
  GetSel(first, last);
  if (character == static_cast<unsigned>(VK_BACK)) {
    if (first == last) --first;
    if (first >= 0) replace(first, last, CString());
    return;
  }
  const bool isBreak = character == L'\r' || character == L'\n';
  if (isBreak && !m_multiline) return;
  if (!isBreak && (character < kFirstPrintable || character == kDeleteCharacter)) return;
  if (m_text.GetLength() - (last - first) >= kTypedLimit) return;
  replace(first, last, CString(isBreak ? L'\n' : static_cast<wchar_t>(character)));
}

void CEdit::OnKeyDown(unsigned key, unsigned, unsigned) {
  const int length = m_text.GetLength();
  int first = 0;
  int last = 0;
  GetSel(first, last);
  switch (static_cast<int>(key)) {
    case VK_LEFT:
      return SetSel(std::max(m_caret - 1, 0), std::max(m_caret - 1, 0));
    case VK_RIGHT:
      return SetSel(m_caret + 1, m_caret + 1);
    case VK_HOME:
      return SetSel(0, 0);
    case VK_END:
      return SetSel(length, length);
    case VK_DELETE:
      return replace(first, first == last ? last + 1 : last, CString());
    default:
      return;
  }
}

void CEditCmd::onMyChar(unsigned character, unsigned repeat, unsigned flags) {
  const int length = m_text.GetLength();
  SendMessage(EM_SETSEL, static_cast<WPARAM>(length), length);
  SendMessage(EM_SCROLLCARET);
  OnChar(character, repeat, flags);
}

void CEditCmd::OnKeyDown(unsigned key, unsigned repeat, unsigned flags) {
  const int code = static_cast<int>(key);
  CView* const view = qdr::activeView();
  if (view && (code == VK_RETURN || code == VK_ESCAPE || code == VK_SPACE))
    view->SendMessage(WM_KEYDOWN, key, static_cast<LPARAM>(repeat | (flags << 16)));
  CEdit::OnKeyDown(key, repeat, flags);
}
