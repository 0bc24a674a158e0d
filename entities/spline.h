#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/spline.h"

/// A control polygon with rounded corners, drawn by the chain of lines and arcs that stands for
/// it; see CQdrGeSpline. Grips: the control vertices in order.
///
/// The chain is stored in a file and taken from it as it stands, until a change of the control
/// vertices or of the fit parameter.
class QDR_API CQdrDbSpline : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassSpline;

  /// No control vertices; the fit parameter is 0.49 where none is given.
  explicit CQdrDbSpline(CQdrDbDatabase* database = nullptr);
  explicit CQdrDbSpline(double fitParam, CQdrDbDatabase* database = nullptr);
  CQdrDbSpline(const CQdrDbSpline& other);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbSpline& operator=(const CQdrDbSpline& other);

  void save() override;
  void read() override;
  /// The rows of the control points show the first one; their data is the address of the vector of
  /// all.
  void makeProperty() override;
  /// Box of the chain, without the control vertices.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  bool IsClosedCurve() override;
  void Reverse() override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  // A window crosses the spline with a control vertex inside, although the curve may pass it by, or
  // a side crossed; all control vertices inside it are taken for the whole spline.

  /// Operations on control vertices refresh the grips. They answer false, with nothing changed, for
  /// an index out of range.
  void SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points);
  void AppendCtrlVertex(const CQdrGePoint2d& point);
  /// Before vertex `i`; the count appends.
  bool AddCtrlVertexAt(int i, const CQdrGePoint2d& point);
  bool RemoveCtrlVertexAt(int i);
  bool SetCtrlPointAt(int i, const CQdrGePoint2d& point);
  bool GetCtrlVertexAt(int i, CQdrGePoint2d& point) const { return m_spline.getCtrlPtAt(i, point); }
  int NumCtrlVerts() const { return m_spline.numCtrlVerts(); }

  /// The stored flag; Closed also holds when the ends meet.
  bool IsClosed() const { return m_spline.isClosed(); }
  bool Closed() const { return m_spline.closed(); }
  void SetClosed(bool closed);

  /// Part of the shorter side of a corner that its rounding takes; any value is stored.
  void SetFitParam(double fitParam);
  double GetFitParam() const { return m_spline.getFitParam(); }

  /// Builds the chain anew from control vertices and fit parameter.
  void updatePoly();

  /// Adds a line or arc to the drawing for each segment of the chain; the caller erases the spline.
  /// The last vertex of an open one hands the last of them over once more. False without a drawing
  /// or a segment.
  bool Explode();

  const CQdrGeSpline& geometry() const { return m_spline; }

 private:
  /// Refreshes the grips after an operation that succeeded; passes its answer on.
  bool changed(bool done);

  CQdrGeSpline m_spline;
};
