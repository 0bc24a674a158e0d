#include <algorithm>

#include "database/database.h"
#include "entities/entity.h"
#include "entities/internal/pen_resolution.h"
#include "platform/device_context.h"

namespace {

CPen* newPen(const qdr::PenRecipe& recipe) {
  if (recipe.dashes.empty()) return new CPen(PS_GEOMETRIC, recipe.width, recipe.color);
  const LOGBRUSH brush{.lbStyle = BS_SOLID, .lbColor = recipe.color, .lbHatch = 0};
  return new CPen(PS_GEOMETRIC | PS_USERSTYLE, recipe.width, &brush,
                  static_cast<int>(recipe.dashes.size()), recipe.dashes.data());
}

// The device context of the current view; null without one.
CDC* viewDC(const CQdrDbDatabase* database) {
  const CQdrDbDisplayTableRecord* display =
      database ? database->m_displayTable.getCurrentRecord() : nullptr;
  return display ? display->getDC() : nullptr;
}

}  // namespace

CPen* CQdrDbEntity::setPen(CDC* dc) {
  CPen* const former = dc->GetCurrentPen();
  if (m_highlightDraw) return former;
  if (m_pen && !m_backgroundDraw && !m_penStale) return dc->SelectObject(m_pen);
  const auto recipe = qdr::resolvePen(*this, *dc, m_backgroundDraw);
  if (!recipe) return former;
  CPen* const pen = newPen(*recipe);
  dc->SelectObject(pen);
  freePen();
  m_pen = pen;
  return former;
}

void CQdrDbEntity::RemovePen(CDC* dc, CPen* former) {
  dc->SelectObject(former);
  freePen();
}

void CQdrDbEntity::freePen() {
  delete m_pen;
  m_pen = nullptr;
}

void CQdrDbEntity::Draw(CDC*) {}

void CQdrDbEntity::UnDraw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  m_backgroundDraw = true;
  Draw(dc);
  m_backgroundDraw = false;
}

void CQdrDbEntity::HighlightDraw(CDC* dc) {
  if (!dc) return;
  const CQdrDbColorTableRecord* color = Color();
  CPen pen(PS_DOT, 1, color ? static_cast<COLORREF>(color->getColor()) : 0);
  CPen* const former = dc->SelectObject(&pen);
  m_highlightDraw = true;
  Draw(dc);
  m_highlightDraw = false;
  dc->SelectObject(former);
  m_highlighted = true;
}

void CQdrDbEntity::Draw() {
  if (CDC* dc = viewDC(m_database)) Draw(dc);
}

void CQdrDbEntity::HighlightDraw() {
  if (CDC* dc = viewDC(m_database)) HighlightDraw(dc);
}

void CQdrDbEntity::ReDraw(CDC* dc) {
  if (m_highlighted)
    HighlightDraw(dc);
  else
    Draw(dc);
}
