#pragma once

#include <cmath>
#include <span>
#include <utility>
#include <vector>

#include "geometry/box.h"
#include "geometry/internal/bulge.h"
#include "geometry/vec.h"

namespace qdr {

/// One segment of a chain with its ends in the order of travel, the value that the algorithms on
/// chains work on. Unlike an arc object it knows its direction: `bulge` carries the sign.
///
/// Its parameter runs from 0 at the start to 1 at the end in proportion to length.
struct TravelSegment {
  Vec start;
  Vec end;
  double bulge = 0.0;   // exactly 0 for a line
  Vec center;           // of an arc
  double radius = 0.0;  // of an arc

  bool isArc() const { return bulge != 0.0; }

  /// Signed sweep; 0 for a line.
  double sweep() const;
  double length() const;

  /// Direction of travel, not normalised.
  Vec tangentAtStart() const { return isArc() ? tangentAt(start) : end - start; }
  Vec tangentAtEnd() const { return isArc() ? tangentAt(end) : end - start; }

  /// Not held to [0, 1]: a line goes on straight, an arc round its circle.
  Vec pointAt(double t) const;

  /// Parameter of a place on the line or circle. On an arc a place beyond an end counts from the
  /// end that is nearer by angle, below 0 or above 1.
  double paramOf(const Vec& p) const;

  /// Whether a place of the circle belongs to the arc, its ends included: the chord parts them.
  bool isWithinSweep(const Vec& p) const { return cross(end - start, p - start) * bulge <= 0.0; }

  /// Bulge of the way on the circle of an arc, in its direction, from `p` to `q`. No angles are
  /// formed: tan(a / 4) = sin(a / 2) / (1 + cos(a / 2)) = (1 - cos(a / 2)) / sin(a / 2), and the
  /// chord gives sine and cosine. Either keeps its digits on its half of the turn.
  double bulgeTo(const Vec& p, const Vec& q) const {
    const Vec chord = q - p;
    const double apothem = cross(chord, center - p);  // times the chord
    const double size = chord.length();
    const double towards = bulge > 0.0 ? apothem : -apothem;
    const double magnitude = towards > 0.0 ? size * size / (2.0 * (radius * size + towards))
                                           : 2.0 * (radius * size - towards) / (size * size);
    if (!(size > 0.0)) return 0.0;
    return bulge > 0.0 ? magnitude : -magnitude;
  }

  Box box() const;

  /// Of an arc, at a place of its circle.
  Vec tangentAt(const Vec& p) const {
    return bulge > 0.0 ? (p - center).perpVector() : (center - p).perpVector();
  }

  /// The place half way.
  Vec middle() const;

  /// The parts before and behind the middle, curved even where they are flat.
  std::pair<TravelSegment, TravelSegment> halves() const;
};

/// The segment over this chord; a bulge of at most 0.001 in magnitude and a chord of no length
/// give a line.
inline TravelSegment makeSegment(const Vec& start, const Vec& end, double bulge) {
  TravelSegment segment;
  segment.start = start;
  segment.end = end;
  if (!isArcBulge(bulge)) return segment;
  const Vec chord = end - start;
  const double chordSqrd = chord.lengthSqrd();
  if (!(chordSqrd > 0.0)) return segment;
  // The centre lies on the bisector, (1 - b^2) / (4 b) chord lengths to the left of the middle.
  const double bulgeSqrd = bulge * bulge;
  const double quarter = 0.25 / bulge;
  segment.bulge = bulge;
  segment.center = (start + end) * 0.5 + chord.perpVector() * ((1.0 - bulgeSqrd) * quarter);
  segment.radius = std::sqrt(chordSqrd) * (1.0 + bulgeSqrd) * std::abs(quarter);
  return segment;
}

/// Segment `i` of a chain; behind the last vertex follows the first.
inline TravelSegment segmentAt(std::span<const Vec> points, std::span<const double> bulges,
                               std::size_t i) {
  return makeSegment(points[i], points[i + 1 < points.size() ? i + 1 : 0], bulges[i]);
}

/// Every segment of the chain, the closing one included when `closed`.
std::vector<TravelSegment> segmentsOf(std::span<const Vec> points, std::span<const double> bulges,
                                      bool closed);

}  // namespace qdr
