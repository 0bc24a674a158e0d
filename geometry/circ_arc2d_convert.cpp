#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/polyline2d.h"

namespace {

// A width of a polyline vertex that is not set.
constexpr double kNoWidth = -1.0;

}  // namespace

void CQdrGeCircArc2d::getEllipse(CQdrGeEllipArc2d& result) const {
  result.set(m_center, CQdrGeVector2d::kXAxis, CQdrGeVector2d::kYAxis, m_radius, m_radius,
             m_startAng, m_endAng);
}

void CQdrGeCircArc2d::asPolyline(CQdrGePolyline2d& result, int clockwise) const {
  const double sign = clockwise ? -1.0 : 1.0;
  result.setSize(2);
  if (!isWhole()) {
    result.appendVertex(startPoint(), sign * bulge(), kNoWidth, kNoWidth);
    result.appendVertex(endPoint(), 0.0, kNoWidth, kNoWidth);
    return;
  }
  result.appendVertex(pointAtAngle(0.0), sign, kNoWidth, kNoWidth);
  result.appendVertex(pointAtAngle(qdr::kPi), sign, kNoWidth, kNoWidth);
  result.setClosed(true);
  // Closing computes the bulge of the last segment from the first; a half turn is exact.
  result.setBulgeAt(1, sign);
}

bool CQdrGeCircArc2d::isInsidePoint(const CQdrGePoint2d& point) const {
  CQdrGePolyline2d outline;
  asPolyline(outline, 0);
  return outline.isInsidePoint(point);
}
