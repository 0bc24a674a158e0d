#pragma once

#include "platform/wnd.h"

namespace qdr {

/// The peer of a window nobody sees: its place on the screen, and what was asked of it.
class QDR_API HeadlessWindow : public IWindow {
 public:
  explicit HeadlessWindow(CWnd* owner = nullptr) : m_owner(owner) {}
  /// Binds itself to `owner` with a client area of the given size and place on the screen.
  HeadlessWindow(CWnd& owner, CSize size, CPoint screenOrigin = {});
  ~HeadlessWindow() override;
  HeadlessWindow(const HeadlessWindow&) = delete;
  HeadlessWindow& operator=(const HeadlessWindow&) = delete;

  /// A width or height of 0 is a minimised window.
  void resize(CSize size) { m_size = size; }
  void moveTo(CPoint screenOrigin) { m_origin = screenOrigin; }
  void scrollTo(CPoint position) { m_scroll = position; }
  /// What GetDC answers; stays the caller's.
  void setDeviceContext(CDC* dc) { m_dc = dc; }

  CRect clientRect() const override { return CRect(0, 0, m_size.cx, m_size.cy); }
  CPoint screenOrigin() const override { return m_origin; }
  CPoint scrollPosition() const override { return m_scroll; }
  void invalidate(const RECT* rect, bool erase) override;
  /// Sends WM_PAINT when something is marked.
  void updateNow() override;
  CDC* deviceContext() override { return m_dc; }
  void releaseDeviceContext(CDC*) override {}
  void detached() override { m_owner = nullptr; }
  void scrollToEnd() override { ++m_scrolledToEnd; }

  bool isInvalid() const { return m_invalid; }
  /// Takes the mark off, as painting does.
  void validate() { m_invalid = false; }
  int invalidations() const { return m_invalidations; }
  int scrolledToEnd() const { return m_scrolledToEnd; }

 private:
  CWnd* m_owner;
  CSize m_size;
  CPoint m_origin;
  CPoint m_scroll;
  CDC* m_dc = nullptr;
  bool m_invalid = false;
  int m_invalidations = 0;
  int m_scrolledToEnd = 0;
};

/// Gives every window a headless peer of one size.
class QDR_API HeadlessWindows : public IWindows {
 public:
  std::unique_ptr<IWindow> makePeer(CWnd& window, WindowKind kind, CWnd* parent) override;
};

}  // namespace qdr
