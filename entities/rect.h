#pragma once

#include "entities/entity.h"

class CQdrGePolyline2d;

/// An axis-parallel rectangle: an entity of its own, and the box that every GetOutRect answers.
///
/// The sides are stored as given and never put in order. A box around something has `top` at its
/// greatest y and `bottom` at its least. Every rectangle, a passing box included, draws a creation
/// number and takes the current properties of its database; its grips come with setGripPoints
/// alone, never with construction.
class QDR_API CQdrDbRect : public CQdrDbEntity {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassRect;

  explicit CQdrDbRect(CQdrDbDatabase* database = nullptr);
  CQdrDbRect(const CQdrGePoint2d& leftTop, const CQdrGePoint2d& rightBottom);
  CQdrDbRect(const CQdrDbRect& other);
  ~CQdrDbRect() override;

  /// The box from (minX, minY) to (maxX, maxY).
  static CQdrDbRect around(double minX, double minY, double maxX, double maxY);
  /// The box around points; (0, 0, 0, 0) for none.
  static CQdrDbRect around(const std::vector<CQdrGePoint2d>& points);
  /// The same in world units around points of a vertex array, which are logical.
  static CQdrDbRect around(const std::vector<CPoint>& logicalPoints);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbRect& operator=(const CQdrDbRect& other);

  void save() override;
  void read() override;
  void makeProperty() override;
  /// The rectangle itself.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  /// Nine: centre; bottom, right, top, left middle; left bottom, right bottom, right top, left top.
  void setGripPoints() override;
  /// On one of the four sides.
  int isOn(const CQdrGePoint2d& point, const double& tol) override;
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;

  /// Through the closed polyline of the sides, with the curves an entity offers.
  bool intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points, int mode,
                     double tol) override;
  bool intersectWith(const CQdrGeEllipArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;

  /// Setters refresh the grips.
  void setLeftTop(const CQdrGePoint2d& point);
  void setRightBottom(const CQdrGePoint2d& point);

  CQdrGePoint2d LeftTop() const { return {m_left, m_top}; }
  CQdrGePoint2d RightBottom() const { return {m_right, m_bottom}; }
  CQdrGePoint2d LeftBottom() const { return {m_left, m_bottom}; }
  CQdrGePoint2d RightTop() const { return {m_right, m_top}; }
  /// Right minus left.
  double Width() const { return m_right - m_left; }
  /// Top minus bottom.
  double Height() const { return m_top - m_bottom; }

  /// The sides in logical units, in their own order: top is above bottom for a box in world sense.
  operator CRect() const;
  tagRECT GetDevRect() const;

  /// True when right equals left or bottom equals top exactly; sides in reverse are not empty.
  bool isRectEmpty() const;
  /// By the polygon test of the four corners.
  bool isPtInRect(const CQdrGePoint2d& point) const;
  /// The closed polyline left top, right top, right bottom, left bottom.
  void getPolyline(CQdrGePolyline2d& result) const;

  /// All transforms move the two corners left top and right bottom; the sides stay parallel to the
  /// axes. Grips are stale until setGripPoints runs.
  CQdrDbRect& transformBy(const CQdrGeMatrix2d& matrix);
  CQdrDbRect& translateBy(const CQdrGeVector2d& vector);
  CQdrDbRect& rotateBy(double angle, const CQdrGePoint2d& center);
  CQdrDbRect& scaleBy(double sx, double sy, const CQdrGePoint2d& center);
  CQdrDbRect& scaleBy(double scale, const CQdrGePoint2d& center);
  CQdrDbRect& mirror(const CQdrGeLine2d& line);

 private:
  template <class Stream>
  void fields(Stream& stream);
  void setCorners(const CQdrGePoint2d& leftTop, const CQdrGePoint2d& rightBottom);

  double m_top = 0.0;
  double m_bottom = 0.0;
  double m_left = 0.0;
  double m_right = 0.0;
};
