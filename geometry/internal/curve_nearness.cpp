#include "geometry/internal/curve_nearness.h"

#include <cmath>
#include <limits>

#include "geometry/internal/curve_intersection.h"

namespace qdr {

namespace {

Vec nearestPlaceToPoint(const TravelSegment& segment, const Vec& p) {
  if (segment.isArc()) {
    const Vec arm = p - segment.center;
    const double armLength = arm.length();
    if (armLength > 0.0) {
      const Vec onCircle = segment.center + arm * (segment.radius / armLength);
      if (segment.isWithinSweep(onCircle)) return onCircle;
    }
    const bool endIsNearer = distanceSqrd(p, segment.end) < distanceSqrd(p, segment.start);
    return endIsNearer ? segment.end : segment.start;
  }
  const Vec chord = segment.end - segment.start;
  const double along = dot(p - segment.start, chord);
  const double lengthSqrd = chord.lengthSqrd();
  if (!(along > 0.0)) return segment.start;
  if (along >= lengthSqrd) return segment.end;
  return segment.start + chord * (along / lengthSqrd);
}

/// Keeps the nearest of the pairs it is shown.
struct NearestPair {
  NearPlace best{std::numeric_limits<double>::infinity(), {}};

  void show(const Vec& onA, const Vec& onB) {
    const double d = distanceSqrd(onA, onB);
    if (d < best.distanceSqrd) best = {d, onA};
  }
};

/// The common normals of an arc and a line, or of two arcs, run through the centres.
void showNormals(const TravelSegment& a, const TravelSegment& b, NearestPair& nearest) {
  if (!a.isArc()) {
    const Vec chord = a.end - a.start;
    const double along = dot(b.center - a.start, chord) / chord.lengthSqrd();
    if (!(along > 0.0 && along < 1.0)) return;
    const Vec foot = a.start + chord * along;
    nearest.show(foot, nearestPlaceToPoint(b, foot));
    return;
  }
  const Vec target = b.isArc() ? b.center : nearestPlaceToPoint(b, a.center);
  const Vec direction = (target - a.center).normal(0.0);
  if (direction.lengthSqrd() == 0.0) return;  // all places of `a` are as far, its ends among them
  for (const double sign : {1.0, -1.0}) {
    const Vec onA = a.center + direction * (sign * a.radius);
    if (a.isWithinSweep(onA)) nearest.show(onA, nearestPlaceToPoint(b, onA));
  }
}

}  // namespace

double distanceSqrdTo(const TravelSegment& segment, const Vec& p) {
  return distanceSqrd(nearestPlaceToPoint(segment, p), p);
}

NearPlace nearestPlace(const TravelSegment& a, const TravelSegment& b) {
  const Meeting meeting = meetSegments(a, b);
  if (meeting.count > 0) return {0.0, meeting.points[0]};
  NearestPair nearest;
  nearest.show(a.start, nearestPlaceToPoint(b, a.start));
  nearest.show(a.end, nearestPlaceToPoint(b, a.end));
  nearest.show(nearestPlaceToPoint(a, b.start), b.start);
  nearest.show(nearestPlaceToPoint(a, b.end), b.end);
  if (a.isArc() || b.isArc()) showNormals(a, b, nearest);
  return nearest.best;
}

namespace {

/// A line with what every test against it needs.
struct Line {
  explicit Line(const TravelSegment& segment)
      : start(segment.start), chord(segment.end - segment.start), lengthSqrd(chord.lengthSqrd()) {}

  /// Whether `p` is nearer than the limit, told without a division.
  bool isNearer(const Vec& p, double limitSqrd) const {
    const Vec arm = p - start;
    const double along = dot(arm, chord);
    if (along <= 0.0) return arm.lengthSqrd() < limitSqrd;
    if (along >= lengthSqrd) return distanceSqrd(arm, chord) < limitSqrd;
    const double height = cross(chord, arm);
    return height * height < limitSqrd * lengthSqrd;
  }

  /// Positive on the left.
  double sideOf(const Vec& p) const { return cross(chord, p - start); }

  Vec start;
  Vec chord;
  double lengthSqrd;
};

/// The same of an arc: the ring about its circle between the arms to its ends, and round the ends.
struct Arc {
  explicit Arc(const TravelSegment& segment) : arc(segment) {}

  /// Whether `p` is nearer than `limit`, told without roots.
  bool isNearer(const Vec& p, double limit) const {
    const Vec arm = p - arc.center;
    if (!isBetweenArms(arm)) {
      return distanceSqrd(p, arc.start) < limit * limit || distanceSqrd(p, arc.end) < limit * limit;
    }
    const double outer = arc.radius + limit;
    const double inner = arc.radius - limit;
    const double armSqrd = arm.lengthSqrd();
    return armSqrd < outer * outer && (inner < 0.0 || armSqrd > inner * inner);
  }

  bool isBetweenArms(const Vec& arm) const {
    const double side = arc.bulge > 0.0 ? 1.0 : -1.0;
    const bool isBehindStart = side * cross(arc.start - arc.center, arm) >= 0.0;
    const bool isBeforeEnd = side * cross(arm, arc.end - arc.center) >= 0.0;
    const bool isPastHalf = std::abs(arc.bulge) > 1.0;
    return isPastHalf ? isBehindStart || isBeforeEnd : isBehindStart && isBeforeEnd;
  }

  const TravelSegment& arc;
};

/// Whether already the full circles, beside or inside each other, keep the limit.
bool areCirclesApart(const TravelSegment& a, const TravelSegment& b, double limit) {
  const double centersSqrd = distanceSqrd(a.center, b.center);
  const double beside = a.radius + b.radius + limit;
  if (centersSqrd >= beside * beside) return true;
  const double inside = std::abs(a.radius - b.radius) - limit;
  return inside >= 0.0 && centersSqrd <= inside * inside;
}

bool areLinesNearer(const TravelSegment& a, const TravelSegment& b, double limitSqrd) {
  const Line onA(a);
  const Line onB(b);
  if (onA.isNearer(b.start, limitSqrd) || onA.isNearer(b.end, limitSqrd) ||
      onB.isNearer(a.start, limitSqrd) || onB.isNearer(a.end, limitSqrd)) {
    return true;
  }
  if (!(limitSqrd > 0.0)) return false;
  // Lines with all ends apart are near only where they cross.
  const bool partsB = (onA.sideOf(b.start) < 0.0) != (onA.sideOf(b.end) < 0.0);
  const bool partsA = (onB.sideOf(a.start) < 0.0) != (onB.sideOf(a.end) < 0.0);
  return partsA && partsB;
}

}  // namespace

bool isPlaceNearer(const TravelSegment& segment, const Vec& p, double limit) {
  return segment.isArc() ? Arc(segment).isNearer(p, limit)
                         : Line(segment).isNearer(p, limit * limit);
}

bool isNearer(const TravelSegment& a, const TravelSegment& b, double limit) {
  if (!a.isArc() && !b.isArc()) return areLinesNearer(a, b, limit * limit);
  if (a.isArc() && b.isArc() && areCirclesApart(a, b, limit)) return false;
  if (isPlaceNearer(b, a.end, limit) || isPlaceNearer(b, a.start, limit) ||
      isPlaceNearer(a, b.end, limit) || isPlaceNearer(a, b.start, limit)) {
    return true;
  }
  // The crossings, which cost most, come last: most that cross are near with an end already.
  NearestPair nearest;
  showNormals(a, b, nearest);
  return nearest.best.distanceSqrd < limit * limit || (limit > 0.0 && meetSegments(a, b).count > 0);
}

}  // namespace qdr
