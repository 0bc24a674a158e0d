#include "entities/internal/ellipse_parts.h"

#include "entities/internal/property_rows.h"
#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "platform/device_context.h"

namespace qdr {

CQdrGeVector2d majorVector(const CQdrGeEllipArc2d& ellipse) {
  return CQdrGeVector2d(ellipse.majorAxis().angle()) * ellipse.majorRadius();
}

CQdrGeVector2d minorVector(const CQdrGeEllipArc2d& ellipse) {
  return CQdrGeVector2d(ellipse.majorAxis().angle()).perpVector() * ellipse.minorRadius();
}

void setMajorVector(CQdrGeEllipArc2d& ellipse, const CQdrGeVector2d& major) {
  const double radius = major.length();
  if (!(radius > 0.0)) return;
  const CQdrGeVector2d axis = major / radius;
  ellipse.set(CQdrGePoint2d(ellipse.center()), axis, axis.perpVector(), radius,
              ellipse.minorRadius());
}

std::vector<CQdrGePoint2d> quadrantPoints(const CQdrGeEllipArc2d& ellipse) {
  const CQdrGePoint2d& center = ellipse.center();
  const CQdrGeVector2d major = majorVector(ellipse);
  const CQdrGeVector2d minor = minorVector(ellipse);
  return {center + major, center + minor, center - major, center - minor};
}

double angleInFrame(const CQdrGeEllipArc2d& ellipse, const CQdrGePoint2d& point) {
  return withTurnIfNegative(ellipse.center().angleTo(point) - ellipse.majorAxis().angle());
}

std::vector<Property> ellipseRows(const CQdrGeEllipArc2d& ellipse) {
  return fieldRows({{L"X Center", ellipse.center().x},
                    {L"Y Center", ellipse.center().y},
                    {L"Major Radius", ellipse.majorRadius()},
                    {L"Minor Radius", ellipse.minorRadius()},
                    {L"Start Angle", ellipse.startAng()},
                    {L"End Angle", ellipse.endAng()}});
}

void drawAsArcs(CDC& dc, const std::vector<CPoint>& points) {
  if (points.empty()) return;
  const auto at = [&](std::size_t i) { return CQdrGePoint2d(points[i].x, points[i].y); };
  dc.MoveTo(points.front());
  std::size_t i = 0;
  for (; i + 2 < points.size(); i += 2) {
    const CQdrGePoint2d middle = at(i + 1);
    const CQdrGeVector2d toMiddle = middle - at(i);
    const CQdrGeVector2d toEnd = at(i + 2) - middle;
    if (toMiddle.x * toEnd.y == toMiddle.y * toEnd.x) {
      dc.LineTo(points[i + 1]);
      dc.LineTo(points[i + 2]);
      continue;
    }
    CQdrGeCircArc2d arc;
    arc.set(at(i), middle, at(i + 2));
    dc.MoveTo(truncToInt(arc.startPoint().x), truncToInt(arc.startPoint().y));
    dc.AngleArc(truncToInt(arc.center().x), truncToInt(arc.center().y), truncToInt(arc.radius()),
                static_cast<float>(toDegrees(arc.startAng())),
                static_cast<float>(toDegrees(sweepBetween(arc.startAng(), arc.endAng()))));
    dc.MoveTo(points[i + 2]);
  }
  for (; i + 1 < points.size(); ++i)
    dc.LineTo(points[i + 1]);
}

}  // namespace qdr
