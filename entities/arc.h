#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/circ_arc2d.h"

class CQdrDbCircle;

/// A circular arc, counter-clockwise from start to end angle. Grips: centre, start, middle, end.
class QDR_API CQdrDbArc : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassArc;

  /// The whole unit circle about the origin.
  explicit CQdrDbArc(CQdrDbDatabase* database = nullptr);
  CQdrDbArc(const CQdrDbArc& other);
  /// The whole circle as an arc of the same looks.
  explicit CQdrDbArc(const CQdrDbCircle& circle);
  /// The chord and its bulge; a negative one bows to the left and is stored from p2 to p1.
  CQdrDbArc(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double bulge);
  CQdrDbArc(const CQdrGePoint2d& center, double radius, double startAngle, double endAngle);
  /// From p1 through p2 to p3.
  CQdrDbArc(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbArc& operator=(const CQdrDbArc& other);

  void makeProperty() override;
  /// Box of the drawn polygon, not of the true arc.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  /// By start, middle and end; then by the sides.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// Start, middle and end inside and no side crossed.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  /// Along its own circle to the first or last crossing counted from +x, whichever is nearer to
  /// the end moved; the start moves for a pick before the middle.
  bool Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
              double tol) override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips. A negative angle gets one full turn.
  void set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double bulge);
  void set(const CQdrGePoint2d& center, double radius, double startAngle, double endAngle);
  void set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3);
  void setCenter(const CQdrGePoint2d& center);
  void setRadius(double radius);
  void setStartAngle(double angle);
  void setEndAngle(double angle);

  const CQdrGePoint2d& Center() const { return m_arc.center(); }
  double Radius() const { return m_arc.radius(); }
  double StartAngle() const { return m_arc.startAng(); }
  double EndAngle() const { return m_arc.endAng(); }
  double Bulge() const { return m_arc.bulge(); }
  CQdrGePoint2d StartPoint() const { return m_arc.startPoint(); }
  CQdrGePoint2d EndPoint() const { return m_arc.endPoint(); }

  /// Fills the vertex array with the drawn polygon in logical units and marks it valid.
  void InitGrVertexArray();
  const std::vector<CPoint>& vertexArray() const { return m_vertexArray; }

  const CQdrGeCircArc2d& geometry() const { return m_arc; }

 private:
  std::vector<CPoint> drawnPolygon() const;
  /// Moves an end and records the old angle.
  void moveStart(double angle);
  void moveEnd(double angle);

  std::vector<CPoint> m_vertexArray;  ///< empty until InitGrVertexArray
  CQdrGeCircArc2d m_arc;
};
