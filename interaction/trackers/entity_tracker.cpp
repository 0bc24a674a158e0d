#include "interaction/trackers/entity_tracker.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "database/database.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/grid_rounding.h"
#include "interaction/input_loop.h"
#include "platform/device_context.h"
#include "platform/window.h"

namespace {

constexpr unsigned kHitClient = 1;
constexpr int kMoveGrip = 0;

CRect gripRect(const CQdrGePoint2d& grip, const CSize& size, double scale) {
  const CPoint center = qdr::toLogical(grip);
  const double left = center.x - size.cx * scale / 2.0;
  const double top = center.y - size.cy * scale / 2.0;
  return {qdr::truncToInt(left), qdr::truncToInt(top), qdr::truncToInt(left + size.cx * scale),
          qdr::truncToInt(top + size.cy * scale)};
}

void drawDiamond(CDC& dc, const CRect& box) {
  const CPoint center = box.CenterPoint();
  dc.MoveTo(box.left, center.y);
  dc.LineTo(center.x, box.top);
  dc.LineTo(box.right, center.y);
  dc.LineTo(center.x, box.bottom);
  dc.LineTo(box.left, center.y);
}

// Names a tracker as the one that runs, also when an exception passes through its loop.
class CurrentTracker {
 public:
  CurrentTracker(CQdrDbDatabase* database, CQdrDbEntityTracker& tracker) : m_database(database) {
    if (!m_database) return;
    m_former = m_database->currentTracker();
    m_database->setCurrentTracker(&tracker);
  }
  ~CurrentTracker() {
    if (m_database) m_database->setCurrentTracker(m_former);
  }
  CurrentTracker(const CurrentTracker&) = delete;
  CurrentTracker& operator=(const CurrentTracker&) = delete;

 private:
  CQdrDbDatabase* m_database;
  CQdrDbEntityTracker* m_former = nullptr;
};

}  // namespace

CQdrDbEntityTracker::CQdrDbEntityTracker(CWnd* window) : m_window(window) {}

CQdrDbEntityTracker::CQdrDbEntityTracker(CWnd* window, CQdrDbDatabase* database, bool create)
    : m_db(database), m_window(window), m_createMode(create) {
  SetDefault();
}

CQdrDbEntityTracker::CQdrDbEntityTracker(CWnd* window, CQdrDbEntity* entity,
                                         QdrDb::TransFormOption option, bool create)
    : m_db(entity ? entity->database() : nullptr),
      m_window(window),
      m_entity(entity),
      m_transOpt(option),
      m_createMode(create) {
  SetDefault();
}

CQdrDbEntityTracker::CQdrDbEntityTracker(CWnd* window, std::vector<CQdrDbObjectId>*,
                                         QdrDb::TransFormOption option)
    : m_window(window), m_transOpt(option) {}

CQdrDbEntityTracker::~CQdrDbEntityTracker() {
  if (!m_createMode && m_trackerType != eTrackMulti) takeGripsOff();
  delete m_currentEntity;
}

void CQdrDbEntityTracker::SetDefault() {
  if (!m_db) return;
  m_handler = &m_db->m_commandHandler;
  m_dc = m_db->screenDC();
}

void CQdrDbEntityTracker::showGrips() {
  if (m_createMode || !m_entity || !m_dc) return;
  m_entity->UnDraw(m_dc);
  DrawGripBox(false);
}

void CQdrDbEntityTracker::takeGripsOff() {
  if (m_gripsDrawn) UnDrawGripBox();
}

void CQdrDbEntityTracker::retire() {
  m_dc = nullptr;
  m_entity = nullptr;
  m_prevEntity = nullptr;
  m_gripPoints = nullptr;
  m_gripsDrawn = false;
  m_rubberShown = false;
  m_finished = true;
}

void CQdrDbEntityTracker::forgetEntities(const qdr::EntitySet& gone) {
  if (gone.contains(qdr::asObject(m_prevEntity))) m_prevEntity = nullptr;
  if (gone.contains(qdr::asObject(m_entity))) retire();
}

void CQdrDbEntityTracker::DrawGripBox(bool redraw) {
  if (!m_dc || !m_entity) return;
  if (!m_entity->getGripPointVec(m_gripPoints) || !m_gripPoints || m_gripPoints->empty()) return;
  if (redraw) {
    const qdr::RasterScope plain(m_dc, R2_COPYPEN);
    m_entity->UnDraw(m_dc);
  }
  const qdr::RasterScope raster(m_dc, R2_XORPEN);
  m_entity->HighlightDraw(m_dc);
  m_gripsDrawn = DrawBoxis();
}

// Drawn once more by exclusive-or the marks are gone; the plain picture takes their place.
void CQdrDbEntityTracker::UnDrawGripBox() {
  if (!m_dc || !m_entity || !m_gripsDrawn) return;
  {
    const qdr::RasterScope raster(m_dc, R2_XORPEN);
    DrawBoxis();
    m_entity->HighlightDraw(m_dc);
  }
  m_gripsDrawn = false;
  const qdr::RasterScope plain(m_dc, R2_COPYPEN);
  m_entity->Draw(m_dc);
}

bool CQdrDbEntityTracker::DrawBoxis() {
  if (!m_dc || !m_entity || !m_entity->getGripPointVec(m_gripPoints) || !m_gripPoints) return false;
  const CQdrDbDisplayTableRecord* const view =
      m_db ? m_db->m_displayTable.getCurrentRecord() : nullptr;
  m_gripScale = view ? view->scaleX() : 0.0;
  CPen pen(PS_SOLID, m_rubberWidth, m_gripColor);
  const qdr::PenScope scope(m_dc, pen);
  const std::vector<bool> isDiamond = diamonds();
  for (std::size_t i = 0; i < m_gripPoints->size(); ++i) {
    const CRect box = gripRect((*m_gripPoints)[i], m_gripSize, m_gripScale);
    if (i < isDiamond.size() && isDiamond[i]) {
      drawDiamond(*m_dc, box);
    } else {
      qdr::drawFrame(*m_dc, box.TopLeft(), box.BottomRight());
    }
  }
  return !m_gripPoints->empty();
}

int CQdrDbEntityTracker::HitTest(CPoint device) {
  if (m_createMode || !m_dc || !m_entity) return -1;
  if (!m_entity->getGripPointVec(m_gripPoints) || !m_gripPoints) return -1;
  CPoint point = device;
  m_dc->DPtoLP(&point);
  for (std::size_t i = 0; i < m_gripPoints->size(); ++i) {
    if (gripRect((*m_gripPoints)[i], m_gripSize, m_gripScale).PtInRect(point)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

int CQdrDbEntityTracker::SetCursor(CWnd* window, unsigned hitTest) {
  if (hitTest != kHitClient) return 0;
  if (!window) return -1;
  CPoint position;
  GetCursorPos(&position);
  window->ScreenToClient(&position);
  const int grip = HitTest(position);
  if (grip >= 0) ::SetCursor(LoadCursor(nullptr, grip == kMoveGrip ? IDC_SIZEALL : IDC_SIZENESW));
  return grip;
}

void CQdrDbEntityTracker::UndrawOrigin() {
  if (m_entity && m_dc) m_entity->UnDraw(m_dc);
}

void CQdrDbEntityTracker::DrawCurrent() {
  if (m_currentEntity && m_dc) m_currentEntity->Draw(m_dc);
}

void CQdrDbEntityTracker::drawCurrentEntity() {
  if (m_currentEntity && m_dc) DrawCurrent();
}

void CQdrDbEntityTracker::DrawRubber() {
  if (!m_dc) return;
  m_dc->MoveTo(m_rubberStart);
  m_dc->LineTo(m_rubberEnd);
  m_rubberPrevEnd = m_rubberEnd;
}

void CQdrDbEntityTracker::eraseRubber() {
  if (!m_rubberShown || !m_dc) return;
  const CPoint end = std::exchange(m_rubberEnd, m_rubberPrevEnd);
  DrawRubber();
  m_rubberEnd = end;
  m_rubberShown = false;
}

void CQdrDbEntityTracker::SetStartPoint(const CQdrGePoint2d& worldPoint, bool alsoEnd) {
  m_rubberStart = qdr::toLogical(worldPoint);
  m_exactStart = worldPoint;
  if (!alsoEnd) return;
  m_rubberEnd = m_rubberStart;
  m_currentPoint = m_rubberStart;
  m_exactEnd.reset();
}

void CQdrDbEntityTracker::SetPos(const CQdrGePoint2d& worldPoint) {
  m_currentPoint = qdr::toLogical(worldPoint);
  m_rubberEnd = m_currentPoint;
  m_exactEnd = worldPoint;
}

CQdrGePoint2d CQdrDbEntityTracker::GetPos() const {
  return m_exactEnd.value_or(qdr::toWorld(m_currentPoint));
}

CQdrGePoint2d CQdrDbEntityTracker::startWorld() const {
  return m_exactStart.value_or(qdr::toWorld(m_rubberStart));
}

CQdrGePoint2d CQdrDbEntityTracker::endWorld() const {
  return m_exactEnd.value_or(qdr::toWorld(m_rubberEnd));
}

double CQdrDbEntityTracker::dragScale() const {
  const double scale = m_db ? dragVector().length() / m_db->m_vars.dragScaleUnit : 1.0;
  return std::isfinite(scale) ? scale : 0.0;
}

bool CQdrDbEntityTracker::IsValidPos(const CPoint& device) const {
  return m_validRect.IsRectEmpty() || m_validRect.PtInRect(device);
}

void CQdrDbEntityTracker::TransFormEntity(CQdrDbEntity* entity) {
  switch (m_transOpt) {
    case QdrDb::eTransformCopy:
    case QdrDb::eTransformMove:
      MoveEntity(entity);
      break;
    case QdrDb::eTransformRotate:
      RotateEntity(entity);
      break;
    case QdrDb::eTransformMirror:
      MirrorEntity(entity);
      break;
    case QdrDb::eTransformScale:
      ScaleEntity(entity);
      break;
    case QdrDb::eTransformNone:
      break;
  }
}

void CQdrDbEntityTracker::CheckSnap() {
  if (m_snapped || m_exactEnd || !m_db || m_db->m_vars.snapGrid == 0) return;
  const CQdrGePoint2d rounded =
      qdr::roundedToGrid(qdr::toWorld(m_currentPoint), m_db->m_vars.gridSpacing);
  m_currentPoint = qdr::toLogical(rounded);
  m_rubberEnd = m_currentPoint;
}

void CQdrDbEntityTracker::settlePoint() {
  if (m_handler) m_handler->CheckBlipDraw(m_snapPrev);
  eraseRubber();
  CheckSnap();
  if (m_db) m_db->m_lastPoint = GetPos();
}

int CQdrDbEntityTracker::Track(CWnd* window, CPoint device) {
  return Track(window, device, HitTest(device));
}

// A tracker that is taken away in its own loop waits in the graveyard until this depth is left,
// which is the last thing that happens here.
int CQdrDbEntityTracker::Track(CWnd* window, CPoint device, int handle) {
  std::optional<qdr::DepthScope> depth;
  if (m_handler) depth.emplace(*m_handler);
  int result = 0;
  {
    const CurrentTracker current(m_db, *this);
    result = TrackHandle(window, device, handle);
  }
  if (m_entity && result != 0) m_entity->OnCurveChanged();
  return result;
}

int CQdrDbEntityTracker::TrackMenu(CWnd* window, CPoint device) {
  return TrackMenuHandle(window, device, HitTest(device));
}
