// Edits that take a polyline apart: divided segments, single entities, parallel chains.

#include <cmath>
#include <memory>

#include "entities/internal/chain_explode.h"
#include "entities/internal/offset_copy.h"
#include "entities/polyline.h"
#include "entities/polyline_steps.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

namespace {

// A segment is not divided finer than this.
constexpr int kMostParts = 1'000'000;

// Places that divide a segment into equal parts, in the direction of travel.
std::vector<CQdrGePoint2d> dividingPoints(const CQdrGePolyline2d& chain, int segment, int parts) {
  std::vector<CQdrGePoint2d> points;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
  const bool isLine = chain.getLineSegAt(segment, line);
  if (!isLine) chain.getArcSegAt(segment, arc);
  const bool backward = chain.getBulgeAt(segment) < 0.0;
  points.reserve(static_cast<std::size_t>(parts));
  for (int k = 1; k < parts; ++k) {
    const double t = static_cast<double>(k) / parts;
    points.push_back(isLine ? line.pointAtParam(t) : arc.pointAtParam(backward ? 1.0 - t : t));
  }
  return points;
}

// The chain with the points put in behind vertex `segment`, which keeps the looks of its segment.
CQdrGePolyline2d withPoints(const CQdrGePolyline2d& chain, int segment,
                            const std::vector<CQdrGePoint2d>& points,
                            const qdr::VertexLooks& looks) {
  CQdrGePolyline2d result;
  result.setSize(chain.numVerts() + static_cast<int>(points.size()));
  const auto append = [&result](const CQdrGePoint2d& point, const qdr::VertexLooks& of) {
    result.appendVertex(point, of.bulge, of.startWidth, of.endWidth);
  };
  for (int i = 0; i < chain.numVerts(); ++i) {
    append(chain.points()[static_cast<std::size_t>(i)],
           i == segment ? looks : qdr::vertexLooks(chain, i));
    if (i != segment) continue;
    for (const CQdrGePoint2d& point : points)
      append(point, looks);
  }
  // The closing bulge is the chain's, not one that closing forms.
  const double lastBulge = result.getBulgeAt(result.numVerts() - 1);
  result.setClosed(chain.isClosed());
  result.setBulgeAt(result.numVerts() - 1, lastBulge);
  return result;
}

}  // namespace

// Each step finds its vertex behind the segment when it is taken back, the newest first; vertices
// of the closing segment stand at the end.
void CQdrDbPolyline::recordDivision(int segment, int count, double bulge) const {
  qdr::PolylineSteps steps(*this, m_polyline);
  const double former = GetBulgeAt(segment);
  if (former != bulge) steps.bulgeWillChange(segment, former);
  const bool closing = segment == NumVerts() - 1;
  for (int k = 0; k < count; ++k) {
    const int index = closing ? segment + 1 + k : segment + 1;
    steps.vertexWillBeAdded(index);
    steps.bulgeWillChange(index, 0.0);
  }
}

bool CQdrDbPolyline::DivideSegment(int parts, int segment, bool record) {
  const CQdrGePolyline2d::SegType type = SegType(segment);
  const bool isArc = type == CQdrGePolyline2d::kArcSeg;
  if (parts < 1 || parts > kMostParts) return false;
  if (!isArc && type != CQdrGePolyline2d::kLineSeg) return false;
  if (parts == 1) return true;

  qdr::VertexLooks looks = qdr::vertexLooks(m_polyline, segment);
  // Twice the sagitta over the chord of one part: the tangent of a quarter of its sweep.
  looks.bulge = isArc ? std::tan(std::atan(looks.bulge) / parts) : 0.0;
  const std::vector<CQdrGePoint2d> points = dividingPoints(m_polyline, segment, parts);
  if (record) recordDivision(segment, static_cast<int>(points.size()), looks.bulge);
  m_polyline = withPoints(m_polyline, segment, points, looks);
  setGripPoints();
  return true;
}

bool CQdrDbPolyline::Explode() {
  return qdr::explodeChain(*this, m_polyline);
}

int CQdrDbPolyline::Offset(const CQdrGePoint2d& side, std::vector<CQdrDbEntity*>& results,
                           double distance, bool both) {
  std::vector<void*> pieces;
  m_polyline.offset(side, distance, pieces, both);
  for (void* raw : pieces) {
    const std::unique_ptr<CQdrGePolyline2d> piece(static_cast<CQdrGePolyline2d*>(raw));
    auto parallel = std::make_unique<CQdrDbPolyline>(m_database);
    parallel->CopyEntProperties(*this);
    parallel->m_polyline = *piece;
    parallel->setGripPoints();
    results.push_back(parallel.release());
  }
  return static_cast<int>(results.size());
}

bool CQdrDbPolyline::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbPolyline::m_polyline, side, distance, result);
}
