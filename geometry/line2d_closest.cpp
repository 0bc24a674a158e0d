#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

namespace {

// Keeps the nearest of the pairs it is shown; of equal distances the first.
class NearestPair {
 public:
  void offer(const CQdrGePoint2d& onThis, const CQdrGePoint2d& onOther) {
    offer(onThis, onOther, onThis.distanceTo(onOther));
  }
  void offer(const CQdrGePoint2d& onThis, const CQdrGePoint2d& onOther, double distance) {
    if (!m_any || distance < m_distance) {
      m_any = true;
      m_distance = distance;
      m_onThis = onThis;
      m_onOther = onOther;
    }
  }
  const CQdrGePoint2d& onThis() const { return m_onThis; }
  const CQdrGePoint2d& onOther() const { return m_onOther; }

 private:
  bool m_any = false;
  double m_distance = 0.0;
  CQdrGePoint2d m_onThis;
  CQdrGePoint2d m_onOther;
};

}  // namespace

CQdrGePoint2d CQdrGeLine2d::closestPointTo(const CQdrGePoint2d& point, double /*tol*/) const {
  CQdrGePoint2d foot;
  if (closestPoint(point, foot)) return foot;
  return m_end.distanceTo(point) < m_start.distanceTo(point) ? m_end : m_start;
}

CQdrGePoint2d CQdrGeLine2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                           double /*tol*/) const {
  if (intersectWith(line, onLine, kExtendNone, qdr::kCurveTolerance)) return onLine;

  NearestPair nearest;
  CQdrGePoint2d foot;
  if (closestPoint(line.m_start, foot)) nearest.offer(foot, line.m_start);
  if (closestPoint(line.m_end, foot)) nearest.offer(foot, line.m_end);
  if (line.closestPoint(m_start, foot)) nearest.offer(m_start, foot);
  if (line.closestPoint(m_end, foot)) nearest.offer(m_end, foot);
  nearest.offer(m_start, line.m_start);
  nearest.offer(m_start, line.m_end);
  nearest.offer(m_end, line.m_start);
  nearest.offer(m_end, line.m_end);
  onLine = nearest.onOther();
  return nearest.onThis();
}

CQdrGePoint2d CQdrGeLine2d::closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc,
                                           double /*tol*/) const {
  int count = 0;
  std::vector<CQdrGePoint2d> hits;
  if (intersectWith(arc, count, hits, kExtendNone, qdr::kCurveTolerance))
    return onArc = hits.front();

  const CQdrGePoint2d center = arc.center();
  NearestPair nearest;
  const auto probe = [&](const CQdrGePoint2d& target) {
    const CQdrGeLine2d way(center, target);
    if (way.intersectWith(arc, count, hits, kExtendNone, qdr::kCurveTolerance))
      nearest.offer(target, hits.front());
  };
  CQdrGeVector2d fromFoot;
  if (perpVecFromPoint(center, fromFoot, qdr::kCurveTolerance)) probe(center - fromFoot);
  probe(m_start);
  probe(m_end);
  for (const CQdrGePoint2d& end : {arc.startPoint(), arc.endPoint()})
    nearest.offer(closestPointTo(end, qdr::kCurveTolerance), end);
  onArc = nearest.onOther();
  return closestPointTo(onArc, qdr::kCurveTolerance);
}

double CQdrGeLine2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return CQdrGeEntity2d::distanceTo(line, tol);
}

double CQdrGeLine2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeLine2d::closestPointTo(point, tol).distanceTo(point);
}

int CQdrGeLine2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return CQdrGeLine2d::distanceTo(point, qdr::kCurveTolerance) < tol ? 1 : 0;
}
