#include "geometry/construction.h"

#include <cmath>

#include "geometry/line2d.h"
#include "geometry/tolerance.h"

namespace {

double cross(const CQdrGeVector2d& a, const CQdrGeVector2d& b) {
  return a.x * b.y - a.y * b.x;
}

}  // namespace

namespace qdr {

double signedArea(const CQdrGePoint2d& p, const CQdrGePoint2d& q, const CQdrGePoint2d& r) {
  return cross(q - p, r - p) / 2.0;
}

std::optional<CQdrGePoint2d> bisectorCenter(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                                            const CQdrGePoint2d& p3) {
  const CQdrGeVector2d a = p1 - p2;
  const CQdrGeVector2d b = p3 - p2;
  const double turn = cross(a, b);
  if (!(std::abs(turn) > kCollinearRatio * a.length() * b.length())) return std::nullopt;
  // Cramer's rule on c . a = a . a / 2 and c . b = b . b / 2, c being the center as seen from p2.
  const double halfA = a.lengthSqrd() / 2.0;
  const double halfB = b.lengthSqrd() / 2.0;
  return p2 + CQdrGeVector2d(halfA * b.y - halfB * a.y, halfB * a.x - halfA * b.x) / turn;
}

std::optional<CQdrGePoint2d> footOnLine(const CQdrGeLine2d& line, const CQdrGePoint2d& point) {
  const CQdrGePoint2d start = line.startPoint();
  const CQdrGeVector2d along = line.endPoint() - start;
  if (std::abs(along.x) < kSegmentTolerance && std::abs(along.y) < kSegmentTolerance)
    return std::nullopt;
  return start + along * ((point - start).dotProduct(along) / along.lengthSqrd());
}

}  // namespace qdr
