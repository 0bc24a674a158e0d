#pragma once

#include "platform/wnd.h"

namespace qdr {

class DrawingHost;

/// The window of a drawing: hands each of its messages to the host.
class DrawingView : public CView {
 public:
  explicit DrawingView(DrawingHost& host) : m_host(host) {}

  LRESULT WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) override;

 protected:
  void OnPaint() override;
  void OnSize(unsigned type, int cx, int cy) override;
  void OnClose() override;
  bool OnCommand(WPARAM wParam, LPARAM lParam) override;
  void OnKeyDown(unsigned key, unsigned repeat, unsigned flags) override;
  void OnChar(unsigned character, unsigned repeat, unsigned flags) override;
  void OnLButtonDown(unsigned flags, CPoint point) override;
  void OnRButtonDown(unsigned flags, CPoint point) override;
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) override;

 private:
  DrawingHost& m_host;
};

}  // namespace qdr
