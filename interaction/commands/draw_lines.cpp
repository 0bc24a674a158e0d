// Commands that draw lines and rectangles.

#include "database/database.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "geometry/vector2d.h"
#include "interaction/commands/drawing_step.h"
#include "interaction/trackers/line_tracker.h"
#include "interaction/trackers/rect_tracker.h"

namespace {

// Shapes begin with this size, until the mouse gives them their own. An answer that says nothing of
// a shape, as a number for the end of a line, leaves it at that.
const CQdrGeVector2d kPlaceholder(1.0, 1.0);

}  // namespace

// A mode word other than 0 goes on from the last point without asking for a start.
CQdrDbEntity* CQdrCommandHandler::CommandLine(unsigned long& option) {
  CQdrGePoint2d start = m_database->m_lastPoint;
  if (option == 0 && GetGePoint(QdrDb::ePromptStartPoint, start) == qdr::kInputCancel) {
    return nullptr;
  }
  qdr::Draft<CQdrDbLine> line(new CQdrDbLine(start, start + kPlaceholder));
  line->setDatabase(m_database);
  m_database->m_lastPoint = start;
  CQdrLineTracker tracker(m_dispWindow, line.get(), QdrDb::eTransformNone, true);
  const int result = qdr::trackDraft(*this, tracker, start, QdrDb::ePromptNextPoint);
  if (result == qdr::kInputPoint) {
    line->setEndPoint(qdr::typedPoint(tracker.resBuffer()));
    line->Draw(m_database->screenDC());
  } else if (!qdr::accepted(result)) {
    return nullptr;
  }
  m_lastEntity = line.get();
  return line.release();
}

CQdrDbEntity* CQdrCommandHandler::CommandRect(unsigned long&) {
  CQdrGePoint2d corner;
  if (GetGePoint(QdrDb::ePromptFirstCorner, corner) == qdr::kInputCancel) return nullptr;
  qdr::Draft<CQdrDbRect> rect(new CQdrDbRect(corner, corner + kPlaceholder));
  rect->setDatabase(m_database);
  CQdrRectTracker tracker(m_dispWindow, rect.get(), QdrDb::eTransformNone, true);
  const int result = qdr::trackDraft(*this, tracker, corner, QdrDb::ePromptOppositeCorner);
  if (result == qdr::kInputPoint) {
    rect->setRightBottom(qdr::typedPoint(tracker.resBuffer()));
  } else if (!qdr::accepted(result)) {
    return nullptr;
  }
  setMsg();
  m_lastEntity = rect.get();
  return rect.release();
}
