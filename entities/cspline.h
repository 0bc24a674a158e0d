#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/cspline2d.h"

class CQdrDbPolyline;

/// A cubic through its control vertices, drawn by its samples, which are four pixels of the current
/// view apart; see CQdrGeCSpline2d for options and sampling. Grips: the control vertices in order.
class QDR_API CQdrDbCSpline : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassCSpline;

  /// No control vertices.
  explicit CQdrDbCSpline(CQdrDbDatabase* database = nullptr);
  CQdrDbCSpline(const CQdrDbCSpline& other);
  /// Through these points, open, all options 0.
  explicit CQdrDbCSpline(const std::vector<CQdrGePoint2d>& points);
  /// Through the vertices of the polyline, closed like it, with its looks.
  explicit CQdrDbCSpline(const CQdrDbPolyline& polyline);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbCSpline& operator=(const CQdrDbCSpline& other);

  /// In a file all points come first, then all options.
  void save() override;
  void read() override;
  /// Box of the samples; (0, 0, 0, 0) without a curve.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  /// Sets the sample step by the current view of the drawing; 0.5 where there is none.
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  bool IsClosedCurve() override;
  void Reverse() override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Operations on control vertices refresh the grips. They answer false, with nothing changed, for
  /// an index out of range. An option other than 0 breaks the curve at its vertex.
  void SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points);
  void SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points,
                       const std::vector<unsigned char>& options);
  void AppendCtrlVertex(const CQdrGePoint2d& point, unsigned char option = 0);
  /// Before vertex `i`; the count appends.
  bool AddCtrlVertexAt(int i, const CQdrGePoint2d& point, unsigned char option = 0);
  bool RemoveCtrlVertexAt(int i);
  /// The form without an option keeps the one in place.
  bool SetCtrlPointAt(int i, const CQdrGePoint2d& point);
  bool SetCtrlPointAt(int i, const CQdrGePoint2d& point, unsigned char option);
  bool GetCtrlVertexAt(int i, CQdrGePoint2d& point) const { return m_spline.getCtrlPtAt(i, point); }
  /// 0 out of range.
  unsigned char GetCtrlOption(int i) const { return m_spline.getCtrlOption(i); }
  bool SetControlOption(int i, unsigned char option);
  int NumCtrlVerts() const { return m_spline.numCtrlVerts(); }

  /// The stored flag; Closed also holds when the ends meet.
  bool IsClosed() const { return m_spline.isClosed(); }
  bool Closed() const { return m_spline.closed(); }
  /// Closing drops the last vertex when it lies on the first.
  void SetClosed(bool closed);

  const CQdrGeCSpline2d& geometry() const { return m_spline; }

 private:
  template <class Stream>
  static void fields(Stream& stream, std::uint8_t& closed, std::vector<CQdrGePoint2d>& points,
                     std::vector<unsigned char>& options);
  /// Refreshes the grips after an operation that succeeded; passes its answer on.
  bool changed(bool done);

  CQdrGeCSpline2d m_spline;
};
