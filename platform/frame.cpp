#include "platform/frame.h"

namespace {

CFrameWnd*& mainFrame() {
  static CFrameWnd* frame = nullptr;
  return frame;
}

}  // namespace

CFrameWnd::~CFrameWnd() {
  if (mainFrame() == this) mainFrame() = nullptr;
}

CFrameWnd* AfxGetMainWnd() {
  return mainFrame();
}

namespace qdr {

void setMainFrame(CFrameWnd* frame) {
  mainFrame() = frame;
}

CView* activeView() {
  CFrameWnd* const frame = mainFrame();
  return frame ? frame->GetActiveFrame()->GetActiveView() : nullptr;
}

}  // namespace qdr
