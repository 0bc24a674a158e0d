#pragma once

#include "entities/curve.h"
#include "geometry/circ_arc2d.h"

/// A circle. Grips: centre, then the points at 0, 90, 180 and 270 degrees. It keeps the angles 0
/// and 2 pi whatever a mirroring or a file does to them.
class QDR_API CQdrDbCircle : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassCircle;

  /// The unit circle about the origin.
  explicit CQdrDbCircle(CQdrDbDatabase* database = nullptr);
  CQdrDbCircle(const CQdrDbCircle& other);
  CQdrDbCircle(const CQdrGePoint2d& center, double radius);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbCircle& operator=(const CQdrDbCircle& other);

  void makeProperty() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  /// All five grips inside.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool IsClosedCurve() override;
  /// Needs two crossings. Marks the circle erased and answers the arc that is left, which the
  /// caller adds.
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips.
  void setCenter(const CQdrGePoint2d& center);
  void setRadius(double radius);
  const CQdrGePoint2d& Center() const { return m_circle.center(); }
  double Radius() const { return m_circle.radius(); }
  CQdrGePoint2d StartPoint() const { return m_circle.startPoint(); }

  const CQdrGeCircArc2d& geometry() const { return m_circle; }

 private:
  CQdrGeCircArc2d m_circle;
};
