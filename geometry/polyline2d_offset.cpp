// Offsetting: both sides are offset raw, the wanted one is cut where it crosses itself and the
// other, the parts that keep the distance stay, and what stays is chained.

#include <algorithm>
#include <cmath>
#include <memory>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/construction.h"
#include "geometry/internal/offset_chains.h"
#include "geometry/internal/offset_slices.h"
#include "geometry/internal/raw_offset.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

using namespace qdr;

namespace {

std::vector<Vec> toVecs(const std::vector<CQdrGePoint2d>& points) {
  std::vector<Vec> vecs;
  vecs.reserve(points.size());
  for (const CQdrGePoint2d& point : points)
    vecs.push_back(toVec(point));
  return vecs;
}

VertexChain toChain(const std::vector<CQdrGePoint2d>& points, const std::vector<double>& bulges) {
  return {toVecs(points), bulges};
}

void fromChain(VertexChain&& chain, std::vector<CQdrGePoint2d>& points,
               std::vector<double>& bulges) {
  points.clear();
  points.reserve(chain.size());
  for (const Vec& point : chain.points)
    points.push_back(toPoint(point));
  bulges = std::move(chain.bulges);
}

bool isFinite(const VertexChain& chain) {
  const auto isPointFinite = [](const Vec& p) { return std::isfinite(p.x) && std::isfinite(p.y); };
  const auto isNumber = [](double b) { return std::isfinite(b); };
  return std::all_of(chain.points.begin(), chain.points.end(), isPointFinite) &&
         std::all_of(chain.bulges.begin(), chain.bulges.end(), isNumber);
}

/// Hands a chain out as a polyline of the caller.
void release(const VertexChain& chain, std::vector<void*>& pieces) {
  auto polyline = std::make_unique<CQdrGePolyline2d>();
  polyline->setSize(static_cast<int>(chain.size()));
  for (std::size_t i = 0; i < chain.size(); ++i)
    polyline->appendVertex(toPoint(chain.points[i]), chain.bulges[i]);
  pieces.push_back(polyline.release());
}

int releaseAll(const std::vector<VertexChain>& chains, std::vector<void*>& pieces) {
  for (const VertexChain& chain : chains)
    release(chain, pieces);
  return static_cast<int>(chains.size());
}

/// True when `side` lies left of the counter-clockwise travel of the circle.
bool isLeftOfCircle(const CQdrGeCircArc2d& arc, const CQdrGePoint2d& side) {
  const CQdrGeCircArc2d circle(arc.center(), arc.radius());
  CQdrGePoint2d hit, other;
  int count = 0;
  circle.intersectWith(CQdrGeLine2d(arc.center(), side), count, hit, other,
                       CQdrGeEntity2d::kExtendBoth, kCurveTolerance);
  if (count == 2 && side.distanceTo(other) < side.distanceTo(hit)) hit = other;
  const double param = circle.center().angleTo(hit) / kTwoPi;
  return signedArea(side, hit, circle.pointAtParam(param + kDirectionProbe)) > 0.0;
}

bool isLeftOfLine(const CQdrGeLine2d& line, const CQdrGePoint2d& side) {
  const auto foot = footOnLine(line, side);
  return foot && signedArea(side, *foot, line.endPoint()) > 0.0;
}

}  // namespace

int CQdrGePolyline2d::getoffsetDirection(const CQdrGePoint2d& side, double) const {
  int segment = -1;
  closestPointTo(side, segment, kCurveTolerance);
  CQdrGeLine2d line;
  if (getLineSegAt(segment, line)) return isLeftOfLine(line, side) ? 1 : -1;
  CQdrGeCircArc2d arc;
  if (!getArcSegAt(segment, arc)) return -1;
  const bool runsBackward = getBulgeAt(segment) < 0.0;
  return isLeftOfCircle(arc, side) != runsBackward ? 1 : -1;
}

void CQdrGePolyline2d::checkLocalSelfIntersect(std::vector<CQdrGePoint2d>& points,
                                               std::vector<double>& bulges, double dist,
                                               int direction) const {
  const VertexChain merged = withoutNearVertices(toChain(points, bulges));
  fromChain(preparedForOffset(merged, {dist, direction, m_closed}), points, bulges);
}

void CQdrGePolyline2d::getOffsetPoly(std::vector<CQdrGePoint2d>& points,
                                     std::vector<double>& bulges, double dist,
                                     int direction) const {
  fromChain(rawOffset(toChain(points, bulges), {dist, direction, m_closed}), points, bulges);
}

int CQdrGePolyline2d::clipOffsetPoly(const std::vector<CQdrGePoint2d>& points,
                                     const std::vector<double>& bulges,
                                     const std::vector<CQdrGePoint2d>& otherPoints,
                                     const std::vector<double>& otherBulges, double dist,
                                     std::vector<void*>& pieces) const {
  const std::vector<Vec> source = toVecs(m_points);
  const VertexChain raw = toChain(points, bulges);
  const VertexChain other = toChain(otherPoints, otherBulges);
  return releaseAll(ClippedOffset({source, m_bulges, m_closed, raw, other, dist}).parts(), pieces);
}

namespace {

using OffsetForm = std::vector<VertexChain> (*)(const VertexChain& source,
                                                const OffsetRequest& request, bool both);

/// The offset toward `side` in one form or the other; nothing of what is no curve.
std::vector<VertexChain> offsetAs(OffsetForm form, const CQdrGePolyline2d& polyline,
                                  const CQdrGePoint2d& side, double dist, bool both) {
  const VertexChain source = toChain(polyline.points(), polyline.bulges());
  if (source.size() < 2 || !isFinite(source) || !std::isfinite(dist)) return {};
  // A negative distance leads to the other side.
  OffsetRequest request{std::abs(dist), polyline.getoffsetDirection(side, dist),
                        polyline.isClosed()};
  if (dist < 0.0) request.direction = -request.direction;
  return form(source, request, both);
}

}  // namespace

bool CQdrGePolyline2d::getOffset(const CQdrGePoint2d& side, double dist, std::vector<void*>& pieces,
                                 bool both) const {
  pieces.clear();
  return releaseAll(offsetAs(offsetParts, *this, side, dist, both), pieces) > 0;
}

int CQdrGePolyline2d::offset(const CQdrGePoint2d& side, double dist, std::vector<void*>& pieces,
                             bool both) const {
  releaseAll(offsetAs(offsetChains, *this, side, dist, both), pieces);
  return static_cast<int>(pieces.size());
}

int CQdrGePolyline2d::getOffsetPolylines(const CQdrGePoint2d& side, double dist,
                                         std::vector<void*>& pieces, bool both) const {
  return offset(side, dist, pieces, both);
}

bool CQdrGePolyline2d::offset(const CQdrGePoint2d& side, double dist) {
  std::vector<VertexChain> chains = offsetAs(offsetChains, *this, side, dist, false);
  if (chains.empty()) return false;
  const auto longest = std::max_element(
      chains.begin(), chains.end(),
      [](const VertexChain& a, const VertexChain& b) { return a.size() < b.size(); });
  fromChain(std::move(*longest), m_points, m_bulges);
  m_startWidths.assign(m_points.size(), -1.0);
  m_endWidths.assign(m_points.size(), -1.0);
  return true;
}
