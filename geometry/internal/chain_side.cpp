#include "geometry/internal/chain_side.h"

#include "geometry/construction.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"

bool qdr::isLeftOfChain(const CQdrGePolyline2d& chain, const CQdrGePoint2d& side) {
  int nearest = -1;
  chain.closestPointTo(side, nearest, kCurveTolerance);
  CQdrGeLine2d line;
  if (chain.getLineSegAt(nearest, line)) {
    return signedArea(line.startPoint(), line.endPoint(), side) > 0.0;
  }
  return nearest >= 0 && chain.getoffsetDirection(side, 0.0) > 0;
}

CQdrGePoint2d qdr::placeBeside(const CQdrGePolyline2d& chain, int i, bool left) {
  CQdrGeLine2d line;
  chain.getLineSegAt(i, line);
  const double reach = left ? kJoinTolerance : -kJoinTolerance;
  return line.midPoint() + line.direction().perpVector() * reach;
}

int qdr::firstStraightSegment(const CQdrGePolyline2d& chain) {
  for (int i = 0; i < chain.numVerts(); ++i) {
    if (chain.segType(i) == CQdrGePolyline2d::kLineSeg) return i;
  }
  return -1;
}
