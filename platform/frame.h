#pragma once

#include "platform/wnd.h"

/// A frame: the main one, or the child that holds one view. It owns neither children nor views.
class QDR_API CFrameWnd : public CWnd {
 public:
  ~CFrameWnd() override;
  qdr::WindowKind kind() const override { return qdr::WindowKind::frame; }

  /// The active child, or this frame while it has none.
  CFrameWnd* GetActiveFrame() { return m_activeChild ? m_activeChild : this; }
  void setActiveFrame(CFrameWnd* child) { m_activeChild = child; }

  /// The view of this frame that is worked in; null when there is none.
  CView* GetActiveView() const { return m_activeView; }
  void SetActiveView(CView* view) { m_activeView = view; }

 private:
  CFrameWnd* m_activeChild = nullptr;
  CView* m_activeView = nullptr;
};

/// The main frame of the program; null until a host names it.
QDR_API CFrameWnd* AfxGetMainWnd();

namespace qdr {

QDR_API void setMainFrame(CFrameWnd* frame);

/// The active view of the active child of the main frame; null when any of them is missing.
QDR_API CView* activeView();

}  // namespace qdr
