#include "platform/headless/headless_window.h"

#include "platform/input_constants.h"

namespace {

const CSize kUsualSize(400, 300);

}  // namespace

namespace qdr {

HeadlessWindow::HeadlessWindow(CWnd& owner, CSize size, CPoint screenOrigin)
    : m_owner(&owner), m_size(size), m_origin(screenOrigin) {
  owner.Attach(this);
}

HeadlessWindow::~HeadlessWindow() {
  if (m_owner && m_owner->peer() == this) m_owner->Attach(nullptr);
}

void HeadlessWindow::invalidate(const RECT*, bool) {
  m_invalid = true;
  ++m_invalidations;
}

void HeadlessWindow::updateNow() {
  if (!m_invalid) return;
  m_invalid = false;
  if (m_owner) m_owner->SendMessage(WM_PAINT);
}

std::unique_ptr<IWindow> HeadlessWindows::makePeer(CWnd& window, WindowKind, CWnd*) {
  auto peer = std::make_unique<HeadlessWindow>(&window);
  peer->resize(kUsualSize);
  return peer;
}

}  // namespace qdr
