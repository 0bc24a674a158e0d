// Painting of a display record: entities, grid, and the extents that are read off the entities.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "interaction/display/buff_dc.h"
#include "interaction/display/display_table_record.h"
#include "interaction/input_loop.h"
#include "platform/device_context.h"
#include "platform/window.h"

namespace {

constexpr int kPrintColor = 255;
constexpr COLORREF kGridColor = 0x646464;
constexpr COLORREF kAxisColor = 0x0000b4;
constexpr LONG kMostGridLines = 20000;

// Extents always hold this corner of the plane.
constexpr QdrXY kLeastExtentMin{0.0, 0.0};
constexpr QdrXY kLeastExtentMax{29.0, 21.0};

// Gives a printed entity the one colour of prints for the time of its drawing.
class PrintColor {
 public:
  explicit PrintColor(CQdrDbEntity& entity) : m_entity(entity), m_own(entity.ColorId()) {
    m_entity.setColor(kPrintColor);
  }
  ~PrintColor() { m_entity.setColor(m_own); }
  PrintColor(const PrintColor&) = delete;
  PrintColor& operator=(const PrintColor&) = delete;

 private:
  CQdrDbEntity& m_entity;
  CQdrDbObjectId m_own;
};

void drawLine(CDC& dc, LONG x1, LONG y1, LONG x2, LONG y2) {
  dc.MoveTo(x1, y1);
  dc.LineTo(x2, y2);
}

}  // namespace

void CQdrDbDisplayTableRecord::Draw(CDC* dc) {
  if (!dc) return;
  if (dc->IsPrinting()) {
    dc->FillSolidRect(m_logicalWindow, dc->GetBkColor());
    DrawEntities(dc);
    return;
  }
  if (!m_view) return;
  auto buffer = std::make_shared<CQdrBuffDC>(*dc, m_view);
  if (m_database) m_database->setLastBuffer(buffer);
  CDC* const picture = buffer->GetDC();
  picture->SetBkColor(dc->GetBkColor());
  DrawEntities(picture);
  if (m_database) m_database->m_commandHandler.TrackerDraw(picture);
  buffer->QdrBitBlt(dc, SRCCOPY);
  if (m_database && dc == m_database->screenDC()) m_database->m_commandHandler.redrawMarks();
}

void CQdrDbDisplayTableRecord::refreshDisplayedIds() {
  if (!m_showLimitsOnly) return;
  std::set<CQdrDbObjectId> inLimits;
  selectEntityByCross(m_limitMin, m_limitMax, inLimits);
  setEntityToMem(inLimits);
}

// Entities that cannot reach the window are left out; while a print gives each its own colour the
// walk is over all, because the change of colour tells the index.
template <class Paint>
void CQdrDbDisplayTableRecord::drawShown(bool all, const Paint& paint) {
  if (!all && m_database && qdr::EntityIndex::pays(m_displayedIds)) {
    m_index.refresh(m_displayedIds, *m_database);
    const qdr::Box window{qdr::toWorld(m_logicalWindow.left), qdr::toWorld(m_logicalWindow.top),
                          qdr::toWorld(m_logicalWindow.right),
                          qdr::toWorld(m_logicalWindow.bottom)};
    const double pixelSize = m_scaleX / _dDispScale;
    if (!m_index.allInside(window, pixelSize)) {
      m_index.forEachIn(window, pixelSize, paint);
      return;
    }
  }
  for (const CQdrDbObjectId& id : m_displayedIds)
    paint(id);
}

void CQdrDbDisplayTableRecord::DrawEntities(CDC* dc) {
  if (!dc) return;
  refreshDisplayedIds();
  const bool printing = dc->IsPrinting();
  const auto draw = [&](const CQdrDbObjectId& id) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (!entity) return true;
    std::optional<PrintColor> color;
    if (printing) color.emplace(*entity);
    entity->Draw(dc);
    return true;
  };
  drawShown(printing, draw);
  DrawGrid(dc);
}

void CQdrDbDisplayTableRecord::DrawEntity(CQdrDbObject*& object) {
  CQdrDbEntity* const entity = qdr::asEntity(object);
  if (entity && m_dc) entity->Draw(m_dc);
}

void CQdrDbDisplayTableRecord::HighlightDraw(CDC* dc) {
  if (!dc || !m_view) return;
  refreshDisplayedIds();
  CQdrMemDC snapshot(*dc, m_view);
  for (const CQdrDbObjectId& id : m_displayedIds) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (entity) entity->HighlightDraw(snapshot.GetDC());
  }
}

// Lines stand at every multiple of spacing times divisions; a step or a multiple of 0 leaves the
// axes alone.
void CQdrDbDisplayTableRecord::DrawGrid(CDC* dc) {
  if (!dc || !m_database || m_database->m_vars.gridVisible == 0) return;
  const qdr::RasterScope raster(dc, R2_COPYPEN);
  const std::int64_t step = qdr::toLogical(m_database->m_vars.gridSpacing);
  const std::int64_t big = step * m_database->m_vars.gridDivisions;
  if (step > 0 && big > 0 && big <= INT32_MAX) drawGridLines(dc, static_cast<LONG>(big));
  drawGridAxes(dc);
}

void CQdrDbDisplayTableRecord::drawGridLines(CDC* dc, LONG step) const {
  CPen pen(PS_DOT, 0, kGridColor);
  const qdr::PenScope scope(dc, pen);
  const CRect& window = m_logicalWindow;
  if (std::int64_t{window.right} - window.left <= std::int64_t{step} * kMostGridLines) {
    for (std::int64_t x = window.left / step * step; x < window.right; x += step) {
      drawLine(*dc, static_cast<LONG>(x), window.top, static_cast<LONG>(x), window.bottom);
    }
  }
  if (std::int64_t{window.bottom} - window.top <= std::int64_t{step} * kMostGridLines) {
    for (std::int64_t y = window.top / step * step; y < window.bottom; y += step) {
      drawLine(*dc, window.left, static_cast<LONG>(y), window.right, static_cast<LONG>(y));
    }
  }
}

void CQdrDbDisplayTableRecord::drawGridAxes(CDC* dc) const {
  CPen pen(PS_DOT, 0, kAxisColor);
  const qdr::PenScope scope(dc, pen);
  const CRect& window = m_logicalWindow;
  if (window.left < 1 && window.right > -1) drawLine(*dc, 0, window.top, 0, window.bottom);
  if (window.top < 1 && window.bottom > -1) drawLine(*dc, window.left, 0, window.right, 0);
}

void CQdrDbDisplayTableRecord::getExtend() {
  if (!m_database) return;
  QdrXY min = kLeastExtentMin;
  QdrXY max = kLeastExtentMax;
  for (const CQdrDbObjectId& id : m_displayedIds) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    std::vector<CQdrGePoint2d>* grips = nullptr;
    if (!entity || entity->isErased() || !entity->getGripPointVec(grips) || !grips) continue;
    for (const CQdrGePoint2d& grip : *grips) {
      min.set(std::min(min.x, grip.x), std::min(min.y, grip.y));
      max.set(std::max(max.x, grip.x), std::max(max.y, grip.y));
    }
  }
  m_database->m_vars.extentMin = min;
  m_database->m_vars.extentMax = max;
}
