#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/ellip_arc2d.h"

class CQdrDbEllipse;

/// An elliptic arc, counter-clockwise from start to end angle; both are polar angles about the
/// centre, measured from the major axis. Grips: centre, the four ends of the axes of the whole
/// ellipse counter-clockwise from that of the major vector, start, end.
class QDR_API CQdrDbEllipseArc : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassEllipseArc;

  /// The whole unit circle about the origin.
  explicit CQdrDbEllipseArc(CQdrDbDatabase* database = nullptr);
  CQdrDbEllipseArc(const CQdrDbEllipseArc& other);
  /// The whole ellipse as an arc of the same looks.
  explicit CQdrDbEllipseArc(const CQdrDbEllipse& ellipse);
  /// The minor radius is `radiusRatio` times the length of the major vector.
  CQdrDbEllipseArc(const CQdrGePoint2d& center, const CQdrGeVector2d& major, double radiusRatio,
                   double startAngle, double endAngle);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbEllipseArc& operator=(const CQdrDbEllipseArc& other);

  void makeProperty() override;
  /// Box of the drawn polygon, not of the true arc.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  /// The same outline in circular arcs; nothing calls it but a host that prefers them.
  void DrawA(CDC* dc);
  void setGripPoints() override;
  /// Start, end or an end of an axis that lies on the arc inside; then the sides.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// Start and end inside and no side crossed.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  /// Along its own ellipse to the first or last crossing counted from the major axis, whichever is
  /// nearer in direction to the end moved; the start moves for a pick before the middle.
  bool Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
              double tol) override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips; those of axes and radii work as on CQdrDbEllipse. A negative angle
  /// gets one full turn.
  void set(const CQdrGePoint2d& center, const CQdrGeVector2d& major, double radiusRatio,
           double startAngle, double endAngle);
  void get(CQdrGePoint2d& center, CQdrGeVector2d& major, double& radiusRatio, double& startAngle,
           double& endAngle) const;
  void SetCenter(const CQdrGePoint2d& center);
  void SetVecMajorAxis(const CQdrGeVector2d& major);
  void SetRadiusRatio(double radiusRatio);
  void SetMajorRadius(double radius);
  void setRadii(double majorRadius, double minorRadius);
  void SetStartAngle(double angle);
  void SetEndAngle(double angle);

  const CQdrGePoint2d& Center() const { return m_arc.center(); }
  CQdrGeVector2d VecMajorAxis() const;
  CQdrGeVector2d VecMinorAxis() const;
  double MajorRadius() const { return m_arc.majorRadius(); }
  double MinorRadius() const { return m_arc.minorRadius(); }
  double RadiusRatio() const { return MinorRadius() / MajorRadius(); }
  double StartAngle() const { return m_arc.startAng(); }
  double EndAngle() const { return m_arc.endAng(); }
  /// In the drawing, unlike those of the geometry.
  CQdrGePoint2d StartPoint() const;
  CQdrGePoint2d EndPoint() const;

  /// Fills the vertex array with the drawn polygon in logical units and marks it valid.
  void InitGrVertexArray();
  const std::vector<CPoint>& vertexArray() const { return m_vertexArray; }

  const CQdrGeEllipArc2d& geometry() const { return m_arc; }

 private:
  std::vector<CPoint> drawnPolygon() const;
  CQdrGePoint2d toDrawing(CQdrGePoint2d framePoint) const;
  /// The polar angle lies within the arc.
  bool spans(double angle) const;
  /// Moves an end and records the old angle.
  void moveStart(double angle);
  void moveEnd(double angle);

  std::vector<CPoint> m_vertexArray;  ///< empty until InitGrVertexArray
  CQdrGeEllipArc2d m_arc;
};
