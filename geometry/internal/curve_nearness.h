#pragma once

#include "geometry/internal/travel_segment.h"

namespace qdr {

/// Square of the distance from a place to the nearest place of the segment.
double distanceSqrdTo(const TravelSegment& segment, const Vec& p);

/// A place of one segment and how near, squared, another comes to it.
struct NearPlace {
  double distanceSqrd;
  Vec place;
};

/// The place of `a` that is nearest to `b`, in closed form: where they meet, an end of either, or
/// on the common normal.
NearPlace nearestPlace(const TravelSegment& a, const TravelSegment& b);

/// Whether a place is nearer to the segment than `limit`, which is not negative; told without
/// roots.
bool isPlaceNearer(const TravelSegment& segment, const Vec& p, double limit);

/// Whether some place of `a` is nearer to `b` than `limit`, which is not negative.
bool isNearer(const TravelSegment& a, const TravelSegment& b, double limit);

}  // namespace qdr
