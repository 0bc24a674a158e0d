#include "interaction/trackers/polyline_tracker.h"

#include <algorithm>
#include <cmath>

#include "entities/arc.h"
#include "entities/display_units.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "geometry/angle.h"
#include "interaction/trackers/arc_tracker.h"
#include "interaction/trackers/polyline_grips.h"

namespace {

constexpr unsigned kMostSides = 1'000'000;

// Bulge of the segment that runs from `start` through `middle` to `end`; 0 when the three lie on a
// line. The angle at the middle and half the sweep make two right ones.
double bulgeThrough(const CQdrGePoint2d& start, const CQdrGePoint2d& middle,
                    const CQdrGePoint2d& end) {
  const CQdrGeVector2d back = start - middle;
  const CQdrGeVector2d ahead = end - middle;
  const double cross = back.x * ahead.y - back.y * ahead.x;
  if (cross == 0.0) return 0.0;
  const double half = std::atan2(std::abs(cross), -back.dotProduct(ahead));
  return std::copysign(std::tan(half / 2.0), -cross);
}

void bendThrough(CQdrDbPolyline& polyline, int vertex, const CQdrGePoint2d& mouse) {
  CQdrGePoint2d start;
  CQdrGePoint2d end;
  const int next = vertex + 1 < polyline.NumVerts() ? vertex + 1 : 0;
  if (!polyline.GetPointAt(vertex, start) || !polyline.GetPointAt(next, end)) return;
  polyline.SetBulgeAt(vertex, bulgeThrough(start, mouse, end));
}

std::vector<CQdrGePoint2d> polygonOnEdge(const CQdrGePoint2d& start, const CQdrGePoint2d& end,
                                         unsigned sides) {
  std::vector<CQdrGePoint2d> corners{start};
  CQdrGeVector2d edge = end - start;
  while (corners.size() < sides) {
    corners.push_back(corners.back() + edge);
    edge.rotateBy(qdr::kTwoPi / sides);
  }
  return corners;
}

std::vector<CQdrGePoint2d> polygonAround(const CQdrGePoint2d& center, const CQdrGeVector2d& corner,
                                         unsigned sides) {
  std::vector<CQdrGePoint2d> corners;
  for (unsigned k = 0; k < sides; ++k) {
    CQdrGeVector2d reach = corner;
    corners.push_back(center + reach.rotateBy(k * qdr::kTwoPi / sides));
  }
  return corners;
}

// From the middle of a side to its end; fewer than three sides enclose nothing.
CQdrGeVector2d cornerBeside(CQdrGeVector2d toSide, unsigned sides) {
  if (sides < 3) return toSide;
  const double half = qdr::kTwoPi / sides / 2.0;
  return toSide.rotateBy(half) * (1.0 / std::cos(half));
}

}  // namespace

CQdrPolylineTracker::CQdrPolylineTracker(CWnd* window, CQdrDbEntity* polyline,
                                         QdrDb::TransFormOption option, bool create)
    : ShapeTracker(eTrackPolyline, window, polyline, option, create) {
  showGrips();
}

void CQdrPolylineTracker::CheckCreateOption(CQdrDbEntity* entity, CPoint& point) {
  const CQdrGePoint2d mouse = qdr::toWorld(point);
  switch (classTypeOf(entity)) {
    case QdrDb::eClassPolyline:
      makePolygon(static_cast<CQdrDbPolyline&>(*entity), mouse);
      break;
    case QdrDb::eClassLine:
      static_cast<CQdrDbLine*>(entity)->setEndPoint(mouse);
      break;
    case QdrDb::eClassArc:
      if (m_option == eTangent) {
        qdr::leaveAlongTangent(static_cast<CQdrDbArc&>(*entity), m_prevEntity, startWorld(), mouse);
      } else {
        static_cast<CQdrDbArc*>(entity)->set(startWorld(), m_arcPoint, mouse);
      }
      break;
    default:
      break;
  }
}

void CQdrPolylineTracker::makePolygon(CQdrDbPolyline& polygon, const CQdrGePoint2d& mouse) const {
  const CQdrGePoint2d start = startWorld();
  const CQdrGeVector2d reach = mouse - start;
  std::vector<CQdrGePoint2d> corners;
  if (m_option >= ePolygonCircumscribed) {
    const unsigned sides = std::min(m_option - ePolygonCircumscribed, kMostSides);
    corners = polygonAround(start, cornerBeside(reach, std::max(sides, 1U)), sides);
  } else if (m_option >= ePolygonInscribed) {
    corners = polygonAround(start, reach, m_option - ePolygonInscribed);
  } else if (m_option > ePolygonByEdge) {
    corners = polygonOnEdge(start, mouse, m_option - ePolygonByEdge);
  }
  if (corners.empty()) return;
  polygon.SetVertexes(&corners);
  polygon.SetClosed(true);
}

std::vector<bool> CQdrPolylineTracker::diamonds() const {
  std::vector<bool> middles;
  if (classTypeOf(m_entity) != QdrDb::eClassPolyline) return middles;
  const auto& polyline = static_cast<const CQdrDbPolyline&>(*m_entity);
  for (int vertex = 0; vertex < polyline.NumVerts(); ++vertex) {
    middles.push_back(false);
    if (qdr::hasMiddle(polyline, vertex)) middles.push_back(true);
  }
  return middles;
}

void CQdrPolylineTracker::dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) {
  auto& polyline = static_cast<CQdrDbPolyline&>(entity);
  const qdr::GripPlace place = qdr::placeOf(polyline, grip);
  if (place.isMiddle) {
    bendThrough(polyline, place.vertex, mouse);
  } else {
    polyline.SetPointAt(place.vertex, mouse);
  }
}

void CQdrPolylineTracker::recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) {
  const auto& polyline = static_cast<const CQdrDbPolyline&>(entity);
  const qdr::GripPlace place = qdr::placeOf(polyline, grip);
  if (place.vertex < 0) return;
  tagUndoEditEntity step = qdr::undoStep(qdr::kUndoVertex, {});
  if (place.isMiddle) {
    step = qdr::undoStep(qdr::kUndoBulge, QdrXY(polyline.GetBulgeAt(place.vertex), 0.0));
  } else {
    polyline.GetPointAt(place.vertex, step.point);
  }
  step.index = place.vertex;
  steps.push_back(step);
}
