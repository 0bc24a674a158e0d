#pragma once

#include "entities/entity.h"
#include "geometry/entity2d.h"

class CQdrGePolyline2d;

/// An entity over one curve of the geometry kernel, embedded in the concrete class.
///
/// What all curves do alike stands here: the file form, measuring, crossing, offsetting, the box
/// over the grips. A class adds its grips, drawing and edits.
class QDR_API CQdrDbCurve : public CQdrDbEntity {
 public:
  /// Object head, common block, then the geometry; read ends with setGripPoints.
  void save() override;
  void read() override;

  /// Box around the grips.
  CQdrDbRect GetOutRect() override;
  /// Lets hatches follow when this curve carries a boundary tag.
  void OnCurveChanged() override;
  int isOn(const CQdrGePoint2d& point, const double& tol) override;
  /// All grips inside; any grip inside or a side crossed. Classes narrow this to certain grips.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool IsCurveEntity() const override;
  bool IsClosedCurve() override;
  int IsBoundary() const override;

  /// Crossings by the shape of the other entity: line, circular or elliptic arc, or the polyline
  /// of a polyline, spline, spiral or box. Any other class has none, and `points` stays.
  bool intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points, int mode,
                     double tol) override;
  bool intersectWith(const CQdrGeEllipArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;

  /// Turns the direction of the curve; nothing for lines, arcs, circles, ellipses and boxes.
  virtual void Reverse();
  virtual bool intersectWith(const CQdrGePolyline2d& polyline, int& count,
                             std::vector<CQdrGePoint2d>& points, int mode, double tol);

  /// The operations of the geometry under their own names; see CQdrGeEntity2d.
  double length() const { return m_curve->length(); }
  double length(double from, double to, double tol) const { return m_curve->length(from, to, tol); }
  double paramAtDist(double from, double distance, bool forward, double tol) const;
  double paramAtPoint(const CQdrGePoint2d& point, double tol) const;
  CQdrGePoint2d pointAtParam(double param) const;
  CQdrGeVector2d normalAtParam(double param) const;
  CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const;
  bool PerpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result, double tol) const;

  /// The embedded geometry, never null.
  CQdrGeEntity2d* curve() const { return m_curve; }
  /// To be called after the geometry was changed through `curve`: a cached vertex array is stale.
  void clearVertexArrayValid() { m_vertexArrayValid = false; }

 protected:
  explicit CQdrDbCurve(CQdrDbDatabase* database);

  /// Stores the class tag and status bits of the concrete class and where its geometry is.
  void setClassInfo(QdrDb::ClassType type, CQdrGeEntity2d& geometry, std::uint8_t status = eEntity);

  /// True when a side of the rectangle crosses this curve.
  bool crossesRect(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) const;
  /// Over the grips from `first` up to and without `last`; all of none are not inside.
  bool anyGripInside(std::size_t first, std::size_t last, const CQdrGePoint2d& corner1,
                     const CQdrGePoint2d& corner2) const;
  bool allGripsInside(std::size_t first, std::size_t last, const CQdrGePoint2d& corner1,
                      const CQdrGePoint2d& corner2) const;

  CQdrGeEntity2d* m_curve = nullptr;
  bool m_vertexArrayValid = false;
};
