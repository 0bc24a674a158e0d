#include "geometry/internal/travel_segment.h"

#include <cmath>

#include "geometry/internal/bulge.h"

namespace qdr {

double TravelSegment::sweep() const {
  return sweepOfBulge(bulge);
}

double TravelSegment::length() const {
  return isArc() ? radius * std::abs(sweep()) : distance(start, end);
}

Vec TravelSegment::pointAt(double t) const {
  if (!isArc()) return start + (end - start) * t;
  const double angle = sweep() * t;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const Vec arm = start - center;
  return center + Vec(arm.x * c - arm.y * s, arm.x * s + arm.y * c);
}

double TravelSegment::paramOf(const Vec& p) const {
  if (!isArc()) {
    const Vec chord = end - start;
    return dot(p - start, chord) / chord.lengthSqrd();
  }
  const Vec from = start - center;
  const Vec to = p - center;
  const double turn = std::atan2(cross(from, to), dot(from, to));
  const double travelled = withTurnIfNegative(bulge > 0.0 ? turn : -turn);
  const double whole = std::abs(sweep());
  const bool isBeforeStart = kTwoPi - travelled < travelled - whole;
  return (isBeforeStart ? travelled - kTwoPi : travelled) / whole;
}

Box TravelSegment::box() const {
  Box bounds = boxOfChord(start, end);
  if (!isArc()) return bounds;
  const Vec quadrants[] = {{radius, 0.0}, {0.0, radius}, {-radius, 0.0}, {0.0, -radius}};
  for (const Vec& arm : quadrants) {
    if (isWithinSweep(center + arm)) bounds.add(center + arm);
  }
  return bounds;
}

Vec TravelSegment::middle() const {
  const Vec chord = end - start;
  if (!isArc()) return start + chord * 0.5;
  // On the right of the chord when the arc turns left, however far it turns.
  const double reach = radius / chord.length();
  return center + chord.perpVector() * (bulge > 0.0 ? -reach : reach);
}

std::pair<TravelSegment, TravelSegment> TravelSegment::halves() const {
  std::pair<TravelSegment, TravelSegment> parts(*this, *this);
  parts.first.end = parts.second.start = middle();
  // tan(a / 2) = tan(a) / (1 + sqrt(1 + tan(a)^2))
  parts.first.bulge = parts.second.bulge = bulge / (1.0 + std::sqrt(1.0 + bulge * bulge));
  return parts;
}

std::vector<TravelSegment> segmentsOf(std::span<const Vec> points, std::span<const double> bulges,
                                      bool closed) {
  std::vector<TravelSegment> segments;
  if (points.size() < 2) return segments;
  const std::size_t count = points.size() - (closed ? 0 : 1);
  segments.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    segments.push_back(segmentAt(points, bulges, i));
  return segments;
}

}  // namespace qdr
