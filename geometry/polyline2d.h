#pragma once

#include <map>
#include <vector>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "platform/export.h"

class CFile;
class CQdrDbRect;
class CQdrGeCircArc2d;
class CQdrGeEllipArc2d;
class CQdrGeLine2d;

/// A chain of straight and circular segments, open or closed.
///
/// Segment i runs from vertex i to vertex i + 1; in a closed polyline the last one returns to
/// vertex 0. The bulge of a vertex is the tangent of a quarter of the angle its segment turns
/// through: positive counter-clockwise, so the arc bows to the right of the chord. An arc object
/// always runs counter-clockwise, so the arc of a negative bulge starts at the end of its segment
/// and a parameter t of that arc is 1 - t along the segment. A width of -1 means not set.
///
/// The parameter of the whole chain runs from 0 to 1 in proportion to length. Copies are deep.
/// Indices out of range are refused, and nothing throws.
class QDR_API CQdrGePolyline2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kPolyline;

  /// Kind of one segment. The zero-length test comes before the bulge: vertices nearer than 0.001
  /// make a kCoincidentSeg whatever their bulge. A bulge of at most 0.001 in magnitude is a line.
  enum SegType {
    kLineSeg = 0,
    kArcSeg = 1,
    kCoincidentSeg = 2,
    kPointSeg = 3,  // the last vertex of an open polyline
    kEmptySeg = 4,  // no such segment
  };

  CQdrGePolyline2d();
  explicit CQdrGePolyline2d(const std::vector<CQdrGePoint2d>& points);
  CQdrGePolyline2d(const CQdrGePolyline2d& other);
  CQdrGePolyline2d& operator=(const CQdrGePolyline2d& other);

  /// Takes the arc as `asPolyline(*this, 0)` gives it: one segment, or two closed half circles.
  CQdrGePolyline2d& operator=(const CQdrGeCircArc2d& arc);

  /// Replaces the vertices; bulges that are not given are 0, widths -1. The closed flag stays.
  void set(const std::vector<CQdrGePoint2d>& points);
  void set(const std::vector<CQdrGePoint2d>& points, const std::vector<double>& bulges);

  /// Removes every vertex and reserves room for `n`; the count is 0 afterwards.
  void setSize(int n);
  int numVerts() const { return static_cast<int>(m_points.size()); }

  /// Answers true always.
  bool appendVertex(const CQdrGePoint2d& point, double bulge = 0.0, double startWidth = -1.0,
                    double endWidth = -1.0);

  /// Inserts before vertex `i`; `i` equal to the count appends.
  bool addVertexAt(int i, const CQdrGePoint2d& point, double bulge = 0.0, double startWidth = -1.0,
                   double endWidth = -1.0);

  /// Removes vertices `first` to `last`; a `last` of 0 removes `first` alone, one past the end
  /// means the end.
  bool removeVertexAt(int first, int last = 0);

  /// True up to and including index size; at size itself `point` keeps its value.
  bool getPointAt(int i, CQdrGePoint2d& point) const;
  bool setPointAt(int i, const CQdrGePoint2d& point);

  /// The first form answers 0 past the end.
  double getBulgeAt(int i) const;
  bool getBulgeAt(int i, double& bulge) const;
  bool setBulgeAt(int i, double bulge);
  bool getWidthsAt(int i, double& startWidth, double& endWidth) const;
  bool setWidthsAt(int i, double startWidth, double endWidth);

  const std::vector<CQdrGePoint2d>& points() const { return m_points; }
  const std::vector<double>& bulges() const { return m_bulges; }
  const std::vector<double>& startWidths() const { return m_startWidths; }
  const std::vector<double>& endWidths() const { return m_endWidths; }

  /// Some bulge above 0.001: negative bulges do not count.
  bool hasBulges() const;
  /// Some end width or start width above 0.001.
  bool hasWidth() const;
  /// Every bulge at most 0.001 in magnitude. A polyline of negative bulges only answers false
  /// here and to hasBulges.
  bool isOnlyLines() const;

  /// The stored flag.
  bool isClosed() const { return m_closed; }
  /// The flag, or first and last vertex less than 0.002 apart.
  bool closed() const;
  /// Signed area over the vertices alone, bulges left out, is positive.
  bool isCCW() const;
  /// First index within distance `d` of `p`, or -1.
  int isVertex(const CQdrGePoint2d& p, double d) const;

  /// Bounds of vertices and arcs; both (0, 0) when empty.
  void getMinMaxpoint(CQdrGePoint2d& min, CQdrGePoint2d& max) const;
  CQdrDbRect getOutRect() const;

  SegType segType(int i) const;
  bool getLineSegAt(int i, CQdrGeLine2d& line) const;
  bool getArcSegAt(int i, CQdrGeCircArc2d& arc) const;

  /// Whether `p` lies on segment `i`. `t` is the fraction of a line, and of an arc the parameter
  /// of its arc object, which runs against the segment for a negative bulge.
  bool onSegAt(int i, const CQdrGePoint2d& p, double& t, double tol) const;
  /// First segment that holds `p`, or -1.
  int isOnSegAt(const CQdrGePoint2d& p, double tol) const;

  /// Whole-chain parameter of the place at fraction `t` of segment `i`, in the direction of travel.
  double paramAtSegParam(int i, double t) const;
  /// The reverse: answers the fraction and stores the index of the segment, -1 when there is none.
  double segParamAtParam(double param, int& i) const;

  /// Stores the flag. Closing a chain of two or more vertices whose last segment bulges by more
  /// than 1e-05 also gives the closing segment the bulge that continues it tangentially.
  void setClosed(bool closed);

  /// Travels the other way: bulges change sign and, like widths, stay with their segments; start
  /// and end width change places.
  void reverse();

  /// Makes vertex `i` the first one of a closed figure. A figure that is closed by coincident ends
  /// alone loses its last vertex and gets the flag. False when not `closed()`.
  bool changeStart(int i);

  /// Joins `other` at an end nearer than 0.002; the shared vertex stays once, as it stands here.
  /// `where`: 1 its start met this end, 2 its end met this end, 3 its end met this start, 4 its
  /// start met this start; the first that holds. False when none does or either has isClosed().
  bool appendPolyline(const CQdrGePolyline2d& other, int& where);
  bool appendPolyline(const CQdrGeLine2d& line, int& where);
  bool appendPolyline(const CQdrGeCircArc2d& arc, int& where);

  bool operator==(const CQdrGePolyline2d& other) const;
  /// Equal count and flag, every point within `tol` and every bulge differing by at most `tol`.
  bool isEqualTo(const CQdrGePolyline2d& other, double tol) const;

  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;
  CQdrGePolyline2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGePolyline2d& scaleBy(double s, const CQdrGePoint2d& center) override;
  /// Negates every bulge; transformBy does not, not even with a mirroring matrix.
  CQdrGePolyline2d& mirror(const CQdrGeLine2d& line) override;
  CQdrGePolyline2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGePolyline2d& translateBy(const CQdrGeVector2d& v) override;
  CQdrGePolyline2d& transformBy(const CQdrGeMatrix2d& m) override;
  /// Odd number of crossings with a line from outside; false unless `closed()`. A point on the
  /// boundary is decided by that count like any other.
  bool isInsidePoint(const CQdrGePoint2d& point) const override;
  double length() const override;
  double length(double from, double to, double tol) const override;
  double paramAtDist(double from, double dist, bool forward, double tol) const override;
  /// -1 when the point is not on the chain.
  double paramAtPoint(const CQdrGePoint2d& point, double tol) const override;
  double distAtParam(double param) const override;
  double distAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d pointAtDist(double dist) const override;
  /// Within 0.001 of 1 the end of the chain; the origin when no segment reaches `param`.
  CQdrGePoint2d pointAtParam(double param) const override;
  /// Right of the travel on a line, away from the centre on an arc.
  CQdrGeVector2d normalAtParam(double param) const override;
  CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, int& segment, double tol) const;
  CQdrGePoint2d closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                               double tol) const override;
  CQdrGePoint2d closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc, double tol) const;
  double distanceTo(const CQdrGeLine2d& line, double tol) const override;
  double distanceTo(const CQdrGePoint2d& point, double tol) const override;
  double curvatureAtParam(double param) const override;
  double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const override;
  /// The shortest of the vectors of all segments whose foot lies on its segment; without one, the
  /// shortest of those with a foot on the extension of a segment.
  bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                        double tol) const override;
  /// Vertex count (4 bytes), closed flag (1), then 44 bytes a vertex.
  void save(CFile* file) const override;
  void read(CFile* file) override;

  /// Appends the crossings to `points`, segment by segment in order, and drops each that follows
  /// its like within 0.001. `count` is the size of `points` then; true when it is not 0. False for
  /// a mode of 4 or more. Two polylines give their first 2^24 crossings at most.
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& other, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;

  /// The same, each crossing under its parameter on this polyline, truncated to eight decimals;
  /// crossings of one key are one entry.
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::map<double, CQdrGePoint2d>& result,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count,
                     std::map<double, CQdrGePoint2d>& result, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::map<double, CQdrGePoint2d>& result, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& other, int& count,
                     std::map<double, CQdrGePoint2d>& result, Intersect mode, double tol) const;

  /// Drops each point within 0.001 of the point before it and answers how many are left.
  static int CheckSameIntPoints(std::vector<CQdrGePoint2d>& points);

  /// +1 left, -1 right of the nearest segment. On a straight one the turn from `side` over its foot
  /// to the end decides: level with the end it is none and gives -1, beyond it the other side.
  int getoffsetDirection(const CQdrGePoint2d& side, double dist) const;

  /// Appends the unchained pieces of the offset toward `side`, and with `both` those of the other
  /// side. `pieces` is emptied first; it holds `CQdrGePolyline2d*` that the caller deletes.
  bool getOffset(const CQdrGePoint2d& side, double dist, std::vector<void*>& pieces,
                 bool both) const;

  /// Takes the longest chain, by vertex count, of the offset toward `side`; the closed flag stays.
  /// False, and not a bit changed, when nothing of the offset remains.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// Appends all chains of the offset to `pieces`, owned by the caller, and answers their number;
  /// none beyond 2^23 crossings. No place of a piece is nearer than `dist` - 0.002. Two names.
  int offset(const CQdrGePoint2d& side, double dist, std::vector<void*>& pieces, bool both) const;
  int getOffsetPolylines(const CQdrGePoint2d& side, double dist, std::vector<void*>& pieces,
                         bool both) const;

 protected:
  /// Merges vertices nearer than 0.05, straightens arcs that the offset would swallow, and splits
  /// neighbours that cross away from their shared vertex.
  void checkLocalSelfIntersect(std::vector<CQdrGePoint2d>& points, std::vector<double>& bulges,
                               double dist, int direction) const;
  /// Replaces the vectors by the raw offset; leaves them when no segment can be offset.
  void getOffsetPoly(std::vector<CQdrGePoint2d>& points, std::vector<double>& bulges, double dist,
                     int direction) const;
  /// Appends the parts of the raw offset that keep the distance and answers how many.
  int clipOffsetPoly(const std::vector<CQdrGePoint2d>& points, const std::vector<double>& bulges,
                     const std::vector<CQdrGePoint2d>& otherPoints,
                     const std::vector<double>& otherBulges, double dist,
                     std::vector<void*>& pieces) const;

 private:
  std::vector<CQdrGePoint2d> m_points;
  std::vector<double> m_bulges;
  std::vector<double> m_endWidths;
  std::vector<double> m_startWidths;
  bool m_closed = false;
};
