// Commands of the grip menu on the vertices and segments of a polyline.

#include "entities/polyline.h"
#include "entities/polyline_steps.h"
#include "interaction/trackers/grip_menu.h"
#include "interaction/trackers/polyline_grips.h"
#include "interaction/trackers/polyline_tracker.h"

namespace {

constexpr int kLeastVertices = 2;
constexpr double kQuarterCircle = 0.41421356237309503;  // tan(pi / 8)

}  // namespace

void CQdrPolylineTracker::runOwnCommand(CWnd* window, int handle, unsigned command) {
  if (classTypeOf(m_entity) != QdrDb::eClassPolyline) return;
  auto& polyline = static_cast<CQdrDbPolyline&>(*m_entity);
  switch (command) {
    case qdr::kGripChangeStart:
      changeStart(polyline, handle);
      break;
    case qdr::kGripReverse:
      recordStep(qdr::undoStep(qdr::kUndoReversed, {}));
      editEntity([&] { polyline.Reverse(); });
      break;
    case qdr::kGripInsertVertex:
      insertVertex(polyline, handle);
      break;
    case qdr::kGripDeleteVertex:
      removeVertex(polyline, handle);
      break;
    case qdr::kGripLineArc:
      flipSegment(polyline, handle);
      break;
    default:
      ShapeTracker::runOwnCommand(window, handle, command);
      return;
  }
  if (m_entity) m_entity->OnCurveChanged();
}

// A middle of an arc is no vertex to begin with.
void CQdrPolylineTracker::changeStart(CQdrDbPolyline& polyline, int handle) {
  const qdr::GripPlace place = qdr::placeOf(polyline, handle);
  if (place.vertex < 1 || place.isMiddle) return;
  editEntity([&] {
    if (!polyline.ChangeStart(place.vertex)) return;
    tagUndoEditEntity step = qdr::undoStep(qdr::kUndoStartChanged, {});
    step.index = place.vertex;
    recordStep(step);
  });
}

// Behind the vertex of the grip, so that the segment there becomes two.
void CQdrPolylineTracker::insertVertex(CQdrDbPolyline& polyline, int handle) {
  const qdr::GripPlace place = qdr::placeOf(polyline, handle);
  CQdrGePoint2d point;
  if (place.vertex < 0 || !askPoint(handle, point)) return;
  const int index = place.vertex + 1;
  if (index > polyline.NumVerts()) return;
  qdr::PolylineSteps(polyline, polyline.geometry()).vertexWillBeAdded(index);
  editEntity(
      [&] { polyline.AddVertexAt(static_cast<unsigned long>(index), point, 0.0, -1.0, -1.0); });
}

void CQdrPolylineTracker::removeVertex(CQdrDbPolyline& polyline, int handle) {
  const qdr::GripPlace place = qdr::placeOf(polyline, handle);
  if (place.vertex < 0 || place.isMiddle || polyline.NumVerts() <= kLeastVertices) return;
  qdr::PolylineSteps(polyline, polyline.geometry()).vertexWillBeRemoved(place.vertex, place.vertex);
  editEntity([&] { polyline.RemoveVertexAt(place.vertex); });
}

// The last vertex of an open polyline begins no segment.
void CQdrPolylineTracker::flipSegment(CQdrDbPolyline& polyline, int handle) {
  const int vertex = qdr::placeOf(polyline, handle).vertex;
  const CQdrGePolyline2d::SegType type = polyline.SegType(vertex);
  const bool isArc = type == CQdrGePolyline2d::kArcSeg;
  if (!isArc && type != CQdrGePolyline2d::kLineSeg) return;
  qdr::PolylineSteps(polyline, polyline.geometry())
      .bulgeWillChange(vertex, polyline.GetBulgeAt(vertex));
  editEntity([&] { polyline.SetBulgeAt(vertex, isArc ? 0.0 : kQuarterCircle); });
}
