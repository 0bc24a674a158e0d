#pragma once

#include <map>
#include <vector>

#include "entities/curve.h"
#include "geometry/polyline2d.h"

class CQdrDbArc;
class CQdrDbCircle;
class CQdrDbLine;

/// A chain of straight and circular segments, open or closed, that may be filled; see
/// CQdrGePolyline2d for vertices, bulges and parameters.
///
/// Grips: for each vertex the vertex itself and, when its segment is an arc, the middle of the arc;
/// so grip numbers are no vertex numbers. A vertex with a start width above 0 hides the segment
/// that ends at it; widths make no wide stroke. Operations on vertices refresh the grips and answer
/// false, with nothing changed, for an index out of range.
class QDR_API CQdrDbPolyline : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassPolyline;

  /// Empty and open.
  explicit CQdrDbPolyline(CQdrDbDatabase* database = nullptr);
  /// The same, with room for `vertexCount` vertices.
  CQdrDbPolyline(unsigned long vertexCount, CQdrDbDatabase* database);
  CQdrDbPolyline(const CQdrDbPolyline& other);
  /// One segment with the looks of the source; `reversed` runs it the other way. A whole circle
  /// kept as an arc becomes two closed halves.
  CQdrDbPolyline(const CQdrDbLine& line, bool reversed);
  CQdrDbPolyline(const CQdrDbArc& arc, bool reversed);
  /// The circle as `segments` equal arcs, closed, from its start point on; clockwise when
  /// `clockwise`. Empty for a count below 1.
  CQdrDbPolyline(const CQdrDbCircle& circle, int segments, bool clockwise);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbPolyline& operator=(const CQdrDbPolyline& other);

  void save() override;
  void read() override;
  void makeProperty() override;
  /// Box of vertices and arcs.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  bool IsClosedCurve() override;
  void Reverse() override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// A closed polyline is opened at vertex 0 first, which then stands at both ends. Answers the
  /// part behind a middle that was cut out.
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  /// Lengthens the last segment, or the first for a pick before the middle, along its line or
  /// circle to the crossing nearest to the pick. Crossings on the polyline, and those that would
  /// shorten the segment, do not count. False for a closed polyline.
  bool Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
              double tol) override;

  using CQdrDbCurve::intersectWith;
  /// Crossings by their parameter on this polyline, cut to eight decimals, added to `result`;
  /// `count` is its size afterwards.
  bool intersectWith(CQdrDbEntity& other, int& count, std::map<double, CQdrGePoint2d>& result,
                     int mode, double tol);
  bool intersectWith(const CQdrGePolyline2d& other, int& count,
                     std::map<double, CQdrGePoint2d>& result, int mode, double tol);
  bool intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                     std::map<double, CQdrGePoint2d>& result, int mode, double tol);
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count,
                     std::map<double, CQdrGePoint2d>& result, int mode, double tol);
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::map<double, CQdrGePoint2d>& result,
                     int mode, double tol);

  // Vertices.

  /// Replaces the vertices; bulges that are not given are 0, widths -1. False for null points.
  bool SetVertexes(const std::vector<CQdrGePoint2d>* points,
                   const std::vector<double>* bulges = nullptr);
  bool AppendVertex(const CQdrGePoint2d& point, double bulge, double startWidth, double endWidth);
  /// Before vertex `i`; the vertex count appends.
  bool AddVertexAt(unsigned long i, const CQdrGePoint2d& point, double bulge, double startWidth,
                   double endWidth);
  bool RemoveVertexAt(int i);
  /// Vertices `first` to `last`; a `last` of 0 removes `first` alone.
  bool RemoveVertexAt(int first, int last);
  bool SetPointAt(int i, const CQdrGePoint2d& point);
  bool SetBulgeAt(int i, double bulge);
  bool SetWidthsAt(int i, double startWidth, double endWidth);
  /// Makes vertex `i` of a closed figure the first one.
  bool ChangeStart(int i);
  /// Closing gives the closing segment the bulge that continues a last arc. False when there are
  /// fewer than two vertices.
  bool SetClosed(bool closed);

  int NumVerts() const { return m_polyline.numVerts(); }
  bool GetPointAt(int i, CQdrGePoint2d& point) const { return m_polyline.getPointAt(i, point); }
  double GetBulgeAt(int i) const { return m_polyline.getBulgeAt(i); }
  bool GetBulgeAt(int i, double& bulge) const { return m_polyline.getBulgeAt(i, bulge); }
  bool GetWidthsAt(int i, double& startWidth, double& endWidth) const;
  bool GetLineSegAt(int i, CQdrGeLine2d& line) const { return m_polyline.getLineSegAt(i, line); }
  bool GetArcSegAt(int i, CQdrGeCircArc2d& arc) const { return m_polyline.getArcSegAt(i, arc); }
  CQdrGePolyline2d::SegType SegType(int i) const { return m_polyline.segType(i); }
  bool HasBulge() const { return m_polyline.hasBulges(); }
  bool HasWidth() const { return m_polyline.hasWidth(); }
  bool IsOnlyLines() const { return m_polyline.isOnlyLines(); }
  /// The stored flag; Closed also holds when the ends meet.
  bool IsClosed() const { return m_polyline.isClosed(); }
  bool Closed() const { return m_polyline.closed(); }
  /// First vertex within `distance` of the point, or -1.
  int IsVertex(const CQdrGePoint2d& point, double distance) const;
  /// Whether the point lies on segment `i`; `t` as CQdrGePolyline2d::onSegAt gives it.
  bool OnSegAt(int i, const CQdrGePoint2d& point, double& t, double tol) const;
  /// Fraction along a segment from a parameter of the chain and back; -1 without a segment.
  double SegParamAtParam(double param, int& i) const {
    return m_polyline.segParamAtParam(param, i);
  }
  double ParamAtSegParam(int i, double t) const { return m_polyline.paramAtSegParam(i, t); }

  // Fill.

  /// An open polyline stores false.
  void SetFill(bool fill) { m_fill = fill && IsClosed(); }
  /// The flag while the polyline is closed; opening hides the fill and keeps the flag.
  bool IsFill() const { return m_fill && IsClosed(); }
  /// 0 is solid, m above 0 the hatch brush m - 1 of the platform.
  void SetFillMode(int mode) { m_fillMode = mode; }
  int FillMode() const { return m_fillMode; }
  /// Fills the polygon in the colour of the pen in use when IsFill; nothing for a hatch brush that
  /// the platform has not.
  void FillArea(CDC* dc, std::vector<CPoint>& points);

  // Edits. They record their undo steps when this polyline stands in a drawing.

  /// Divides segment `segment` into `parts` equal ones of its widths. False for a count below 1 or
  /// above a million and for a segment that is neither line nor arc.
  bool DivideSegment(int parts, int segment, bool record);

  /// Whether the corner where an end of one segment meets an end of the other takes a fillet of
  /// this radius. `fillet` is the arc, counter-clockwise; `side` is 1 when the way from the first
  /// segment to the second runs along it, -1 when it runs against it. Segments that continue one
  /// another, or that are too short, take none; `side` is 1 then.
  static bool IsFilletable(const CQdrGeLine2d& first, const CQdrGeLine2d& second, double radius,
                           CQdrGeCircArc2d& fillet, int& side);
  static bool IsFilletable(const CQdrGeLine2d& first, const CQdrGeCircArc2d& second, double radius,
                           CQdrGeCircArc2d& fillet, int& side);
  static bool IsFilletable(const CQdrGeCircArc2d& first, const CQdrGeCircArc2d& second,
                           double radius, CQdrGeCircArc2d& fillet, int& side);

  /// Fillets the corner at the start of segment `segment` for a `place` of at most 0.5 along it,
  /// else the one at its end. False, with nothing changed, where there is no corner to fillet.
  bool Fillet(int segment, double place, double radius);
  /// Fillets every corner that takes it, as one undo step; answers how many.
  int Fillet(double radius);

  /// Joins a chain at an end that meets an end of this one; `where` as
  /// CQdrGePolyline2d::appendPolyline.
  bool AppendPolyline(const CQdrDbPolyline& other, int& where);
  bool AppendPolyline(const CQdrDbLine& line, int& where);
  bool AppendPolyline(const CQdrDbArc& arc, int& where);

  /// Adds a line or arc to the drawing for each segment, in order; the caller erases the polyline.
  /// The last vertex of an open one hands the entity of the last segment over once more. False
  /// without a drawing and when there is no such segment.
  bool Explode();

  /// Appends all chains of the offset to `results`, owned by the caller; `both` adds those of the
  /// other side. Answers the size of `results`.
  int Offset(const CQdrGePoint2d& side, std::vector<CQdrDbEntity*>& results, double distance,
             bool both);

  const CQdrGePolyline2d& geometry() const { return m_polyline; }

 private:
  /// Refreshes the grips after an operation that succeeded, while the log plays after its last step
  /// on this polyline; passes the answer on.
  bool changed(bool done);
  /// Fillet without the grips.
  bool filletCorner(int segment, double place, double radius);
  /// `count` vertices are about to divide a segment, whose bulge becomes `bulge`.
  void recordDivision(int segment, int count, double bulge) const;
  std::map<double, CQdrGePoint2d> crossingsWith(const std::vector<CQdrDbEntity*>& boundaries,
                                                double tol);

  CQdrGePolyline2d m_polyline;
  bool m_fill = false;
  std::int32_t m_fillMode = 0;
};
