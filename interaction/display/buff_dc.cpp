#include "interaction/display/buff_dc.h"

#include "platform/window.h"

namespace {

void copyMapping(const CDC& from, CDC& to) {
  to.SetMapMode(from.GetMapMode());
  to.SetWindowOrg(from.GetWindowOrg());
  to.SetWindowExt(from.GetWindowExt());
  to.SetViewportOrg(from.GetViewportOrg());
  to.SetViewportExt(from.GetViewportExt());
}

}  // namespace

CQdrBuffDC::CQdrBuffDC(CDC& target, CWnd* window) : m_window(window), m_target(target) {
  if (!m_window) return;
  m_window->GetClientRect(&m_clientRect);
  m_valid = m_memory.CreateCompatibleDC(&target) &&
            m_bitmap.CreateCompatibleBitmap(&target, m_clientRect.Width(), m_clientRect.Height());
  if (!m_valid) return;
  m_formerBitmap = m_memory.SelectObject(&m_bitmap);
  copyMapping(target, m_memory);
  m_logicalRect = CRect(m_memory.GetWindowOrg(), m_memory.GetWindowOrg());
  m_logicalRect.right += m_memory.GetWindowExt().cx;
  m_logicalRect.bottom += m_memory.GetWindowExt().cy;
  ClearRect();
}

CQdrBuffDC::~CQdrBuffDC() {
  if (m_valid) m_memory.SelectObject(m_formerBitmap);
}

void CQdrBuffDC::ClearRect() {
  if (m_valid) m_memory.FillSolidRect(m_logicalRect, m_target.GetBkColor());
}

void CQdrBuffDC::scroll(CPoint position) {
  m_logicalRect.OffsetRect(position.x, position.y);
  ClearRect();
}

bool CQdrBuffDC::QdrBitBlt(CDC* dc, unsigned long rop) {
  if (!m_valid || !dc) return false;
  copyMapping(m_memory, *dc);
  return dc->BitBlt(m_logicalRect.left, m_logicalRect.top, m_logicalRect.Width(),
                    m_logicalRect.Height(), &m_memory, m_logicalRect.left, m_logicalRect.top,
                    static_cast<std::uint32_t>(rop));
}

CQdrMemDC::CQdrMemDC(CDC& target, CWnd* window) : m_target(target), m_buffer(target, window) {
  if (window && window->peer()) m_buffer.scroll(window->peer()->scrollPosition());
}

CQdrMemDC::~CQdrMemDC() {
  m_buffer.QdrBitBlt(&m_target, SRCCOPY);
}
