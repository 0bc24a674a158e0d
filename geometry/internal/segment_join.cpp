#include "geometry/internal/segment_join.h"

#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// Where a place of the infinite line or full circle lies against the segment.
enum class Place { onSegment, beyondEnd, beforeStart };

void meetAt(OffsetPart& part, OffsetPart& follower, const Vec& p) {
  part.to = p;
  part.isCutAtEnd = true;
  follower.from = p;
  follower.isCutAtStart = true;
}

void connect(OffsetPart& part, double bulge) {
  part.hasConnector = true;
  part.connectorBulge = bulge;
}

/// Joins by an arc about the source's vertex; it turns the way in which the follower goes on.
void round(OffsetPart& part, OffsetPart& follower) {
  const Vec from = part.segment.end;
  const Vec to = follower.segment.start;
  const Vec ahead =
      follower.segment.isArc() ? follower.segment.pointAt(kRoundingProbe) : follower.segment.end;
  const bool turnsRight = !(cross(to - from, ahead - from) > 0.0);
  const Vec arm = from - follower.vertex;
  const Vec farArm = to - follower.vertex;
  const double turn = withTurnIfNegative(std::atan2(cross(arm, farArm), dot(arm, farArm)));
  const double sweep = turnsRight ? kTwoPi - turn : turn;
  const bool isNoArc = sweep <= kAngleTolerance || sweep >= kTwoPi - kAngleTolerance;
  const double bulge = isNoArc ? 0.0 : bulgeOfSweep(sweep);
  connect(part, turnsRight ? -bulge : bulge);
  if (follower.segment.isArc() && !part.segment.isArc()) {
    follower.startsSigned = true;
    follower.signAtStart = turnsRight ? 1.0 : -1.0;
  }
}

/// Whether the unit directions differ by at most 0.001, told without roots.
bool areParallel(const Vec& u, const Vec& v) {
  constexpr double kLeastCosine = 1.0 - kVectorTolerance * kVectorTolerance / 2.0;
  const double cosine = dot(u, v);
  return cosine > 0.0 &&
         cosine * cosine >= kLeastCosine * kLeastCosine * u.lengthSqrd() * v.lengthSqrd();
}

/// Where the place at parameter `t` of the line through a segment lies.
Place placeOnLine(double t, double lengthSqrd) {
  const double beyond = t > 1.0 ? t - 1.0 : (t < 0.0 ? -t : 0.0);
  if (beyond * beyond * lengthSqrd <= kCurveTolerance * kCurveTolerance) return Place::onSegment;
  return t > 0.5 ? Place::beyondEnd : Place::beforeStart;
}

void joinLines(OffsetPart& part, OffsetPart& follower) {
  const TravelSegment& p = part.segment;
  const TravelSegment& f = follower.segment;
  const Vec u = p.end - p.start;
  const Vec v = f.end - f.start;
  const Vec gap = f.start - p.start;
  const double sine = cross(u, v);
  const double uSqrd = u.lengthSqrd();
  const double vSqrd = v.lengthSqrd();
  const bool neverMeet = !(sine * sine > kParallelSine * kParallelSine * uSqrd * vSqrd);
  if (neverMeet || areParallel(u, v)) return connect(part, 0.0);
  const double t = cross(gap, v) / sine;
  const Place onPart = placeOnLine(t, uSqrd);
  const Place onFollower = placeOnLine(cross(gap, u) / sine, vSqrd);
  const bool areCrossing = onPart == Place::onSegment && onFollower == Place::onSegment;
  const bool isSharpCorner = onPart == Place::beyondEnd && onFollower == Place::beforeStart;
  if (areCrossing || isSharpCorner) return meetAt(part, follower, p.start + u * t);
  connect(part, 0.0);
}

void joinWithArc(OffsetPart& part, OffsetPart& follower) {
  const TravelSegment& p = part.segment;
  const TravelSegment& f = follower.segment;
  const Meeting extended = meetExtended(p, f);
  if (extended.count == 0) return round(part, follower);
  // A meeting on both goes before one beyond the ends, the nearer to the vertex before the other.
  int best = 0;
  bool isBestOnBoth = false;
  for (int k = 0; k < extended.count; ++k) {
    const Vec& place = extended.points[k];
    const bool isOnBoth = holdsPlace(p, place) && holdsPlace(f, place);
    const bool isNearer =
        distanceSqrd(place, follower.vertex) < distanceSqrd(extended.points[best], follower.vertex);
    if (k > 0 && (isOnBoth != isBestOnBoth ? isBestOnBoth : !isNearer)) continue;
    best = k;
    isBestOnBoth = isOnBoth;
  }
  const Vec place = extended.points[best];
  if (holdsPlace(p, place) == holdsPlace(f, place)) return meetAt(part, follower, place);
  if (p.isArc() && f.isArc()) return round(part, follower);
  connect(part, 0.0);
}

/// Where a place of the circle lies against the arc, told by distances alone.
Place placeOnArc(const TravelSegment& arc, const Vec& p) {
  if (arc.isWithinSweep(p)) return Place::onSegment;
  return distanceSqrd(p, arc.start) < distanceSqrd(p, arc.end) ? Place::beforeStart
                                                               : Place::beyondEnd;
}

}  // namespace

double OffsetPart::bulge() const {
  if (!segment.isArc()) return 0.0;
  if (startsSigned && !isCutAtEnd) return signAtStart * std::abs(segment.bulge);
  if (!isCutAtStart && !isCutAtEnd) return segment.bulge;
  const Place placeOfFrom = placeOnArc(segment, from);
  const Place placeOfTo = placeOnArc(segment, to);
  if (placeOfFrom == Place::onSegment && placeOfTo == Place::onSegment) {
    const double skipped = segment.bulgeTo(segment.start, from);
    const double reached = segment.bulgeTo(segment.start, to);
    if (std::abs(reached) > std::abs(skipped)) return segment.bulgeTo(from, to);
  } else if (placeOfFrom != Place::beyondEnd && placeOfTo != Place::beforeStart) {
    // Each end goes on by less than half of what the arc leaves of its circle.
    if (placeOfFrom != placeOfTo) return segment.bulgeTo(from, to);
  }
  const double start = isCutAtStart ? segment.paramOf(from) : 0.0;
  const double end = isCutAtEnd ? segment.paramOf(to) : 1.0;
  return bulgeOfSweep(segment.sweep() * (end - start));
}

void joinParts(OffsetPart& part, OffsetPart& follower) {
  const double gapSqrd = distanceSqrd(part.segment.end, follower.segment.start);
  if (gapSqrd <= kPointTolerance * kPointTolerance) return;
  if (part.segment.isArc() || follower.segment.isArc()) return joinWithArc(part, follower);
  joinLines(part, follower);
}

}  // namespace qdr
