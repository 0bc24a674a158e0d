#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/ellip_arc2d.h"

class CQdrDbCircle;

/// An ellipse. Grips: centre, then the four ends of its axes counter-clockwise from that of the
/// major vector. The vectors of its axes have the lengths of the radii, and either may be the
/// longer one.
class QDR_API CQdrDbEllipse : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassEllipse;

  /// The unit circle about the origin.
  explicit CQdrDbEllipse(CQdrDbDatabase* database = nullptr);
  CQdrDbEllipse(const CQdrDbEllipse& other);
  /// The circle as an ellipse of the same looks, its major axis along x.
  explicit CQdrDbEllipse(const CQdrDbCircle& circle);
  /// The minor radius is `radiusRatio` times the length of the major vector.
  CQdrDbEllipse(const CQdrGePoint2d& center, const CQdrGeVector2d& major, double radiusRatio);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbEllipse& operator=(const CQdrDbEllipse& other);

  void makeProperty() override;
  /// Box of the drawn polygon, not of the true ellipse.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  /// The same outline in circular arcs; nothing calls it but a host that prefers them.
  void DrawA(CDC* dc);
  void setGripPoints() override;
  /// An end of an axis inside or a side crossed: the centre does not count.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// The four ends of the axes inside and no side crossed.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool IsClosedCurve() override;
  /// Needs two crossings. Marks the ellipse erased and answers the arc that is left, which the
  /// caller adds.
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips. A major vector of length 0 leaves axes and radii; any other leaves
  /// the minor radius, so the ratio follows. So does a major radius.
  void set(const CQdrGePoint2d& center, const CQdrGeVector2d& major, double radiusRatio);
  void get(CQdrGePoint2d& center, CQdrGeVector2d& major, double& radiusRatio) const;
  void SetCenter(const CQdrGePoint2d& center);
  void SetVecMajorAxis(const CQdrGeVector2d& major);
  /// Sets the minor radius to this part of the major one.
  void SetRadiusRatio(double radiusRatio);
  void SetMajorRadius(double radius);
  /// Both at once, stored as given.
  void setRadii(double majorRadius, double minorRadius);

  const CQdrGePoint2d& Center() const { return m_ellipse.center(); }
  CQdrGeVector2d VecMajorAxis() const;
  CQdrGeVector2d VecMinorAxis() const;
  double MajorRadius() const { return m_ellipse.majorRadius(); }
  double MinorRadius() const { return m_ellipse.minorRadius(); }
  double RadiusRatio() const { return MinorRadius() / MajorRadius(); }

  /// Fills the vertex array with the drawn polygon in logical units and marks it valid.
  void InitGrVertexArray();
  const std::vector<CPoint>& vertexArray() const { return m_vertexArray; }

  const CQdrGeEllipArc2d& geometry() const { return m_ellipse; }

 private:
  friend class CQdrDbEllipseArc;
  std::vector<CPoint> drawnPolygon() const;

  std::vector<CPoint> m_vertexArray;  ///< empty until InitGrVertexArray
  CQdrGeEllipArc2d m_ellipse;
};
