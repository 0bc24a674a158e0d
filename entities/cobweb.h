#pragma once

#include <memory>
#include <set>
#include <vector>

#include "entities/entity.h"

/// A ring of spokes between two circles, which repeats other entities around its centre. Grips: the
/// centre; for wing k its points 2k + 1 on the inner and 2k + 2 on the outer circle; last a handle
/// beyond the end of the first spoke.
///
/// A cobweb can be neither copied nor brought by a file, and the virtual transforms leave it alone;
/// its own, in lower case, move it, and the undo log goes by them. The circle called inner may be
/// the larger one. There are at most a million wings; fewer than one means none.
class QDR_API CQdrDbCobweb : public CQdrDbEntity {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassCobweb;

  /// Half the side of the marker that is drawn at the first inner point.
  static constexpr double kMarkerPixels = 3.0;

  explicit CQdrDbCobweb(CQdrDbDatabase* database = nullptr);
  CQdrDbCobweb(const CQdrDbCobweb& other);
  CQdrDbCobweb(const CQdrGePoint2d& center, double inner, double outer, int wings, double rotation);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbCobweb& operator=(const CQdrDbCobweb& other);

  void save() override;
  void read() override;
  void makeProperty() override;
  /// Box of the grips: the circles may reach beyond it.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  /// On a circle or a spoke.
  int isOn(const CQdrGePoint2d& point, const double& tol) override;
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// All grips inside.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// Crossings of circles and spokes.
  bool intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points, int mode,
                     double tol) override;
  bool intersectWith(const CQdrGeEllipArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;

  /// Setters and transforms refresh the grips.
  void Set(const CQdrGePoint2d& center, double inner, double outer, int wings, double rotation);
  void SetCenter(const CQdrGePoint2d& center);
  void SetInnerRadius(double radius);
  void SetOuterRadius(double radius);
  void SetRotation(double rotation);
  void SetWings(int wings);
  void translateBy(const CQdrGeVector2d& vector);
  void rotateBy(double angle, const CQdrGePoint2d& center);
  void scaleBy(double scale, const CQdrGePoint2d& center);
  void mirror(const CQdrGeLine2d& line);

  const CQdrGePoint2d& Center() const { return m_center; }
  double InnerRadius() const { return m_innerRadius; }
  double OuterRadius() const { return m_outerRadius; }
  double Rotation() const { return m_rotation; }
  int Wings() const { return m_wings; }
  /// 2 pi / wings; 0 without a wing.
  double GetDivAngle() const;

  /// The first wing whose spoke holds the point, or -1.
  int GetWingNum(const CQdrGePoint2d& point, double tol);

  /// Adds a copy of each entity, turned by `count` wings, to the drawing. `chain` is 0 for the
  /// first step of a user action. Entities that cannot be copied are left out.
  void CopyRotate(const std::set<CQdrDbObjectId>& ids, int count, int chain);
  /// Repeats the entities at every other wing, counted up for `forward`, else down.
  void SetEntity(const std::set<CQdrDbObjectId>& ids, bool forward);
  /// The same at every second wing.
  void SetEntity2(const std::set<CQdrDbObjectId>& ids, bool forward);

  /// Both circles, the one called inner first, then the spokes: entities of the same looks and the
  /// same drawing that stand in no block.
  std::vector<std::unique_ptr<CQdrDbEntity>> parts() const;

  /// Adds its parts to the drawing; the caller erases the cobweb. False without a drawing.
  bool Explode();

 private:
  template <class Stream>
  void fields(Stream& stream);
  std::size_t wingCount() const;

  std::int32_t m_wings = 0;
  CQdrGePoint2d m_center;
  double m_innerRadius = 0.0;
  double m_outerRadius = 0.0;
  double m_rotation = 0.0;
};
