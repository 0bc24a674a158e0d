#include "entities/line.h"

#include <memory>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/display_units.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/property_rows.h"
#include "entities/internal/trim_scheme.h"
#include "platform/device_context.h"

namespace {

// From here on along the line an edit takes the end, before it the start.
constexpr double kMiddle = 0.5;

}  // namespace

CQdrDbLine::CQdrDbLine(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_line);
}

CQdrDbLine::CQdrDbLine(const CQdrDbLine& other)
    : CQdrDbCurve(other.database()), m_line(other.m_line) {
  setClassInfo(kClassType, m_line);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbLine::CQdrDbLine(const CQdrGePoint2d& start, const CQdrGePoint2d& end)
    : CQdrDbCurve(nullptr), m_line(start, end) {
  setClassInfo(kClassType, m_line);
  setGripPoints();
}

CQdrDbEntity& CQdrDbLine::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_line = static_cast<const CQdrDbLine&>(other).m_line;
    setGripPoints();
  }
  return *this;
}

CQdrDbLine& CQdrDbLine::operator=(const CQdrDbLine& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbLine::set(const CQdrGePoint2d& start, const CQdrGePoint2d& end) {
  m_line.set(start, end);
  setGripPoints();
}

void CQdrDbLine::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::fieldRows({{L"X Start", StartPoint().x},
                                           {L"Y Start", StartPoint().y},
                                           {L"X End", EndPoint().x},
                                           {L"Y End", EndPoint().y}});
}

void CQdrDbLine::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  dc->MoveTo(qdr::toLogical(StartPoint()));
  dc->LineTo(qdr::toLogical(EndPoint()));
  RemovePen(dc, former);
}

void CQdrDbLine::setGripPoints() {
  storeGripPoints({m_line.midPoint(), StartPoint(), EndPoint()});
}

bool CQdrDbLine::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return anyGripInside(0, 2, corner1, corner2) || crossesRect(corner1, corner2);
}

bool CQdrDbLine::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(1, 3, corner1, corner2);
}

void CQdrDbLine::moveStart(const CQdrGePoint2d& point) {
  tagUndoEditEntity record = qdr::undoRecord(*this, qdr::kUndoVertex);
  record.index = 0;
  record.vector = StartPoint() - point;
  qdr::addUndo(*this, record);
  setStartPoint(point);
}

void CQdrDbLine::moveEnd(const CQdrGePoint2d& point) {
  tagUndoEditEntity record = qdr::undoRecord(*this, qdr::kUndoVertex);
  record.index = 1;
  record.vector = EndPoint() - point;
  qdr::addUndo(*this, record);
  setEndPoint(point);
}

CQdrDbEntity* CQdrDbLine::Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                               double tol) {
  const qdr::TrimCut cut =
      qdr::chooseCut(*this, qdr::boundaryCrossings(*this, boundaries, tol), pick);
  if (cut.part == qdr::TrimPart::kStart) moveStart(cut.after.second);
  if (cut.part == qdr::TrimPart::kEnd) moveEnd(cut.before.second);
  if (cut.part != qdr::TrimPart::kMiddle) return nullptr;

  auto rest = std::make_unique<CQdrDbLine>(*this);
  moveEnd(cut.before.second);
  rest->setStartPoint(rest->pointAtParam(cut.after.first));
  return rest.release();
}

bool CQdrDbLine::Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                        double tol) {
  qdr::CrossingMap byDistance;
  for (const CQdrGePoint2d& point :
       qdr::boundaryPoints(*this, boundaries, CQdrGeEntity2d::kExtendThis, tol))
    if (isOn(point, tol) == 0) byDistance[pick.distanceTo(point)] = point;
  if (byDistance.empty()) return false;

  const CQdrGePoint2d target = byDistance.begin()->second;
  if (qdr::paramOfPick(*this, pick) >= kMiddle)
    moveEnd(target);
  else
    moveStart(target);
  return true;
}

bool CQdrDbLine::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbLine::m_line, side, distance, result);
}
