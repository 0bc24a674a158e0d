// Crossings of a polyline with an ellipse, by way of the polyline that the ellipse keeps.

#include "geometry/ellip_arc2d.h"
#include "geometry/polyline2d.h"

namespace {

CQdrGePolyline2d polylineOf(const CQdrGeEllipArc2d& ellipse) {
  CQdrGePolyline2d polyline;
  ellipse.getGePolyline(polyline);
  return polyline;
}

}  // namespace

bool CQdrGePolyline2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  return intersectWith(polylineOf(ellipse), count, points, mode, tol);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                     std::map<double, CQdrGePoint2d>& result, Intersect mode,
                                     double tol) const {
  return intersectWith(polylineOf(ellipse), count, result, mode, tol);
}
