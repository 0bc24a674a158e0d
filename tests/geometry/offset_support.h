#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "tests/geometry/polyline_support.h"

// What an offset has to hold, told without the kernel's own measurements.

/// Least distance of 50 places of every segment of the pieces from the source.
inline double leastDistance(const OwnedPieces& pieces, const CQdrGePolyline2d& source) {
  const std::vector<SampledSegment> sources = segmentsOfChain(source);
  double least = std::numeric_limits<double>::infinity();
  for (const auto& piece : pieces) {
    for (const SampledSegment& segment : segmentsOfChain(*piece)) {
      for (int k = 0; k <= 50; ++k) {
        const CQdrGePoint2d place = segment.at(k / 50.0);
        for (const SampledSegment& from : sources)
          least = std::min(least, from.distanceTo(place));
      }
    }
  }
  return least;
}

/// A source whose offset is told segment by segment: a segment moved sideways belongs to the
/// border wherever it keeps the distance from all the others.
struct MovedSegments {
  MovedSegments(const CQdrGePolyline2d& source, double dist, int direction)
      : sources(segmentsOfChain(source)), distance(dist), side(direction) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
      const CQdrGePoint2d p = sources[i].at(1.0 - 1e-6);
      const CQdrGePoint2d v = sources[i].at(1.0);
      const CQdrGePoint2d q = sources[(i + 1) % sources.size()].at(1e-6);
      const double turn =
          std::remainder(std::atan2(q.y - v.y, q.x - v.x) - std::atan2(v.y - p.y, v.x - p.x),
                         2 * std::numbers::pi);
      corners.push_back(dist / std::cos(turn / 2));
    }
  }

  CQdrGePoint2d placeAt(std::size_t i, double t) const {
    const CQdrGePoint2d p = sources[i].at(t);
    const CQdrGePoint2d ahead = sources[i].at(t + 1e-6);
    const double size = std::hypot(ahead.x - p.x, ahead.y - p.y);
    const double reach = distance * side / size;
    return {p.x - (ahead.y - p.y) * reach, p.y + (ahead.x - p.x) * reach};
  }

  bool isBorder(std::size_t i, double t) const {
    const double radius = sources[i].radius();
    if (radius > 0.0 && radius <= distance) return false;
    const CQdrGePoint2d p = placeAt(i, t);
    for (std::size_t j = 0; j < sources.size(); ++j) {
      const CQdrGePoint2d v = sources[j].at(1.0);
      if (j != i && (j + 1) % sources.size() != i && std::hypot(p.x - v.x, p.y - v.y) < corners[j])
        return false;
    }
    return std::all_of(sources.begin(), sources.end(), [&](const SampledSegment& source) {
      return source.distanceTo(p) >= distance - 1e-4;
    });
  }

  std::vector<SampledSegment> sources;
  std::vector<double> corners;  // how far a sharp corner reaches from the end of each segment
  double distance;
  int side;
};

/// Places of the border that none of the pieces passes. Crossings within 0.05 of a vertex need not
/// cut: a place counts when the border goes on about it for a good while longer.
inline int countLostPlaces(const MovedSegments& moved, const OwnedPieces& pieces) {
  std::vector<SampledSegment> kept;
  for (const auto& piece : pieces) {
    for (const SampledSegment& segment : segmentsOfChain(*piece))
      kept.push_back(segment);
  }
  int lost = 0;
  for (std::size_t i = 0; i < moved.sources.size(); ++i) {
    for (int k = 2; k <= 38; ++k) {
      bool isInside = true;
      for (int step = -2; step <= 2; ++step)
        isInside = isInside && moved.isBorder(i, (k + step) / 40.0);
      if (!isInside) continue;
      const CQdrGePoint2d place = moved.placeAt(i, k / 40.0);
      const bool isPassed = std::any_of(kept.begin(), kept.end(), [&](const SampledSegment& s) {
        return s.distanceTo(place) < 1e-3;
      });
      lost += isPassed ? 0 : 1;
    }
  }
  return lost;
}
