#include "geometry/internal/curve_intersection.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/tolerance.h"

namespace qdr {

namespace {

struct Circle {
  Vec center;
  double radius;
};

Circle circleOf(const TravelSegment& arc) {
  return {arc.center, arc.radius};
}

/// How far apart, or how far into each other, curves may be that still touch in one place.
double touchGap(const Circle& circle) {
  const double size = std::abs(circle.center.x) + std::abs(circle.center.y) + circle.radius;
  return kCurveTolerance + kRoundingRatio * size;
}

Meeting meetLines(const TravelSegment& a, const TravelSegment& b) {
  const Vec u = a.end - a.start;
  const Vec v = b.end - b.start;
  const double sine = cross(u, v);
  Meeting meeting;
  if (!(sine * sine > kParallelSine * kParallelSine * u.lengthSqrd() * v.lengthSqrd()))
    return meeting;
  meeting.add(a.start + u * (cross(b.start - a.start, v) / sine));
  return meeting;
}

/// `line` as an infinite one.
Meeting meetLineCircle(const TravelSegment& line, const Circle& circle) {
  Meeting meeting;
  const Vec u = line.end - line.start;
  const double lengthSqrd = u.lengthSqrd();
  if (!(lengthSqrd > 0.0)) return meeting;
  const Vec foot = line.start + u * (dot(circle.center - line.start, u) / lengthSqrd);
  const double heightSqrd = circle.radius * circle.radius - distanceSqrd(foot, circle.center);
  // r^2 - f^2 = (r - f)(r + f), and the gap is r - f.
  const double touchSqrd = 2.0 * circle.radius * touchGap(circle);
  if (heightSqrd < -touchSqrd || !(heightSqrd == heightSqrd)) return meeting;
  if (heightSqrd <= touchSqrd) {
    meeting.add(foot);
    return meeting;
  }
  const Vec half = u * std::sqrt(heightSqrd / lengthSqrd);
  meeting.add(foot - half);
  meeting.add(foot + half);
  return meeting;
}

Meeting meetCircles(const Circle& a, const Circle& b) {
  Meeting meeting;
  const Vec between = b.center - a.center;
  const double apartSqrd = between.lengthSqrd();
  const double radiusSqrd = a.radius * a.radius;
  if (!(apartSqrd > kSameCenter * kSameCenter * radiusSqrd)) return meeting;
  // (r1 - r2)(r1 + r2) keeps the digits that r1^2 - r2^2 loses.
  const double along = 0.5 * (1.0 + (a.radius - b.radius) * (a.radius + b.radius) / apartSqrd);
  const Vec foot = a.center + between * along;
  const double heightSqrd = radiusSqrd - along * along * apartSqrd;
  // The height of a gap g between circles that touch from outside or inside: h^2 = 2 g r1 r2 / d.
  const double gap = std::max(touchGap(a), touchGap(b));
  const double touchSqrd = 2.0 * gap * a.radius * b.radius / std::sqrt(apartSqrd);
  if (heightSqrd < -touchSqrd || !(heightSqrd == heightSqrd)) return meeting;
  if (heightSqrd <= touchSqrd) {
    meeting.add(foot);
    return meeting;
  }
  const Vec half = between.perpVector() * std::sqrt(heightSqrd / apartSqrd);
  meeting.add(foot + half);
  meeting.add(foot - half);
  return meeting;
}

/// Whether line `b` lies on one side of the infinite line `a`, clear of any tolerance.
bool liesBeside(const TravelSegment& a, const TravelSegment& b) {
  constexpr double kClear = 16.0 * kCurveTolerance * kCurveTolerance;
  const Vec u = a.end - a.start;
  const double atStart = cross(u, b.start - a.start);
  const double atEnd = cross(u, b.end - a.start);
  const double leastSqrd = kClear * u.lengthSqrd();
  return atStart * atEnd > 0.0 && atStart * atStart > leastSqrd && atEnd * atEnd > leastSqrd;
}

bool isNear(const Vec& a, const Vec& b) {
  return areWithin(a, b, kCurveTolerance);
}

}  // namespace

bool holdsPlace(const TravelSegment& segment, const Vec& p) {
  if (segment.isArc()) {
    if (segment.isWithinSweep(p)) return true;
  } else {
    const Vec chord = segment.end - segment.start;
    const double along = dot(p - segment.start, chord);
    if (along >= 0.0 && along <= chord.lengthSqrd()) return true;
  }
  return isNear(p, segment.start) || isNear(p, segment.end);
}

Meeting meetNeighbours(const TravelSegment& a, const TravelSegment& b, const Vec& vertex) {
  Meeting meeting;
  if (!a.isArc() && !b.isArc()) return meeting;
  const Vec center = a.isArc() ? a.center : b.center;
  // The axis runs through both centres, or through the centre and square to the line.
  const Vec axis = a.isArc() && b.isArc() ? b.center - a.center
                   : a.isArc()            ? (b.end - b.start).perpVector()
                                          : (a.end - a.start).perpVector();
  const double axisSqrd = axis.lengthSqrd();
  if (!(axisSqrd > 0.0)) return meeting;
  const Vec across = axis.perpVector();
  const Vec mirrored = vertex - across * (2.0 * dot(vertex - center, across) / axisSqrd);
  if (holdsPlace(a, mirrored) && holdsPlace(b, mirrored)) meeting.add(mirrored);
  return meeting;
}

Meeting meetExtended(const TravelSegment& a, const TravelSegment& b) {
  if (a.isArc() && b.isArc()) return meetCircles(circleOf(a), circleOf(b));
  if (a.isArc()) return meetLineCircle(b, circleOf(a));
  if (b.isArc()) return meetLineCircle(a, circleOf(b));
  return meetLines(a, b);
}

Meeting meetSegments(const TravelSegment& a, const TravelSegment& b) {
  Meeting meeting;
  if (!a.isArc() && !b.isArc() && (liesBeside(a, b) || liesBeside(b, a))) return meeting;
  const Meeting extended = meetExtended(a, b);
  for (int k = 0; k < extended.count; ++k) {
    const Vec& p = extended.points[k];
    if (holdsPlace(a, p) && holdsPlace(b, p)) meeting.add(p);
  }
  return meeting;
}

Meeting meetCircle(const TravelSegment& segment, const Vec& center, double radius) {
  const Circle circle{center, radius};
  const Meeting extended =
      segment.isArc() ? meetCircles(circleOf(segment), circle) : meetLineCircle(segment, circle);
  Meeting meeting;
  for (int k = 0; k < extended.count; ++k) {
    if (holdsPlace(segment, extended.points[k])) meeting.add(extended.points[k]);
  }
  return meeting;
}

}  // namespace qdr
