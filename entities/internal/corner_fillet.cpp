#include "entities/internal/corner_fillet.h"

#include <cmath>
#include <vector>

#include "geometry/angle.h"
#include "geometry/tolerance.h"

namespace {

using qdr::CornerFillet;
using qdr::CornerLeg;
using qdr::Vec;

// Difference of unit directions up to which two curves are smooth, or fold back, at their corner.
constexpr double kSmoothCorner = 0.01;

// All places at the fillet's radius from a leg, on the inner side of the corner: a line, or a
// circle about the centre of the arc.
struct CenterLocus {
  Vec origin;           ///< a point of the line, the centre of the circle
  Vec direction;        ///< of the line
  double radius = 0.0;  ///< of the circle, 0 for a line
};

// `toInner` is the unit normal of the leg at the corner, into the corner. None when the fillet is
// larger than the arc that it lies in.
std::optional<CenterLocus> centerLocus(const CornerLeg& leg, const Vec& toInner, double radius) {
  if (!leg.isArc()) return CenterLocus{leg.corner + toInner * radius, leg.away};
  const bool inside = qdr::dot(toInner, leg.center - leg.corner) > 0.0;
  const double locusRadius = inside ? leg.radius - radius : leg.radius + radius;
  if (!(locusRadius > 0.0)) return std::nullopt;
  return CenterLocus{leg.center, Vec(), locusRadius};
}

std::vector<Vec> meetLines(const CenterLocus& a, const CenterLocus& b) {
  const double t =
      qdr::cross(b.origin - a.origin, b.direction) / qdr::cross(a.direction, b.direction);
  return {a.origin + a.direction * t};
}

std::vector<Vec> meetLineAndCircle(const CenterLocus& line, const CenterLocus& circle) {
  const double along = qdr::dot(circle.origin - line.origin, line.direction);
  const Vec foot = line.origin + line.direction * along;
  const double halfChordSqrd =
      circle.radius * circle.radius - qdr::distanceSqrd(foot, circle.origin);
  if (!(halfChordSqrd >= 0.0)) return {};
  const Vec half = line.direction * std::sqrt(halfChordSqrd);
  return {foot - half, foot + half};
}

std::vector<Vec> meetCircles(const CenterLocus& a, const CenterLocus& b) {
  const Vec between = b.origin - a.origin;
  const double distance = between.length();
  if (!(distance > 0.0)) return {};
  const Vec along = between / distance;
  const double reach = (distance + (a.radius - b.radius) * (a.radius + b.radius) / distance) / 2.0;
  const CenterLocus chord{a.origin + along * reach, along.perpVector()};
  return meetLineAndCircle(chord, a);
}

std::vector<Vec> meet(const CenterLocus& a, const CenterLocus& b) {
  if (a.radius > 0.0) return b.radius > 0.0 ? meetCircles(a, b) : meetLineAndCircle(b, a);
  return b.radius > 0.0 ? meetLineAndCircle(a, b) : meetLines(a, b);
}

// Where a fillet about `center` touches a leg; none beyond the ends of the leg.
std::optional<Vec> touchPoint(const CornerLeg& leg, const Vec& center) {
  if (!leg.isArc()) {
    const double along = qdr::dot(center - leg.corner, leg.away);
    if (!(along >= 0.0 && along <= leg.room + qdr::kCurveTolerance)) return std::nullopt;
    return leg.corner + leg.away * along;
  }
  const Vec outward = (center - leg.center).normal(0.0);
  const double atCorner = (leg.corner - leg.center).angle();
  const double atTouch = outward.angle();
  const double turned = leg.leavesCounterClockwise ? qdr::sweepBetween(atCorner, atTouch)
                                                   : qdr::sweepBetween(atTouch, atCorner);
  if (!(turned <= leg.room + qdr::kCurveTolerance)) return std::nullopt;
  return leg.center + outward * leg.radius;
}

}  // namespace

namespace qdr {

CornerLeg cornerLeg(const CQdrGeLine2d& line, bool fromStart) {
  CornerLeg leg;
  leg.corner = toVec(fromStart ? line.startPoint() : line.endPoint());
  leg.room = line.length();
  leg.away = (fromStart ? line.endPoint() - line.startPoint() : line.startPoint() - line.endPoint())
                 .normal(0.0);
  return leg;
}

CornerLeg cornerLeg(const CQdrGeCircArc2d& arc, bool fromStart) {
  CornerLeg leg;
  leg.corner = toVec(fromStart ? arc.startPoint() : arc.endPoint());
  leg.center = toVec(arc.center());
  leg.radius = arc.radius();
  leg.room = sweepBetween(arc.startAng(), arc.endAng());
  leg.leavesCounterClockwise = fromStart;
  const Vec tangent = (leg.corner - leg.center).perpVector().normal(0.0);
  leg.away = fromStart ? tangent : -tangent;
  return leg;
}

std::optional<CornerFillet> filletCorner(const CornerLeg& first, const CornerLeg& second,
                                         double radius) {
  if (!(radius > 0.0) || first.away.isParallelTo(second.away, kSmoothCorner) ||
      first.away.isParallelTo(-second.away, kSmoothCorner))
    return std::nullopt;
  // The inner side lies left of the first leg, as it leaves, where the second turns off left.
  const double left = cross(first.away, second.away) > 0.0 ? 1.0 : -1.0;
  const auto firstLocus = centerLocus(first, first.away.perpVector() * left, radius);
  const auto secondLocus = centerLocus(second, second.away.perpVector() * -left, radius);
  if (!firstLocus || !secondLocus) return std::nullopt;

  std::optional<CornerFillet> best;
  for (const Vec& center : meet(*firstLocus, *secondLocus)) {
    const auto onFirst = touchPoint(first, center);
    const auto onSecond = touchPoint(second, center);
    if (!onFirst || !onSecond) continue;
    const bool isNearer = !best || distanceSqrd(center, first.corner) <
                                       distanceSqrd(toVec(best->arc.center()), first.corner);
    if (!isNearer) continue;
    const bool forward = left < 0.0;
    const double from = (*onFirst - center).angle();
    const double to = (*onSecond - center).angle();
    best.emplace();
    best->arc.set(toPoint(center), radius, forward ? from : to, forward ? to : from);
    best->onFirst = *onFirst;
    best->onSecond = *onSecond;
    best->side = forward ? 1 : -1;
  }
  return best;
}

}  // namespace qdr
