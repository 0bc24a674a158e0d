// Trimming and extending: vertices beyond a cut go, the end vertex moves to it, and an arc that is
// cut gets the bulge of what is left.

#include <memory>

#include "entities/circle.h"
#include "entities/internal/polyline_segment.h"
#include "entities/internal/trim_scheme.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "entities/polyline_steps.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/tolerance.h"

namespace {

using qdr::PolylineSteps;
using qdr::SegmentEnd;

// From here on along the chain an edit takes the end, before it the start.
constexpr double kMiddle = 0.5;

// A closed chain becomes an open one that ends where it starts. The last vertex keeps the bulge of
// the closing segment, which now leads to the added vertex.
void openAtStart(PolylineSteps& steps, CQdrGePolyline2d& chain) {
  steps.willBeOpened();
  chain.setClosed(false);
  steps.vertexWillBeAdded(chain.numVerts());
  chain.appendVertex(CQdrGePoint2d(chain.points().front()));
}

void moveSegmentEnd(PolylineSteps& steps, CQdrGePolyline2d& chain, int segment, SegmentEnd end,
                    const CQdrGePoint2d& point) {
  if (chain.segType(segment) == CQdrGePolyline2d::kArcSeg) {
    const double bulge = qdr::bulgeUpTo(chain, segment, end, point);
    steps.bulgeWillChange(segment, chain.getBulgeAt(segment));
    chain.setBulgeAt(segment, bulge);
  }
  const int vertex = end == SegmentEnd::kStart ? segment : segment + 1;
  steps.pointWillChange(vertex);
  chain.setPointAt(vertex, point);
}

void cutStart(PolylineSteps& steps, CQdrGePolyline2d& chain,
              const qdr::CrossingMap::value_type& cut) {
  int segment = -1;
  chain.segParamAtParam(cut.first, segment);
  if (segment < 0) return;
  // A cut at a vertex leaves nothing of the segment before it.
  CQdrGePoint2d next;
  if (segment + 2 < chain.numVerts() && chain.getPointAt(segment + 1, next) &&
      next.isEqualTo(cut.second, qdr::kCoincidentTolerance))
    ++segment;
  for (int i = 0; i < segment; ++i)
    steps.vertexWillBeRemoved(i, 0);
  if (segment > 0) chain.removeVertexAt(0, segment - 1);
  moveSegmentEnd(steps, chain, 0, SegmentEnd::kStart, cut.second);
}

void cutEnd(PolylineSteps& steps, CQdrGePolyline2d& chain,
            const qdr::CrossingMap::value_type& cut) {
  int segment = -1;
  chain.segParamAtParam(cut.first, segment);
  if (segment < 0) return;
  const int last = chain.numVerts() - 1;
  for (int i = last; i > segment + 1; --i)
    steps.vertexWillBeRemoved(i, i);
  if (last > segment + 1) chain.removeVertexAt(segment + 2, last);
  moveSegmentEnd(steps, chain, segment, SegmentEnd::kEnd, cut.second);
}

// Where the carrier of an end segment meets the boundaries beyond that end.
std::vector<CQdrGePoint2d> crossingsBeyond(const CQdrGePolyline2d& chain, int segment,
                                           SegmentEnd end,
                                           const std::vector<CQdrDbEntity*>& boundaries,
                                           double tol) {
  CQdrGeCircArc2d arc;
  if (chain.getArcSegAt(segment, arc)) {
    CQdrDbCircle circle(arc.center(), arc.radius());
    return qdr::boundaryPoints(circle, boundaries, CQdrGeEntity2d::kExtendNone, tol);
  }
  CQdrGeLine2d line;
  if (!chain.getLineSegAt(segment, line)) return {};
  CQdrDbLine carrier(line.startPoint(), line.endPoint());
  std::vector<CQdrGePoint2d> points =
      qdr::boundaryPoints(carrier, boundaries, CQdrGeEntity2d::kExtendThis, tol);
  const CQdrGePoint2d from = end == SegmentEnd::kEnd ? line.endPoint() : line.startPoint();
  const CQdrGeVector2d outward = end == SegmentEnd::kEnd ? line.direction() : -line.direction();
  std::erase_if(points, [&](const CQdrGePoint2d& point) {
    return !((point - from).dotProduct(outward) > 0.0);
  });
  return points;
}

}  // namespace

std::map<double, CQdrGePoint2d> CQdrDbPolyline::crossingsWith(
    const std::vector<CQdrDbEntity*>& boundaries, double tol) {
  std::map<double, CQdrGePoint2d> crossings;
  int count = 0;
  for (CQdrDbEntity* boundary : boundaries)
    if (boundary) intersectWith(*boundary, count, crossings, CQdrGeEntity2d::kExtendNone, tol);
  return crossings;
}

CQdrDbEntity* CQdrDbPolyline::Trim(const CQdrGePoint2d& pick,
                                   std::vector<CQdrDbEntity*>& boundaries, double tol) {
  const qdr::TrimCut cut = qdr::chooseCut(*this, crossingsWith(boundaries, tol), pick);
  if (cut.part == qdr::TrimPart::kNothing) return nullptr;

  PolylineSteps steps(*this, m_polyline);
  if (IsClosed()) openAtStart(steps, m_polyline);
  std::unique_ptr<CQdrDbPolyline> rest;
  if (cut.part == qdr::TrimPart::kMiddle) {
    rest = std::make_unique<CQdrDbPolyline>(*this);
    PolylineSteps noSteps(*rest, rest->m_polyline);
    cutStart(noSteps, rest->m_polyline, cut.after);
    rest->setGripPoints();
  }
  if (cut.part == qdr::TrimPart::kStart)
    cutStart(steps, m_polyline, cut.after);
  else
    cutEnd(steps, m_polyline, cut.before);
  setGripPoints();
  return rest.release();
}

bool CQdrDbPolyline::Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                            double tol) {
  if (IsClosed() || NumVerts() < 2) return false;
  const bool atEnd = qdr::paramOfPick(*this, pick) >= kMiddle;
  const int segment = atEnd ? NumVerts() - 2 : 0;
  const SegmentEnd end = atEnd ? SegmentEnd::kEnd : SegmentEnd::kStart;
  const bool isArc = SegType(segment) == CQdrGePolyline2d::kArcSeg;
  qdr::CrossingMap byDistance;
  for (const CQdrGePoint2d& point : crossingsBeyond(m_polyline, segment, end, boundaries, tol)) {
    // An arc that came round to its own other end would have no bulge.
    const bool fits = !isArc || qdr::bulgeUpTo(m_polyline, segment, end, point) != 0.0;
    if (fits && isOn(point, tol) == 0) byDistance[pick.distanceTo(point)] = point;
  }
  if (byDistance.empty()) return false;

  PolylineSteps steps(*this, m_polyline);
  moveSegmentEnd(steps, m_polyline, segment, end, byDistance.begin()->second);
  setGripPoints();
  return true;
}
