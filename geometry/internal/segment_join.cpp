#include "geometry/internal/segment_join.h"

#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// Where a place of the infinite line or full circle lies against the segment.
enum class Place { onSegment, beyondEnd, beforeStart };

Place classify(const TravelSegment& segment, const Vec& p) {
  if (distanceSqrdTo(segment, p) <= kCurveTolerance * kCurveTolerance) return Place::onSegment;
  if (segment.isArc()) return segment.paramOf(p) > 1.0 ? Place::beyondEnd : Place::beforeStart;
  const bool nearerEnd = distanceSqrd(p, segment.end) < distanceSqrd(p, segment.start);
  return nearerEnd ? Place::beyondEnd : Place::beforeStart;
}

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

bool areParallel(const TravelSegment& a, const TravelSegment& b) {
  const Vec u = (a.end - a.start).normal(0.0);
  const Vec v = (b.end - b.start).normal(0.0);
  return distanceSqrd(u, v) <= kVectorTolerance * kVectorTolerance;
}

void joinLines(OffsetPart& part, OffsetPart& follower) {
  const TravelSegment& p = part.segment;
  const TravelSegment& f = follower.segment;
  const Meeting meeting = meetExtended(p, f);
  if (areParallel(p, f) || meeting.count == 0) return connect(part, 0.0);
  const Place onPart = classify(p, meeting.points[0]);
  const Place onFollower = classify(f, meeting.points[0]);
  const bool cross = onPart == Place::onSegment && onFollower == Place::onSegment;
  const bool isSharpCorner = onPart == Place::beyondEnd && onFollower == Place::beforeStart;
  if (cross || isSharpCorner) return meetAt(part, follower, meeting.points[0]);
  connect(part, 0.0);
}

void joinWithArc(OffsetPart& part, OffsetPart& follower) {
  const TravelSegment& p = part.segment;
  const TravelSegment& f = follower.segment;
  Meeting meeting = meetSegments(p, f);
  if (meeting.count == 0) meeting = meetExtended(p, f);
  if (meeting.count == 0) return round(part, follower);
  Vec place = meeting.points[0];
  if (meeting.count == 2 &&
      distanceSqrd(meeting.points[1], follower.vertex) < distanceSqrd(place, follower.vertex)) {
    place = meeting.points[1];
  }
  const bool isOnPart = classify(p, place) == Place::onSegment;
  const bool isOnFollower = classify(f, place) == Place::onSegment;
  if (isOnPart == isOnFollower) return meetAt(part, follower, place);
  if (p.isArc() && f.isArc()) return round(part, follower);
  connect(part, 0.0);
}

}  // namespace

double OffsetPart::bulge() const {
  if (!segment.isArc()) return 0.0;
  if (startsSigned && !isCutAtEnd) return signAtStart * std::abs(segment.bulge);
  if (!isCutAtStart && !isCutAtEnd) return segment.bulge;
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
