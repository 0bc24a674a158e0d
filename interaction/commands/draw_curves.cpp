// Commands that draw circles and arcs.

#include <memory>
#include <utility>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/display_units.h"
#include "interaction/commands/drawing_step.h"
#include "interaction/point_parser.h"
#include "interaction/trackers/arc_tracker.h"
#include "interaction/trackers/circle_tracker.h"
#include "platform/window.h"

namespace {

constexpr double kPlaceholderRadius = 1.0;
constexpr double kPlaceholderSweep = 0.1;

// Ways in which an arc is drawn; the host calls again with the one that the user chose.
enum ArcOption : unsigned long {
  kAsk = 0,
  kThreePoints = 100,
  kCenterAndStart = 200,
  kCenterAndRadius = 300,
  kTangent = 400
};

}  // namespace

CQdrDbEntity* CQdrCommandHandler::CommandCircle(unsigned long&) {
  CQdrGePoint2d center;
  if (GetGePoint(QdrDb::ePromptCentre, center) == qdr::kInputCancel) return nullptr;
  qdr::Draft<CQdrDbCircle> circle(new CQdrDbCircle(center, kPlaceholderRadius));
  circle->setDatabase(m_database);
  CQdrCircleTracker tracker(m_dispWindow, circle.get(), QdrDb::eTransformNone, true);
  const int result = qdr::trackDraft(*this, tracker, center, QdrDb::ePromptRadius);
  double radius = 0.0;
  if (qdr::typedNumber(result, tracker.resBuffer(), radius)) {
    if (!(radius > 0.0)) return nullptr;
    circle->setRadius(radius);
    m_dispWindow->InvalidateRect(nullptr, true);
  } else if (result == qdr::kInputPoint) {
    circle->setRadius(center.distanceTo(qdr::typedPoint(tracker.resBuffer())));
  } else if (!qdr::accepted(result)) {
    return nullptr;
  }
  setMsg();
  m_lastEntity = circle.get();
  return circle.release();
}

CQdrDbEntity* CQdrCommandHandler::CommandArc(unsigned long& option) {
  switch (option) {
    case kThreePoints:
      return arcByThreePoints(false);
    case kCenterAndStart:
      return arcByCenter(option);
    case kCenterAndRadius:
      return arcByRadius(true);
    case kTangent:
      if (m_lastEntity) return arcAlongTangent();
      option = kAsk;
      break;
    default:
      break;
  }
  return arcByQuestion(option);
}

// The first answer decides: a point begins a three-point arc, the keyword C asks for the centre.
CQdrDbEntity* CQdrCommandHandler::arcByQuestion(unsigned long& option) {
  const int result = GetGePoint(QdrDb::ePromptArcStartOrCentre, m_arcFirst, L"C");
  if (result == qdr::kInputCancel) return nullptr;
  if (result == qdr::kInputKeyword) {
    option = kCenterAndStart;
    return arcByCenter(option);
  }
  option = kThreePoints;
  return arcByThreePoints(true);
}

CQdrDbEntity* CQdrCommandHandler::arcByThreePoints(bool firstGiven) {
  if (!firstGiven && GetGePoint(QdrDb::ePromptStartPoint, m_arcFirst) == qdr::kInputCancel) {
    return nullptr;
  }
  const CQdrGePoint2d first = m_arcFirst;
  CQdrGePoint2d second;
  const int result = GetGePoint(QdrDb::ePromptArcSecondPoint, second, first, 0);
  if (result != qdr::kInputPick && result != qdr::kInputPoint) return nullptr;
  qdr::Draft<CQdrDbArc> arc(new CQdrDbArc(first, second, 1.0));
  arc->setDatabase(m_database);
  CQdrArcTracker tracker(m_dispWindow, arc.get(), QdrDb::eTransformNone, true);
  tracker.SetOption(CQdrArcTracker::eThreePoints);
  tracker.SetArcPoint(second);
  const int answer = qdr::trackDraft(*this, tracker, first, QdrDb::ePromptNextPoint);
  if (answer == qdr::kInputPoint) {
    arc->set(first, second, qdr::typedPoint(tracker.resBuffer()));
  } else if (!qdr::accepted(answer)) {
    return nullptr;
  }
  return finishedArc(std::move(arc));
}

CQdrDbEntity* CQdrCommandHandler::arcByCenter(unsigned long& option) {
  CQdrGePoint2d center;
  if (GetGePoint(QdrDb::ePromptCentre, center) == qdr::kInputCancel) return nullptr;
  CQdrGePoint2d start;
  const int result = GetGePoint(QdrDb::ePromptArcStart, start, center, 0);
  if (result == qdr::kInputKeyword) {
    option = kCenterAndRadius;
    m_arcFirst = center;
    return arcByRadius(false);
  }
  if (result != qdr::kInputPick && result != qdr::kInputPoint) return nullptr;
  const double angle = center.angleTo(start);
  return arcToEndAngle(
      new CQdrDbArc(center, center.distanceTo(start), angle, angle + kPlaceholderSweep));
}

CQdrDbEntity* CQdrCommandHandler::arcByRadius(bool askCenter) {
  if (askCenter && GetGePoint(QdrDb::ePromptCentre, m_arcFirst) == qdr::kInputCancel) {
    return nullptr;
  }
  CQdrGePoint2d center = m_arcFirst;
  const double radius = GetDistance(QdrDb::ePromptRadius, &center);
  if (!(radius > 0.0)) return nullptr;
  const double angle = GetAngle(QdrDb::ePromptStartAngle, &center);
  return arcToEndAngle(new CQdrDbArc(center, radius, angle, angle + kPlaceholderSweep));
}

// Takes the arc over; its end angle is tracked or typed in degrees.
CQdrDbEntity* CQdrCommandHandler::arcToEndAngle(CQdrDbArc* draft) {
  qdr::Draft<CQdrDbArc> arc(draft);
  arc->setDatabase(m_database);
  CQdrArcTracker tracker(m_dispWindow, arc.get(), QdrDb::eTransformNone, true);
  const int result = qdr::trackDraft(*this, tracker, arc->Center(), QdrDb::ePromptEndAngle);
  double degrees = 0.0;
  if (qdr::typedNumber(result, tracker.resBuffer(), degrees)) {
    arc->setEndAngle(qdr::typedRadians(degrees));
  } else if (result == qdr::kInputPoint) {
    arc->setEndAngle(arc->Center().angleTo(qdr::typedPoint(tracker.resBuffer())));
  } else if (!qdr::accepted(result)) {
    return nullptr;
  }
  // The next command goes on from the end of the arc; one through points ends where it was picked.
  m_database->m_lastPoint = arc->EndPoint();
  return finishedArc(std::move(arc));
}

// Leaves the last point along the tangent in which the last entity ends.
CQdrDbEntity* CQdrCommandHandler::arcAlongTangent() {
  const CQdrGePoint2d start = m_database->m_lastPoint;
  qdr::Draft<CQdrDbArc> arc(new CQdrDbArc(start, start + CQdrGeVector2d(1.0, 1.0), 1.0));
  arc->setDatabase(m_database);
  CQdrArcTracker tracker(m_dispWindow, arc.get(), QdrDb::eTransformNone, true);
  tracker.SetOption(CQdrArcTracker::eTangent);
  tracker.SetPrevEntity(m_lastEntity);
  const int result = qdr::trackDraft(*this, tracker, start, QdrDb::ePromptNextPoint);
  if (result == qdr::kInputPoint) {
    tracker.setTangentEnd(*arc, qdr::typedPoint(tracker.resBuffer()));
  } else if (!qdr::accepted(result)) {
    return nullptr;
  }
  return finishedArc(std::move(arc));
}

CQdrDbEntity* CQdrCommandHandler::finishedArc(std::unique_ptr<CQdrDbArc> arc) {
  setMsg();
  m_lastEntity = arc.get();
  return arc.release();
}
