#include "interaction/trackers/selection_tracker.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "geometry/line2d.h"
#include "geometry/tolerance.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/input_loop.h"
#include "platform/device_context.h"
#include "platform/window.h"

HCURSOR _cursorSelect = nullptr;

using qdr::InputLoop;

namespace {

constexpr COLORREF kRubberColor = 0x00ffff;

// Modes of a selection.
constexpr wchar_t kAutomatic = L' ';
constexpr wchar_t kWindow = L'W';
constexpr wchar_t kCrossing = L'C';
constexpr wchar_t kFence = L'F';
constexpr wchar_t kPolygon = L'P';

// Holds the cursor in the client area of a window for a scope.
class ClipScope {
 public:
  ClipScope(const CWnd& window, CRect client) {
    window.ClientToScreen(&client);
    ClipCursor(&client);
  }
  ~ClipScope() { ClipCursor(nullptr); }
  ClipScope(const ClipScope&) = delete;
  ClipScope& operator=(const ClipScope&) = delete;
};

}  // namespace

CQdrDbSelectionTracker::CQdrDbSelectionTracker(CWnd* window, CQdrDbDatabase* database, wchar_t mode)
    : m_solidPen(PS_SOLID, 0, kRubberColor),
      m_dotPen(PS_DOT, 1, kRubberColor),
      m_activePen(&m_solidPen),
      m_mode(mode),
      m_db(database),
      m_dc(database ? database->screenDC() : nullptr),
      m_window(window) {
  if (!m_db) return;
  m_savedOrtho = std::exchange(m_db->m_vars.snapOrtho, std::uint8_t{0});
  m_savedSnap = std::exchange(m_db->m_vars.snapGrid, std::uint8_t{0});
}

CQdrDbSelectionTracker::~CQdrDbSelectionTracker() {
  if (!m_db) return;
  m_db->m_vars.snapOrtho = m_savedOrtho;
  m_db->m_vars.snapGrid = m_savedSnap;
}

void CQdrDbSelectionTracker::SetStartPoint(const CQdrGePoint2d& worldPoint, bool start) {
  m_rubberStart = qdr::toLogical(worldPoint);
  m_rubberEnd = m_rubberStart;
  m_current = m_rubberStart;
  m_started = start;
}

void CQdrDbSelectionTracker::SetStartPoint(CPoint device) {
  if (m_dc) m_dc->DPtoLP(&device);
  m_rubberStart = m_rubberEnd = m_current = device;
  m_started = true;
}

bool CQdrDbSelectionTracker::IsValidPos(const CPoint& device) const {
  return m_validRect.IsRectEmpty() || m_validRect.PtInRect(device);
}

std::set<CQdrDbEntity*>* CQdrDbSelectionTracker::Track(CWnd* window, CPoint device) {
  m_selected.clear();
  const qdr::CursorScope cursor(_cursorSelect);
  return TrackHandle(window, device) < 1 ? nullptr : &m_selected;
}

int CQdrDbSelectionTracker::TrackHandle(CWnd* window, CPoint device) {
  CRect client;
  m_cancelled = m_db && m_db->m_commandHandler.isQuitting();
  if (!m_db || m_cancelled || !qdr::takesInput(window, client)) return 0;
  SetValidRect(client);
  if (!IsValidPos(device)) return 0;
  m_window = window;
  const ClipScope clip(*window, client);
  InputLoop loop(m_db->m_commandHandler, *window);
  const qdr::RasterScope raster(m_dc, R2_XORPEN);
  const qdr::PenScope pen(m_dc, *m_activePen);
  loop.setMarks([this] {
    if (m_rubberShown) DrawRubber();
  });
  m_done = m_started = false;
  MSG message;
  while (!m_done && loop.next(message))
    handleMessage(message);
  eraseRubber();
  m_cancelled = loop.end() == InputLoop::End::cancelled;
  if (m_cancelled) m_selected.clear();
  return static_cast<int>(m_selected.size());
}

void CQdrDbSelectionTracker::handleMessage(const MSG& message) {
  const CPoint device = qdr::unpackedPoint(message.lParam);
  switch (message.message) {
    case WM_MOUSEMOVE:
      if (IsValidPos(device)) onMouse(device);
      break;
    case WM_LBUTTONDOWN:
      if (!IsValidPos(device)) break;
      onMouse(device);
      onClick(device);
      break;
    case WM_RBUTTONDOWN:
      m_done = true;
      break;
    case WM_CHAR:
      onCharacter(qdr::keywordCase(static_cast<wchar_t>(message.wParam)));
      if (CWnd* const display = m_db->m_commandHandler.GetDispWindow()) {
        display->SendMessage(WM_CHAR, message.wParam, message.lParam);
      }
      break;
    case WM_KEYDOWN:
      onKey(message);
      break;
    default:
      InputLoop::dispatch(message);
  }
}

void CQdrDbSelectionTracker::onMouse(CPoint device) {
  const CPoint lastEnd = m_rubberEnd;
  m_current = device;
  if (m_dc) m_dc->DPtoLP(&m_current);
  CPoint start = m_rubberStart;
  CPoint end = m_current;
  m_window->SendMessage(qdr::kCoordinateMessage, reinterpret_cast<WPARAM>(&start),
                        reinterpret_cast<LPARAM>(&end));
  if (!m_started || m_current == lastEnd) return;
  eraseRubber();
  m_rubberEnd = m_current;
  // A window to the left will take what it crosses, and shows it by its dots.
  if (m_mode == kAutomatic) {
    m_activePen = m_rubberStart.x <= m_rubberEnd.x ? &m_solidPen : &m_dotPen;
  }
  DrawRubber();
  m_rubberShown = true;
}

void CQdrDbSelectionTracker::onClick(CPoint device) {
  if (m_started && m_mode == kPolygon) {
    eraseRubber();
    m_polygon.push_back(m_current);
    return;
  }
  if (m_started) {
    m_rubberEnd = m_rubberShown ? m_rubberEnd : m_current;
    SelectEntity(false);
    eraseRubber();
    m_done = true;
    return;
  }
  m_polygon.clear();
  m_rubberStart = m_rubberEnd = m_current;
  if (m_mode == kAutomatic && SelectEntity(true) > 0) {
    m_done = true;
    return;
  }
  if (m_mode == kPolygon) m_polygon.push_back(m_current);
  SetStartPoint(device);
}

void CQdrDbSelectionTracker::onCharacter(wchar_t character) {
  if (m_keywords.Find(character) < 0) return;
  if (character == kCrossing && m_mode == kPolygon) {
    SelectEntity(false);
    eraseRubber();
    m_done = true;
    return;
  }
  eraseRubber();
  m_mode = character;
  m_activePen = character == kCrossing || character == kFence ? &m_dotPen : &m_solidPen;
  m_started = false;
}

void CQdrDbSelectionTracker::onKey(const MSG& message) {
  if (qdr::isCancelKey(message.wParam)) {
    eraseRubber();
    m_selected.clear();
    m_done = true;
  } else if (qdr::isEndKey(message.wParam)) {
    eraseRubber();
    m_done = true;
  } else {
    InputLoop::translate(message);
  }
}

void CQdrDbSelectionTracker::eraseRubber() {
  if (m_rubberShown) DrawRubber();
  m_rubberShown = false;
}

void CQdrDbSelectionTracker::DrawRect(CPoint corner1, CPoint corner2) {
  if (m_dc) qdr::drawFrame(*m_dc, corner1, corner2);
}

void CQdrDbSelectionTracker::DrawRubber() {
  if (!m_dc) return;
  m_dc->SelectObject(m_activePen);
  if (m_mode == kFence) {
    m_dc->MoveTo(m_rubberStart);
    m_dc->LineTo(m_rubberEnd);
  } else if (m_mode == kPolygon) {
    if (m_polygon.empty()) return;
    m_dc->MoveTo(m_polygon.front());
    for (const CPoint& vertex : m_polygon)
      m_dc->LineTo(vertex);
    m_dc->LineTo(m_rubberEnd);
  } else {
    DrawRect(m_rubberStart, m_rubberEnd);
  }
}

int CQdrDbSelectionTracker::SelectEntity(bool single) {
  CQdrDbDisplayTableRecord* const view = m_db->m_displayTable.getCurrentRecord();
  if (!view) return 0;
  if (single) {
    CQdrDbObjectId id;
    if (view->selectEntity(qdr::toWorld(m_rubberEnd), id)) m_selected.insert(qdr::asEntity(id));
  } else if (m_mode == kFence) {
    selectByFence(*view);
  } else if (m_mode == kPolygon) {
    selectByPolygon(*view);
  } else {
    const bool toTheLeft = m_rubberEnd.x < m_rubberStart.x;
    selectByRectangle(*view, m_mode == kCrossing || (m_mode == kAutomatic && toTheLeft));
  }
  return static_cast<int>(m_selected.size());
}

void CQdrDbSelectionTracker::selectByRectangle(CQdrDbDisplayTableRecord& view, bool crossing) {
  const CQdrGePoint2d start = qdr::toWorld(m_rubberStart);
  const CQdrGePoint2d end = qdr::toWorld(m_rubberEnd);
  std::set<CQdrDbObjectId> ids;
  if (crossing) {
    view.selectEntityByCross(start, end, ids);
  } else {
    view.selectEntityByWin(start, end, ids);
  }
  for (const CQdrDbObjectId& id : ids)
    m_selected.insert(qdr::asEntity(id));
}

// Candidates come from the square about the middle of the fence, as wide as its longer extent.
void CQdrDbSelectionTracker::selectByFence(CQdrDbDisplayTableRecord& view) {
  CQdrGeLine2d fence(qdr::toWorld(m_rubberStart), qdr::toWorld(m_rubberEnd));
  const CQdrGeVector2d extent = fence.endPoint() - fence.startPoint();
  const double half = std::max(std::abs(extent.x), std::abs(extent.y)) / 2.0;
  const CQdrGePoint2d middle = fence.midPoint();
  std::set<CQdrDbObjectId> ids;
  view.selectEntityByCross(CQdrGePoint2d(middle.x - half, middle.y - half),
                           CQdrGePoint2d(middle.x + half, middle.y + half), ids);
  for (const CQdrDbObjectId& id : ids) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (entity->IntersectWith(fence, qdr::kCurveTolerance)) m_selected.insert(entity);
  }
}

void CQdrDbSelectionTracker::selectByPolygon(CQdrDbDisplayTableRecord& view) {
  if (m_polygon.empty()) return;
  std::vector<CQdrGePoint2d> corners;
  for (const CPoint& vertex : m_polygon)
    corners.push_back(qdr::toWorld(vertex));
  CQdrGePoint2d low = corners.front();
  CQdrGePoint2d high = corners.front();
  for (const CQdrGePoint2d& corner : corners) {
    low.set(std::min(low.x, corner.x), std::min(low.y, corner.y));
    high.set(std::max(high.x, corner.x), std::max(high.y, corner.y));
  }
  std::set<CQdrDbObjectId> ids;
  view.selectEntityByCross(low, high, ids);
  const int count = static_cast<int>(corners.size());
  for (const CQdrDbObjectId& id : ids) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    std::vector<CQdrGePoint2d>* grips = nullptr;
    if (!entity->getGripPointVec(grips) || grips->empty()) continue;
    const bool inside = std::all_of(grips->begin(), grips->end(), [&](const CQdrGePoint2d& grip) {
      return CQdrDbEntity::IsInsidePolygon(corners.data(), grip, count);
    });
    if (inside) m_selected.insert(entity);
  }
}
