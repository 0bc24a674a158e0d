#pragma once

#include <optional>
#include <string>

#include "platform/input.h"

namespace qdr {

/// Mouse, cursor and keys as plain state. Cursor moves are recorded and cause no message.
class QDR_API HeadlessInput : public IInput {
 public:
  CWnd* setCapture(CWnd* window) override;
  CWnd* capture() const override { return m_capture; }
  void releaseCapture() override { m_capture = nullptr; }
  CWnd* setFocus(CWnd* window) override;
  CWnd* focus() const override { return m_focus; }
  HCURSOR setCursor(HCURSOR cursor) override;
  /// Each shape has one handle, which no other has.
  HCURSOR loadCursor(int shape) override;
  void setCursorPosition(CPoint screenPoint) override { m_position = screenPoint; }
  CPoint cursorPosition() const override { return m_position; }
  void clipCursor(const RECT* screenRect) override;
  bool isKeyDown(int key) const override;
  void forget(CWnd* window) override;

  void holdKeys(bool control, bool shift, bool alt);
  HCURSOR cursor() const { return m_cursor; }
  /// The rectangle the cursor is held in, if any.
  const std::optional<CRect>& clip() const { return m_clip; }

 private:
  CWnd* m_capture = nullptr;
  CWnd* m_focus = nullptr;
  HCURSOR m_cursor = nullptr;
  CPoint m_position;
  std::optional<CRect> m_clip;
  bool m_control = false;
  bool m_shift = false;
  bool m_alt = false;
};

/// An input method that has committed what it is told.
class QDR_API HeadlessIme : public IIme {
 public:
  /// Empty takes the input method off the windows.
  void commit(std::wstring text) { m_text = std::move(text); }

  HIMC context(CWnd*) override { return m_text.empty() ? nullptr : this; }
  std::wstring resultString(HIMC) override { return m_text; }
  void release(CWnd*, HIMC) override { ++m_released; }
  int released() const { return m_released; }

 private:
  std::wstring m_text;
  int m_released = 0;
};

}  // namespace qdr
