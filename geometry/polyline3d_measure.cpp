// Lengths, parameters and distances along the chain.

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/line3d.h"
#include "geometry/plane.h"
#include "geometry/polyline3d.h"

double CQdrGePolyline3d::length() const {
  double sum = 0.0;
  CQdrGeLine3d line;
  for (int i = 0; getLineSegAt(i, line); ++i)
    sum += line.length();
  return sum;
}

double CQdrGePolyline3d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol || to < from || from < 0.0 || from > 1.0) return 0.0;
  return std::abs(length() * (to - from));
}

double CQdrGePolyline3d::paramAtDist(double from, double dist, bool forward, double) const {
  const double total = length();
  if (!(total > 0.0)) return from;
  return forward ? std::min(from + dist / total, 1.0) : std::max(from - dist / total, 0.0);
}

double CQdrGePolyline3d::paramAtPoint(const CQdrGePoint3d& p, double tol) const {
  double passed = 0.0;
  CQdrGeLine3d line;
  for (int i = 0; getLineSegAt(i, line); ++i) {
    if (line.isOn(p, tol)) {
      passed += line.start().distanceTo(p);
      return length() > 0.0 ? paramAtDist(0.0, passed, true, qdr::kCurveTolerance) : 0.0;
    }
    passed += line.length();
  }
  return -1.0;
}

double CQdrGePolyline3d::distAtPoint(const CQdrGePoint3d& p, double tol) const {
  return length() * paramAtPoint(p, tol);
}

CQdrGePoint3d CQdrGePolyline3d::pointAtDist(double dist) const {
  return pointAtParam(paramAtDist(0.0, dist, true, qdr::kCurveTolerance), qdr::kCurveTolerance);
}

CQdrGePoint3d CQdrGePolyline3d::pointAtParam(double t, double tol) const {
  CQdrGeLine3d line;
  if (std::abs(t - 1.0) < tol && getLineSegAt(segmentCount() - 1, line)) return line.end();
  int i = -1;
  const double fraction = segParamAtParam(t, i);
  return getLineSegAt(i, line) ? line.pointAtParam(fraction) : CQdrGePoint3d::kOrigin;
}

double CQdrGePolyline3d::paramAtSegParam(int i, double t) const {
  double passed = 0.0;
  CQdrGeLine3d line;
  if (i < 0 || i >= segmentCount()) return -1.0;
  for (int k = 0; k < i && getLineSegAt(k, line); ++k)
    passed += line.length();
  getLineSegAt(i, line);
  const double total = length();
  return total > 0.0 ? (passed + line.length() * t) / total : 0.0;
}

double CQdrGePolyline3d::segParamAtParam(double param, int& i) const {
  const double total = length();
  double passed = 0.0;
  CQdrGeLine3d line;
  for (i = 0; total > 0.0 && getLineSegAt(i, line); ++i) {
    const double share = line.length() / total;
    if (share > 0.0 && passed + share >= param) return (param - passed) / share;
    passed += share;
  }
  // Rounding may leave the end a little beyond the sum of all shares.
  i = total > 0.0 && param <= 1.0 ? segmentCount() - 1 : -1;
  return i < 0 ? 0.0 : 1.0;
}

CQdrGePoint3d CQdrGePolyline3d::closestPointTo(const CQdrGePoint3d& p, double tol) const {
  CQdrGePoint3d best = CQdrGePoint3d::kOrigin;
  double least = std::numeric_limits<double>::infinity();
  CQdrGeLine3d line;
  for (int i = 0; getLineSegAt(i, line); ++i) {
    const CQdrGePoint3d candidate = line.closestPointTo(p, tol);
    const double distance = candidate.distanceTo(p);
    if (!(distance < least)) continue;
    least = distance;
    best = candidate;
  }
  return best;
}

CQdrGePoint3d CQdrGePolyline3d::closestPointTo(const CQdrGeLine3d& line, CQdrGePoint3d& onLine,
                                               double tol) const {
  CQdrGePoint3d best = CQdrGePoint3d::kOrigin;
  double least = std::numeric_limits<double>::infinity();
  CQdrGeLine3d segment;
  for (int i = 0; getLineSegAt(i, segment); ++i) {
    CQdrGePoint3d candidateOnLine;
    const CQdrGePoint3d candidate = segment.closestPointTo(line, candidateOnLine, tol);
    const double distance = candidate.distanceTo(candidateOnLine);
    if (!(distance < least)) continue;
    least = distance;
    best = candidate;
    onLine = candidateOnLine;
  }
  return best;
}

double CQdrGePolyline3d::distanceTo(const CQdrGePoint3d& p, double tol) const {
  return closestPointTo(p, tol).distanceTo(p);
}

double CQdrGePolyline3d::distanceTo(const CQdrGeLine3d& line, double tol) const {
  CQdrGePoint3d onLine;
  const CQdrGePoint3d onThis = closestPointTo(line, onLine, tol);
  return onThis.distanceTo(onLine);
}

bool CQdrGePolyline3d::intersectWith(const CQdrGePlane& plane, int& count,
                                     std::vector<CQdrGePoint3d>& points, Intersect mode,
                                     double tol) const {
  count = 0;
  CQdrGeLine3d line;
  for (int i = 0; getLineSegAt(i, line); ++i) {
    CQdrGePoint3d hit;
    if (!line.intersectWith(plane, hit, mode, tol)) continue;
    points.push_back(hit);
    ++count;
  }
  return count > 0;
}

CQdrGeVector3d CQdrGePolyline3d::normalAtSegment(int i, const CQdrGePlane& plane) const {
  CQdrGeLine3d line;
  return getLineSegAt(i, line) ? line.normalAtPlane(plane) : CQdrGeVector3d();
}

CQdrGeVector3d CQdrGePolyline3d::normalAtParam(double t, const CQdrGePlane& plane,
                                               double tol) const {
  if (std::abs(t - 1.0) < tol) return normalAtSegment(segmentCount() - 1, plane);
  int i = -1;
  segParamAtParam(t, i);
  return normalAtSegment(i, plane);
}

CQdrGeVector3d CQdrGePolyline3d::normalAtPoint(const CQdrGePoint3d& p, const CQdrGePlane& plane,
                                               double tol) const {
  return normalAtSegment(isOnSegAt(p, tol), plane);
}

bool CQdrGePolyline3d::perpVecFromPoint(const CQdrGePoint3d& p, CQdrGeVector3d& result,
                                        double tol) const {
  bool isFound = false;
  CQdrGeLine3d line;
  for (int i = 0; getLineSegAt(i, line); ++i) {
    CQdrGeVector3d v;
    if (!line.perpVecFromPoint(p, v, tol)) continue;
    if (isFound && !(v.length() < result.length())) continue;
    result = v;
    isFound = true;
  }
  return isFound;
}
