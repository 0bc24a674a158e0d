#include "interaction/trackers/display_trecker.h"

#include "database/database.h"
#include "geometry/vector2d.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/input_loop.h"
#include "platform/device_context.h"
#include "platform/window.h"

using qdr::InputLoop;

namespace {

constexpr COLORREF kRubberColor = 0x00ffff;

// Modes of the tracker.
constexpr wchar_t kPan = L'P';
constexpr wchar_t kLivePan = L'R';
constexpr wchar_t kZoomWindow = L'W';

}  // namespace

CQdrDbDisplayTrecker::CQdrDbDisplayTrecker(CWnd* window, CQdrDbDatabase* database, wchar_t mode)
    : m_window(window),
      m_dc(database ? database->screenDC() : nullptr),
      m_db(database),
      m_pen(PS_SOLID, 0, kRubberColor),
      m_mode(mode) {}

void CQdrDbDisplayTrecker::SetStartPoint(CPoint device) {
  m_current = m_last = device;
  if (m_dc) m_dc->DPtoLP(&device);
  m_rubberStart = m_rubberEnd = device;
}

bool CQdrDbDisplayTrecker::IsValidPos(const CPoint& device) const {
  return m_validRect.IsRectEmpty() || m_validRect.PtInRect(device);
}

bool CQdrDbDisplayTrecker::Track(CWnd* window, CPoint device) {
  return TrackHandle(window, device);
}

bool CQdrDbDisplayTrecker::TrackHandle(CWnd* window, CPoint device) {
  CRect client;
  if (!m_db || !m_dc || m_db->m_commandHandler.isQuitting()) return false;
  if (!qdr::takesInput(window, client)) return false;
  SetValidRect(client);
  m_window = window;
  SetStartPoint(device);
  InputLoop loop(m_db->m_commandHandler, *window);
  const qdr::PenScope pen(m_dc, m_pen);
  const qdr::RasterScope raster(m_dc, R2_XORPEN);
  loop.setMarks([this] {
    if (m_rubberShown) DrawRubber();
  });
  MSG message;
  while (loop.next(message)) {
    if (message.message == WM_MOUSEMOVE) {
      onMouse(qdr::unpackedPoint(message.lParam));
    } else if (message.message == WM_LBUTTONDOWN) {
      onMouse(qdr::unpackedPoint(message.lParam));
      eraseRubber();
      const qdr::RasterScope copy(m_dc, R2_COPYPEN);
      return ChangeDisplay();
    } else if (message.message == WM_MBUTTONUP) {
      return false;
    } else if (message.message == WM_KEYDOWN &&
               (qdr::isCancelKey(message.wParam) || qdr::isEndKey(message.wParam))) {
      eraseRubber();
      return false;
    } else {
      InputLoop::dispatch(message);
    }
  }
  eraseRubber();
  return false;
}

void CQdrDbDisplayTrecker::onMouse(CPoint device) {
  if (!IsValidPos(device)) return;
  m_current = device;
  if (m_mode == kLivePan) {
    if (m_current == m_last) return;
    const qdr::RasterScope copy(m_dc, R2_COPYPEN);
    ChangeDisplay();
    SetStartPoint(device);
    return;
  }
  CPoint start = m_rubberStart;
  CPoint end = device;
  m_dc->DPtoLP(&end);
  m_window->SendMessage(qdr::kCoordinateMessage, reinterpret_cast<WPARAM>(&start),
                        reinterpret_cast<LPARAM>(&end));
  eraseRubber();
  m_rubberEnd = end;
  DrawRubber();
  m_rubberShown = true;
}

void CQdrDbDisplayTrecker::eraseRubber() {
  if (m_rubberShown) DrawRubber();
  m_rubberShown = false;
}

void CQdrDbDisplayTrecker::DrawRect(CPoint corner1, CPoint corner2) {
  qdr::drawFrame(*m_dc, corner1, corner2);
}

void CQdrDbDisplayTrecker::DrawRubber() {
  if (m_mode == kZoomWindow) {
    DrawRect(m_rubberStart, m_rubberEnd);
  } else {
    m_dc->MoveTo(m_rubberStart);
    m_dc->LineTo(m_rubberEnd);
  }
}

bool CQdrDbDisplayTrecker::ChangeDisplay() {
  CQdrDbDisplayTableRecord* const view = m_db->m_displayTable.getCurrentRecord();
  if (!view) return true;
  if (m_mode == kPan) {
    const CPoint offset = m_rubberStart - m_rubberEnd;
    view->PanWindow(m_dc, offset.x, offset.y);
  } else if (m_mode == kLivePan) {
    // Pixels of the way back, in the logical units of the view; device y runs downward.
    view->RealPanWindow(m_dc, qdr::truncToInt((m_last.x - m_current.x) * view->scaleX()),
                        qdr::truncToInt((m_current.y - m_last.y) * view->scaleY()));
  } else if (m_mode == kZoomWindow) {
    CRect window(m_rubberStart, m_rubberEnd);
    window.NormalizeRect();
    view->ZoomWindow(m_dc, window);
  }
  return true;
}
