#pragma once

#include <vector>

#include "geometry/entity3d.h"
#include "geometry/point3d.h"
#include "geometry/vector3d.h"
#include "platform/export.h"

class CFile;
class CQdrGeLine3d;
class CQdrGePlane;

/// A chain of straight segments in space, open or closed.
///
/// Segment i runs from vertex i to vertex i + 1; in a closed polyline the last one returns to
/// vertex 0. The parameter of the whole chain runs from 0 to 1 in proportion to length. Indices out
/// of range are refused. Copies are deep.
class QDR_API CQdrGePolyline3d : public CQdrGeEntity3d {
 public:
  static constexpr QdrGe::Entity3DId kTypeId = QdrGe::kPolyline3d;

  /// Empty and open.
  CQdrGePolyline3d() : CQdrGeEntity3d(kTypeId) {}
  explicit CQdrGePolyline3d(const std::vector<CQdrGePoint3d>& points);

  /// Removes every vertex and reserves room for `n`; the count is 0 afterwards.
  void setSize(int n);
  int numVerts() const { return static_cast<int>(m_points.size()); }
  const std::vector<CQdrGePoint3d>& points() const { return m_points; }

  /// Answers true always.
  bool appendVertex(const CQdrGePoint3d& point);

  /// Inserts before vertex `i`; `i` equal to the count appends.
  bool addVertexAt(int i, const CQdrGePoint3d& point);

  /// Removes vertices `first` to `last`; a `last` of 0 removes `first` alone, one past the end
  /// means the end.
  bool removeVertexAt(int first, int last = 0);

  /// True up to and including index size; at size itself `point` keeps its value.
  bool getPointAt(int i, CQdrGePoint3d& point) const;

  /// The last segment exists only when the flag is set; it ends at vertex 0.
  bool getLineSegAt(int i, CQdrGeLine3d& line) const;

  /// Whether `p` lies on segment `i`; `t` is its distance from vertex i over the segment's length.
  bool onSegAt(int i, const CQdrGePoint3d& p, double& t, double tol) const;

  /// 1 when a segment holds `p`, else 0.
  int isOn(const CQdrGePoint3d& p, double tol) const;
  /// First segment that holds `p`, or -1.
  int isOnSegAt(const CQdrGePoint3d& p, double tol) const;

  /// Stores the flag, only with two vertices or more.
  void setClosed(bool closed);
  /// The stored flag.
  bool isClosed() const { return m_closed; }
  /// The flag, or first and last vertex at most `tol` apart.
  bool closed(double tol) const;

  void reverse();

  /// Makes vertex `i` the first one of a closed figure. A figure that is closed by ends within
  /// 0.002 alone loses its last vertex and gets the flag. False when not closed.
  bool changeStart(int i);

  /// Joins `other` at an end within 0.001; the shared vertex stays once, as it stands here.
  /// `where`: 1 its start met this end, 2 its end met this end, 3 its end met this start, 4 its
  /// start met this start; the first that holds. False when none does or either has isClosed().
  bool appendPolyline(const CQdrGePolyline3d& other, int& where);
  bool appendPolyline(const CQdrGeLine3d& line, int& where);

  /// Equal count and flag, and every vertex within `tol`; `==` by the `==` of the points.
  bool isEqualTo(const CQdrGePolyline3d& other, double tol) const;
  bool operator==(const CQdrGePolyline3d& other) const;
  bool operator!=(const CQdrGePolyline3d& other) const { return !(*this == other); }

  /// On every vertex, as the point operations do.
  CQdrGePolyline3d& translateBy(const CQdrGeVector3d& v);
  CQdrGePolyline3d& scaleBy(double s, const CQdrGePoint3d& center);
  CQdrGePolyline3d& scaleBy(double sx, double sy, double sz, const CQdrGePoint3d& center);
  /// Turns about an axis of length 1 through the origin.
  CQdrGePolyline3d& rotateBy(double angle, const CQdrGeVector3d& axis);
  CQdrGePolyline3d& mirror(const CQdrGePlane& plane);

  double length() const;
  /// 0 if |from - to| < tol, if to < from, or if from lies outside [0, 1].
  double length(double from, double to, double tol) const;
  /// Held down to 1 forward, up to 0 backward; `from` on a chain of no length.
  double paramAtDist(double from, double dist, bool forward, double tol) const;
  /// -1 for a point off the chain.
  double paramAtPoint(const CQdrGePoint3d& p, double tol) const;
  double distAtParam(double param) const { return length() * param; }
  /// length() * paramAtPoint, so -length() off the chain.
  double distAtPoint(const CQdrGePoint3d& p, double tol) const;
  CQdrGePoint3d pointAtDist(double dist) const;
  /// Within `tol` of 1 the end of the chain; the origin when no segment reaches `t`.
  CQdrGePoint3d pointAtParam(double t, double tol) const;

  /// Whole-chain parameter of the place at fraction `t` of segment `i`.
  double paramAtSegParam(int i, double t) const;
  /// The reverse: answers the fraction and stores the index of the segment, -1 when there is none.
  double segParamAtParam(double param, int& i) const;

  /// Over the segment forms; a later segment wins only if strictly nearer. The origin when there is
  /// no segment. The line form is as bounded as CQdrGeLine3d::closestPointTo.
  CQdrGePoint3d closestPointTo(const CQdrGePoint3d& p, double tol) const;
  CQdrGePoint3d closestPointTo(const CQdrGeLine3d& line, CQdrGePoint3d& onLine, double tol) const;
  double distanceTo(const CQdrGePoint3d& p, double tol) const;
  double distanceTo(const CQdrGeLine3d& line, double tol) const;

  /// CQdrGeLine3d::intersectWith of every segment; hits are appended, `count` is their number.
  bool intersectWith(const CQdrGePlane& plane, int& count, std::vector<CQdrGePoint3d>& points,
                     Intersect mode, double tol) const;

  /// CQdrGeLine3d::normalAtPlane of the segment; the zero vector when there is none.
  CQdrGeVector3d normalAtSegment(int i, const CQdrGePlane& plane) const;
  CQdrGeVector3d normalAtParam(double t, const CQdrGePlane& plane, double tol) const;
  CQdrGeVector3d normalAtPoint(const CQdrGePoint3d& p, const CQdrGePlane& plane, double tol) const;

  /// The shortest of the vectors of all segments. False without one of some length.
  bool perpVecFromPoint(const CQdrGePoint3d& p, CQdrGeVector3d& result, double tol) const;

  /// Vertex count (4 bytes), closed flag (1), then 24 bytes a vertex.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  int segmentCount() const;

  std::vector<CQdrGePoint3d> m_points;
  bool m_closed = false;
};
