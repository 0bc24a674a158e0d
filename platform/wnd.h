#pragma once

#include <memory>
#include <string>

#include "platform/export.h"
#include "platform/input_constants.h"
#include "platform/points.h"
#include "platform/wide_string.h"

class CDC;
class CRgn;
class CWnd;

/// What a backend makes of a window: an area of the screen that shows the model the window is.
class QDR_API IWindow {
 public:
  virtual ~IWindow() = default;

  /// Area inside the frame, with its origin at (0, 0); empty while minimised.
  virtual CRect clientRect() const = 0;
  /// Where the client origin lies on the screen.
  virtual CPoint screenOrigin() const = 0;
  /// How far the content is scrolled.
  virtual CPoint scrollPosition() const { return {}; }

  /// Marks an area, or all for null, to be painted.
  virtual void invalidate(const RECT* rect, bool erase) = 0;
  /// Paints what is marked before it returns.
  virtual void updateNow() = 0;

  /// The context of the screen; null when there is none.
  virtual CDC* deviceContext() = 0;
  virtual void releaseDeviceContext(CDC* dc) = 0;

  /// Texts, rows, selection or caret of the model are no longer what is shown.
  virtual void contentChanged() {}
  virtual void scrollToEnd() {}
  virtual void show(bool /*visible*/) {}
  virtual void enable(bool /*enabled*/) {}
  virtual void close() {}

  /// The window goes, or takes another peer; it is not to be called any more.
  virtual void detached() {}
};

namespace qdr {

/// The kind of window a backend is asked to show.
enum class WindowKind { plain, view, label, edit, combo, list, dialog, frame };

}  // namespace qdr

/// Makes the visible side of windows.
class QDR_API IWindows {
 public:
  virtual ~IWindows() = default;

  /// Null when the backend shows nothing for this window.
  virtual std::unique_ptr<IWindow> makePeer(CWnd& window, qdr::WindowKind kind, CWnd* parent) = 0;
};

/// A window: its text and its messages. What is seen of it is the peer's; a window without a peer
/// has an empty client area and keeps everything else.
class QDR_API CWnd {
 public:
  CWnd();
  /// Takes the window out of capture, focus and message queue.
  virtual ~CWnd();
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  /// Binds a peer that stays its maker's; null takes it off.
  void Attach(IWindow* peer);
  IWindow* peer() const { return m_peer; }

  /// Asks the installed backend for a peer. True when there is one afterwards.
  bool Create(CWnd* parent);
  void DestroyWindow();
  CWnd* GetParent() const { return m_parent; }
  virtual qdr::WindowKind kind() const { return qdr::WindowKind::plain; }

  void GetClientRect(RECT* rect) const;
  void ClientToScreen(POINT* point) const;
  void ClientToScreen(RECT* rect) const;
  void ScreenToClient(POINT* point) const;
  void ScreenToClient(RECT* rect) const;

  /// Runs WindowProc before it returns.
  LRESULT SendMessage(unsigned message, WPARAM wParam = 0, LPARAM lParam = 0);
  /// Puts the message at the end of the queue.
  bool PostMessage(unsigned message, WPARAM wParam = 0, LPARAM lParam = 0);

  void Invalidate(bool erase = true) { InvalidateRect(nullptr, erase); }
  void InvalidateRect(const RECT* rect, bool erase = true);
  void UpdateWindow();
  /// Invalidates and paints as `flags` say: 261 does both and erases.
  bool RedrawWindow(unsigned flags) { return RedrawWindow(nullptr, nullptr, flags); }
  bool RedrawWindow(const RECT* rect, CRgn* region, unsigned flags);

  virtual void SetWindowText(const wchar_t* text);
  void GetWindowText(CString& text) const { text = m_text; }
  /// Copies what fits into `capacity` characters with a terminator; answers the characters.
  int GetWindowText(wchar_t* buffer, int capacity) const;
  int GetWindowTextLength() const { return m_text.GetLength(); }

  /// The window that had the capture before.
  CWnd* SetCapture();
  static CWnd* GetCapture();
  CWnd* SetFocus();
  static CWnd* GetFocus();

  /// The screen context of this window, null without one; ReleaseDC gives it back.
  CDC* GetDC();
  int ReleaseDC(CDC* dc);

  virtual bool ShowWindow(int show);
  bool IsWindowVisible() const { return m_visible; }
  void EnableWindow(bool enable = true);
  bool IsWindowEnabled() const { return m_enabled; }

  /// Receives every message; hands the known ones to the handlers below.
  virtual LRESULT WindowProc(unsigned message, WPARAM wParam, LPARAM lParam);

 protected:
  // Handlers of the messages; these do nothing, and the two that answer say false.
  virtual void OnPaint() {}
  virtual void OnSize(unsigned /*type*/, int /*cx*/, int /*cy*/) {}
  virtual void OnClose() {}
  virtual bool OnCommand(WPARAM /*wParam*/, LPARAM /*lParam*/) { return false; }
  virtual void OnKeyDown(unsigned /*key*/, unsigned /*repeat*/, unsigned /*flags*/) {}
  virtual void OnKeyUp(unsigned /*key*/, unsigned /*repeat*/, unsigned /*flags*/) {}
  virtual void OnChar(unsigned /*character*/, unsigned /*repeat*/, unsigned /*flags*/) {}
  virtual void OnMouseMove(unsigned /*flags*/, CPoint /*point*/) {}
  virtual void OnLButtonDown(unsigned /*flags*/, CPoint /*point*/) {}
  virtual void OnLButtonUp(unsigned /*flags*/, CPoint /*point*/) {}
  virtual void OnRButtonDown(unsigned /*flags*/, CPoint /*point*/) {}
  virtual bool OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
    return false;
  }

  /// Tells the peer that the model is another one.
  void contentChanged();

  CString m_text;

 private:
  CWnd* m_parent = nullptr;
  IWindow* m_peer = nullptr;
  std::unique_ptr<IWindow> m_ownPeer;
  bool m_visible = false;
  bool m_enabled = true;
};

/// A window that shows a drawing.
class QDR_API CView : public CWnd {
 public:
  qdr::WindowKind kind() const override { return qdr::WindowKind::view; }
  CPoint GetScrollPosition() const;
};

/// A label, or an area that paints itself.
class QDR_API CStatic : public CWnd {
 public:
  qdr::WindowKind kind() const override { return qdr::WindowKind::label; }
};
