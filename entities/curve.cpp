#include "entities/curve.h"

#include <algorithm>
#include <memory>

#include "database/block_table.h"
#include "database/database.h"
#include "entities/internal/curve_crossings.h"
#include "entities/internal/window_tests.h"
#include "entities/rect.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

CQdrDbCurve::CQdrDbCurve(CQdrDbDatabase* database) : CQdrDbEntity(database) {}

void CQdrDbCurve::setClassInfo(QdrDb::ClassType type, CQdrGeEntity2d& geometry,
                               std::uint8_t status) {
  CQdrDbEntity::setClassInfo(type, status);
  m_curve = &geometry;
}

void CQdrDbCurve::save() {
  CQdrDbObject::save();
  CQdrDbEntity::save();
  if (file()) m_curve->save(file());
}

void CQdrDbCurve::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  if (file()) m_curve->read(file());
  clearVertexArrayValid();
  setGripPoints();
}

CQdrDbRect CQdrDbCurve::GetOutRect() {
  return CQdrDbRect::around(m_gripPoints);
}

void CQdrDbCurve::OnCurveChanged() {
  if (m_boundaryTag == 0 || !m_database) return;
  CQdrDbBlockTableRecord* block = m_database->m_blockTable.getCurrentRecord();
  if (block) block->OnCurveChanged(this, m_boundaryTag);
}

int CQdrDbCurve::isOn(const CQdrGePoint2d& point, const double& tol) {
  return m_curve->isOn(point, tol);
}

bool CQdrDbCurve::IsCurveEntity() const {
  return true;
}

bool CQdrDbCurve::IsClosedCurve() {
  return false;
}

int CQdrDbCurve::IsBoundary() const {
  return m_boundaryTag;
}

void CQdrDbCurve::Reverse() {}

bool CQdrDbCurve::intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points,
                                int mode, double tol) {
  count = 0;
  CQdrGePolyline2d scratch;
  const auto shape = qdr::crossingShape(other, scratch);
  if (!shape) return false;
  return std::visit(
      [&](const auto* curve) { return intersectWith(*curve, count, points, mode, tol); }, *shape);
}

bool CQdrDbCurve::intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return qdr::crossings(*m_curve, &arc, count, points, mode, tol);
}

bool CQdrDbCurve::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return qdr::crossings(*m_curve, &arc, count, points, mode, tol);
}

bool CQdrDbCurve::intersectWith(const CQdrGeLine2d& line, int& count,
                                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return qdr::crossings(*m_curve, &line, count, points, mode, tol);
}

bool CQdrDbCurve::intersectWith(const CQdrGePolyline2d& polyline, int& count,
                                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return qdr::crossings(*m_curve, &polyline, count, points, mode, tol);
}

bool CQdrDbCurve::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(0, m_gripPoints.size(), corner1, corner2);
}

bool CQdrDbCurve::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return anyGripInside(0, m_gripPoints.size(), corner1, corner2) || crossesRect(corner1, corner2);
}

bool CQdrDbCurve::crossesRect(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) const {
  return qdr::crossesRect(*m_curve, corner1, corner2);
}

bool CQdrDbCurve::anyGripInside(std::size_t first, std::size_t last, const CQdrGePoint2d& corner1,
                                const CQdrGePoint2d& corner2) const {
  const std::span<const CQdrGePoint2d> grips(m_gripPoints);
  last = std::min(last, grips.size());
  return first < last && qdr::anyInside(grips.subspan(first, last - first), corner1, corner2);
}

bool CQdrDbCurve::allGripsInside(std::size_t first, std::size_t last, const CQdrGePoint2d& corner1,
                                 const CQdrGePoint2d& corner2) const {
  const std::span<const CQdrGePoint2d> grips(m_gripPoints);
  return last <= grips.size() &&
         qdr::allInside(grips.subspan(first, last - first), corner1, corner2);
}

double CQdrDbCurve::paramAtDist(double from, double distance, bool forward, double tol) const {
  return m_curve->paramAtDist(from, distance, forward, tol);
}

double CQdrDbCurve::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_curve->paramAtPoint(point, tol);
}

CQdrGePoint2d CQdrDbCurve::pointAtParam(double param) const {
  return m_curve->pointAtParam(param);
}

CQdrGeVector2d CQdrDbCurve::normalAtParam(double param) const {
  return m_curve->normalAtParam(param);
}

CQdrGeVector2d CQdrDbCurve::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_curve->normalAtPoint(point, tol);
}

bool CQdrDbCurve::PerpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                   double tol) const {
  return m_curve->perpVecFromPoint(point, result, tol);
}
