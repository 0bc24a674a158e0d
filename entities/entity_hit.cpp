#include <algorithm>

#include "entities/display_units.h"
#include "entities/entity.h"
#include "geometry/entity2d.h"
#include "geometry/line2d.h"

namespace {

// Half the side of a grip box and its side, in device pixels.
constexpr double kGripHalf = 5.0;
constexpr double kGripSide = 10.0;

// True when the ray from `point` to +x passes the edge. The lower end of an edge does not belong
// to it and the upper one does, so a ray through a vertex counts once.
bool rayPassesEdge(const CQdrGePoint2d& a, const CQdrGePoint2d& b, const CQdrGePoint2d& point) {
  if (!(std::min(a.y, b.y) < point.y && std::max(a.y, b.y) >= point.y)) return false;
  if (std::max(a.x, b.x) < point.x || a.y == b.y) return false;
  return a.x == b.x || (point.y - a.y) * (b.x - a.x) / (b.y - a.y) + a.x >= point.x;
}

// The box is built in whole drawing units, which makes it coarse at small scales; picking relies
// on exactly this form.
CRect gripBox(const CQdrGePoint2d& grip, double scale) {
  const LONG left = qdr::truncToInt(grip.x - qdr::toWorld(kGripHalf * scale));
  const LONG top = qdr::truncToInt(grip.y - qdr::toWorld(kGripHalf * scale));
  return {left, top, qdr::truncToInt(left + qdr::toWorld(kGripSide * scale)),
          qdr::truncToInt(top + qdr::toWorld(kGripSide * scale))};
}

}  // namespace

bool CQdrDbEntity::IsInsidePolygon(const CQdrGePoint2d* vertices, const CQdrGePoint2d& point,
                                   int count) {
  bool inside = false;
  for (int i = 1; i <= count; ++i)
    if (rayPassesEdge(vertices[i - 1], vertices[i % count], point)) inside = !inside;
  return inside;
}

bool CQdrDbEntity::IsInsideRect(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2,
                                const CQdrGePoint2d& point) {
  const CQdrGePoint2d polygon[] = {
      corner1, {corner2.x, corner1.y}, corner2, {corner1.x, corner2.y}};
  return IsInsidePolygon(polygon, point, 4);
}

bool CQdrDbEntity::IntersectWith(CQdrGeLine2d& line, double tol) {
  int count = 0;
  std::vector<CQdrGePoint2d> points;
  return intersectWith(line, count, points, CQdrGeEntity2d::kExtendNone, tol);
}

bool CQdrDbEntity::IsCrossWidth(CQdrGeLine2d& line, double tol) {
  int count = 0;
  std::vector<CQdrGePoint2d> points;
  if (!intersectWith(line, count, points, CQdrGeEntity2d::kExtendNone, tol)) return false;
  return std::any_of(points.begin(), points.end(), [&](const CQdrGePoint2d& point) {
    return point.distanceTo(line.startPoint()) > tol || point.distanceTo(line.endPoint()) > tol;
  });
}

int CQdrDbEntity::GetGripNumber(const CQdrGePoint2d& pick, double scale, CQdrGePoint2d& grip) {
  if (!m_dbEntity || m_gripPoints.empty()) return -1;
  const CPoint picked(qdr::truncToInt(pick.x), qdr::truncToInt(pick.y));
  for (std::size_t i = 0; i < m_gripPoints.size(); ++i) {
    grip = m_gripPoints[i];
    if (gripBox(grip, scale).PtInRect(picked)) return static_cast<int>(i);
  }
  return -1;
}
