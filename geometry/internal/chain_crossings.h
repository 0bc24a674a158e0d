#pragma once

#include <cstddef>
#include <vector>

#include "geometry/polyline2d.h"

namespace qdr {

/// A crossing on a chain and the segment of the chain that it was found on.
struct ChainHit {
  int segment = -1;
  CQdrGePoint2d point;
};

/// Crossings of every segment of `chain`, in the order of the segments. A crossing at a shared
/// vertex appears once for each of its segments. The mode is seen from `chain`. Where the mode does
/// not extend the chain, segments that are certainly clear of the curve cost only a look at each
/// vertex.
std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGeLine2d& line,
                               CQdrGeEntity2d::Intersect mode, double tol);
std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGeCircArc2d& arc,
                               CQdrGeEntity2d::Intersect mode, double tol);

/// Crossings of two chains that are looked for at most, so that memory stays bounded: there may be
/// as many as pairs of segments.
inline constexpr std::size_t kMostHits = std::size_t{1} << 24;

/// For each segment of `chain` the crossings along `other`, of which each is dropped that lies
/// within 0.001 of the one before it on the same segment. With many vertices and no extension the
/// pairs come from an index over boxes; answers and their order are those of the loop over pairs.
/// Of more than `most` the first ones.
std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGePolyline2d& other,
                               CQdrGeEntity2d::Intersect mode, double tol,
                               std::size_t most = kMostHits);

/// Number of segment pairs from which the index is worth its building.
inline constexpr std::size_t kIndexedPairs = 256;

/// The same by plain loops over segments and over pairs.
std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGeLine2d& line,
                                      CQdrGeEntity2d::Intersect mode, double tol);
std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGeCircArc2d& arc,
                                      CQdrGeEntity2d::Intersect mode, double tol);
std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGePolyline2d& other,
                                      CQdrGeEntity2d::Intersect mode, double tol,
                                      std::size_t most = kMostHits);

}  // namespace qdr
