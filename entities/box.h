#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/rect2d.h"

class CQdrDbPolyline;

/// A rectangle that may be turned; width and height run along its own axes and may be negative.
/// Grips: corners and middles of sides in turn, from the base point along the width.
class QDR_API CQdrDbBox : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassBox;

  /// All zero.
  explicit CQdrDbBox(CQdrDbDatabase* database = nullptr);
  CQdrDbBox(const CQdrDbBox& other);
  /// Not turned; the components of `diagonal` are width and height.
  CQdrDbBox(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal);
  CQdrDbBox(const CQdrGePoint2d& basePoint, double width, double height, double rotation);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbBox& operator=(const CQdrDbBox& other);

  void makeProperty() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  bool IsClosedCurve() override;
  /// Shrinks on every side when `side` lies inside, else grows.
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips. The first form keeps the rotation.
  void Set(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal);
  void Set(const CQdrGePoint2d& basePoint, double width, double height, double rotation);
  /// Moves the whole box.
  void SetBasePoint(const CQdrGePoint2d& basePoint);
  /// Takes width and height from the corner opposite the base point; the rotation stays.
  void SetDiagonalPoint(const CQdrGePoint2d& point);
  void SetWidth(double width);
  void SetHeight(double height);
  /// Turns the box about its base point to this angle.
  void SetRotation(double rotation);

  double Width() const { return m_box.width(); }
  double Height() const { return m_box.height(); }
  double Rotation() const { return m_box.rotation(); }
  /// (width, height).
  CQdrGeVector2d Diagonal() const { return m_box.diagonal(); }
  const CQdrGePoint2d& BasePoint() const { return m_box.basePoint(); }
  /// Corner opposite the base point.
  const CQdrGePoint2d& GetDiagonPoint() const { return m_box.getDiagonPoint(); }

  /// The closed polyline of the four corners.
  void GetPolyline(CQdrGePolyline2d& result) const { m_box.getPolyline(result); }

  /// Gives the polyline these corners, closed, and the looks of the box.
  void ConvertToPolyline(CQdrDbPolyline& result) const;

  const CQdrGeRect2d& geometry() const { return m_box; }

 private:
  CQdrGeRect2d m_box;
};
