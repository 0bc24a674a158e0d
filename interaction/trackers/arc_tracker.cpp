#include "interaction/trackers/arc_tracker.h"

#include <cmath>
#include <numbers>

#include "entities/angle_steps.h"
#include "entities/arc.h"
#include "entities/display_units.h"
#include "entities/line.h"

namespace {

constexpr int kStartGrip = 1;
constexpr int kRadiusGrip = 2;
constexpr int kEndGrip = 3;

// Half angles this near to a right one belong to the way straight back.
constexpr double kStraightBack = 1e-6;

}  // namespace

namespace qdr {

bool endDirection(const CQdrDbEntity& entity, const CQdrGePoint2d& at, CQdrGeVector2d& direction) {
  CQdrGePoint2d start;
  CQdrGePoint2d end;
  CQdrGeVector2d atStart;
  if (entity.classType() == QdrDb::eClassLine) {
    const auto& line = static_cast<const CQdrDbLine&>(entity);
    start = line.StartPoint();
    end = line.EndPoint();
    direction = end - start;
    atStart = start - end;
  } else if (entity.classType() == QdrDb::eClassArc) {
    // Stored counter-clockwise: one drawn clockwise was left through its start.
    const auto& arc = static_cast<const CQdrDbArc&>(entity);
    start = arc.StartPoint();
    end = arc.EndPoint();
    direction = (end - arc.Center()).perpVector();
    atStart = -(start - arc.Center()).perpVector();
  } else {
    return false;
  }
  if (start.distanceTo(at) < end.distanceTo(at)) direction = atStart;
  return true;
}

double tangentBulge(const CQdrGePoint2d& start, const CQdrGeVector2d& direction,
                    const CQdrGePoint2d& end) {
  const CQdrGeVector2d chord = end - start;
  if (chord.length() == 0.0 || direction.length() == 0.0) return 0.0;
  const double cross = direction.x * chord.y - direction.y * chord.x;
  const double turn = std::atan2(cross, direction.dotProduct(chord));
  // The chord makes half the sweep with the tangent, and the bulge is the tangent of a quarter.
  if (std::abs(turn) > std::numbers::pi - kStraightBack) return 0.0;
  return std::tan(turn / 2.0);
}

void leaveAlongTangent(CQdrDbArc& arc, const CQdrDbEntity* previous, const CQdrGePoint2d& start,
                       const CQdrGePoint2d& end) {
  CQdrGeVector2d direction;
  if (!previous || !endDirection(*previous, start, direction)) return;
  const double bulge = tangentBulge(start, direction, end);
  if (bulge != 0.0) arc.set(start, end, bulge);
}

}  // namespace qdr

CQdrArcTracker::CQdrArcTracker(CWnd* window, CQdrDbEntity* arc, QdrDb::TransFormOption option,
                               bool create)
    : ShapeTracker(eTrackArc, window, arc, option, create) {
  showGrips();
}

void CQdrArcTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  if (!entity) return;
  auto& arc = static_cast<CQdrDbArc&>(*entity);
  const CQdrGePoint2d mouse = qdr::toWorld(point);
  if (m_option == eThreePoints) {
    arc.set(startWorld(), m_arcPoint, mouse);
  } else if (m_option == eTangent) {
    setTangentEnd(arc, mouse);
  } else {
    arc.setEndAngle(arc.Center().angleTo(mouse));
  }
}

void CQdrArcTracker::setTangentEnd(CQdrDbArc& arc, const CQdrGePoint2d& end) const {
  qdr::leaveAlongTangent(arc, m_prevEntity, startWorld(), end);
}

void CQdrArcTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& arc = static_cast<CQdrDbArc&>(entity);
  const CQdrGePoint2d center = arc.Center();
  if (grip == kStartGrip) arc.setStartAngle(center.angleTo(mouse));
  if (grip == kRadiusGrip) arc.setRadius(center.distanceTo(mouse));
  if (grip == kEndGrip) arc.setEndAngle(center.angleTo(mouse));
}

void CQdrArcTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& arc = static_cast<const CQdrDbArc&>(entity);
  if (grip == kRadiusGrip) {
    steps.push_back(qdr::undoStep(qdr::kUndoRadius, QdrXY(arc.Radius(), 0.0)));
    return;
  }
  const double angle = grip == kStartGrip ? arc.StartAngle() : arc.EndAngle();
  steps.push_back(qdr::undoStep(qdr::kUndoAngle, {}));
  qdr::storeAngle(steps.back(), angle);
  steps.back().index = grip == kStartGrip ? 0 : 1;
}
