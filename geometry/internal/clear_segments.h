#pragma once

#include <algorithm>
#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

class CQdrGeCircArc2d;
class CQdrGeLine2d;

namespace qdr {

/// What rounding may take from a crossing, as a ratio to the coordinates. The radius of a flat arc
/// is 250 times its chord.
inline constexpr double kCrossingRatio = 100.0 * kRoundingRatio;

/// Tells of the segments of a chain, given vertex by vertex, which certainly have no crossing with
/// a line, taken as infinite. Two products for each vertex.
class ClearOfLine {
 public:
  /// `tol` from 0 to kMost is that of the crossings.
  ClearOfLine(const CQdrGeLine2d& line, double tol);

  static constexpr double kMost = 0.001;

  void startAt(const Vec& place) {
    m_from = place;
    m_offFrom = cross(m_along, place - m_origin);
    m_sizeFrom = std::abs(place.x) + std::abs(place.y);
  }

  /// Whether the segment from the last place given to this one, with this bulge, stays clear.
  bool passes(const Vec& to, double bulge) {
    const Vec from = m_from;
    const double offFrom = m_offFrom;
    const double sizeFrom = m_sizeFrom;
    startAt(to);
    const double margin = m_margin + kCrossingRatio * (sizeFrom + m_sizeFrom);
    const double clearance = std::min(std::abs(offFrom), std::abs(m_offFrom)) - margin;
    const bool isBeside = (offFrom > 0.0) == (m_offFrom > 0.0) && clearance > 0.0;
    if (!isBeside || !isArcBulge(bulge)) return isBeside;
    // A line that passes an arc this near counts as touching it.
    return staysBeside(to - from, bulge, clearance - m_touch);
  }

 private:
  static bool staysBeside(const Vec& chord, double bulge, double clearance);

  Vec m_origin;
  Vec m_along;  // of length 1; 0 without a direction, which nothing is clear of
  double m_margin;
  double m_touch;
  Vec m_from;
  double m_offFrom = 0.0;  // from the line, positive to its left
  double m_sizeFrom = 0.0;
};

/// The same for an arc, taken as its whole circle. One root for each vertex.
class ClearOfCircle {
 public:
  ClearOfCircle(const CQdrGeCircArc2d& arc, double tol);

  static constexpr double kMost = ClearOfLine::kMost;

  void startAt(const Vec& place) {
    const double distance = std::sqrt((place - m_center).lengthSqrd());
    m_from = place;
    m_clearance = std::abs(distance - m_radius) - m_margin - kCrossingRatio * distance;
  }

  /// No place of a segment is farther from its start than its chord, or than the diameter of an
  /// arc of more than a half turn, which is (b + 1 / b) / 2 chords. To that come, for arcs, what
  /// the angles allow beyond the ends and what the tolerance does to circles that almost meet.
  bool passes(const Vec& to, double bulge) {
    const double chord = std::abs(to.x - m_from.x) + std::abs(to.y - m_from.y);
    const double clearance = m_clearance;
    startAt(to);
    const double chords = isArcBulge(bulge) ? 2.0 + 1.5 * std::abs(bulge) : 1.0;
    return clearance > chord * chords;
  }

 private:
  Vec m_center;
  double m_radius;
  double m_margin;
  Vec m_from;
  double m_clearance = 0.0;  // of m_from
};

}  // namespace qdr
