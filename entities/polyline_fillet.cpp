// Rounding corners off.

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/internal/corner_fillet.h"
#include "entities/internal/polyline_segment.h"
#include "entities/internal/trim_scheme.h"
#include "entities/polyline.h"
#include "entities/polyline_steps.h"

namespace {

using qdr::CornerFillet;
using qdr::CornerLeg;
using qdr::PolylineSteps;
using qdr::SegmentEnd;

// Up to here along a segment the corner at its start is meant.
constexpr double kMiddle = 0.5;

// A place near the start of a segment.
constexpr double kNearStart = 0.1;

CQdrGePoint2d endOf(const CQdrGeLine2d& line, bool start) {
  return start ? line.startPoint() : line.endPoint();
}

CQdrGePoint2d endOf(const CQdrGeCircArc2d& arc, bool start) {
  return start ? arc.startPoint() : arc.endPoint();
}

// Looks for the corner first where the end of the first curve meets the start of the second.
template <class First, class Second>
bool isFilletable(const First& first, const Second& second, double radius, CQdrGeCircArc2d& fillet,
                  int& side) {
  side = 1;
  for (const bool firstFromStart : {false, true}) {
    for (const bool secondFromStart : {true, false}) {
      if (!(endOf(first, firstFromStart) == endOf(second, secondFromStart))) continue;
      const auto found = qdr::filletCorner(qdr::cornerLeg(first, firstFromStart),
                                           qdr::cornerLeg(second, secondFromStart), radius);
      if (!found) return false;
      fillet = found->arc;
      side = found->side;
      return true;
    }
  }
  return false;
}

// The leg that a segment of a chain makes at its start or end; none for a segment of no length.
std::optional<CornerLeg> legOf(const CQdrGePolyline2d& chain, int segment, SegmentEnd corner) {
  const bool atStart = corner == SegmentEnd::kStart;
  CQdrGeLine2d line;
  if (chain.getLineSegAt(segment, line)) return qdr::cornerLeg(line, atStart);
  CQdrGeCircArc2d arc;
  if (!chain.getArcSegAt(segment, arc)) return std::nullopt;
  const bool forward = chain.getBulgeAt(segment) > 0.0;
  return qdr::cornerLeg(arc, atStart == forward);
}

void setBulge(PolylineSteps& steps, CQdrGePolyline2d& chain, int i, double bulge) {
  steps.bulgeWillChange(i, chain.getBulgeAt(i));
  chain.setBulgeAt(i, bulge);
}

// Puts a fillet in behind segment `first`: a vertex where it starts, and the corner moves to where
// it ends.
void insertFillet(PolylineSteps& steps, CQdrGePolyline2d& chain, int first,
                  const CornerFillet& fillet) {
  const int second = (first + 1) % chain.numVerts();
  const CQdrGePoint2d start = qdr::toPoint(fillet.onFirst);
  const CQdrGePoint2d end = qdr::toPoint(fillet.onSecond);
  const bool firstIsArc = chain.segType(first) == CQdrGePolyline2d::kArcSeg;
  const bool secondIsArc = chain.segType(second) == CQdrGePolyline2d::kArcSeg;
  const double firstBulge = qdr::bulgeUpTo(chain, first, SegmentEnd::kEnd, start);
  const double secondBulge = qdr::bulgeUpTo(chain, second, SegmentEnd::kStart, end);

  const int added = first + 1;
  const int following = second == 0 ? 0 : added + 1;
  steps.vertexWillBeAdded(added);
  chain.addVertexAt(added, start);
  setBulge(steps, chain, added, fillet.side * fillet.arc.bulge());
  steps.pointWillChange(following);
  chain.setPointAt(following, end);
  if (firstIsArc) setBulge(steps, chain, first, firstBulge);
  if (secondIsArc) setBulge(steps, chain, following, secondBulge);
}

void addMark(const CQdrDbPolyline& polyline, qdr::UndoCode mark) {
  tagUndoEditEntity record = qdr::undoRecord(polyline, mark);
  record.continued = mark == qdr::kUndoGroupBegin ? 0 : 1;
  qdr::addUndo(polyline, record);
}

}  // namespace

bool CQdrDbPolyline::IsFilletable(const CQdrGeLine2d& first, const CQdrGeLine2d& second,
                                  double radius, CQdrGeCircArc2d& fillet, int& side) {
  return isFilletable(first, second, radius, fillet, side);
}

bool CQdrDbPolyline::IsFilletable(const CQdrGeLine2d& first, const CQdrGeCircArc2d& second,
                                  double radius, CQdrGeCircArc2d& fillet, int& side) {
  return isFilletable(first, second, radius, fillet, side);
}

bool CQdrDbPolyline::IsFilletable(const CQdrGeCircArc2d& first, const CQdrGeCircArc2d& second,
                                  double radius, CQdrGeCircArc2d& fillet, int& side) {
  return isFilletable(first, second, radius, fillet, side);
}

bool CQdrDbPolyline::filletCorner(int segment, double place, double radius) {
  const int count = NumVerts();
  if (segment < 0 || segment >= count) return false;
  int first = place <= kMiddle ? segment - 1 : segment;
  if (first < 0 && IsClosed()) first = count - 1;
  const auto firstLeg = legOf(m_polyline, first, SegmentEnd::kEnd);
  const auto secondLeg = legOf(m_polyline, (first + 1) % count, SegmentEnd::kStart);
  if (!firstLeg || !secondLeg) return false;
  const auto fillet = qdr::filletCorner(*firstLeg, *secondLeg, radius);
  if (!fillet) return false;

  PolylineSteps steps(*this, m_polyline);
  insertFillet(steps, m_polyline, first, *fillet);
  return true;
}

bool CQdrDbPolyline::Fillet(int segment, double place, double radius) {
  return changed(filletCorner(segment, place, radius));
}

// From the last corner down, so that the vertices put in leave the lower indices alone.
int CQdrDbPolyline::Fillet(double radius) {
  addMark(*this, qdr::kUndoGroupBegin);
  int filleted = 0;
  const int lowest = IsClosed() ? 0 : 1;
  for (int i = NumVerts() - 1; i >= lowest; --i)
    if (filletCorner(i, kNearStart, radius)) ++filleted;
  addMark(*this, qdr::kUndoGroupEnd);
  changed(filleted > 0);
  return filleted;
}
