#pragma once

#include <vector>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

class CFile;
class CQdrGeCircArc2d;
class CQdrGeEllipArc2d;
class CQdrGeLine2d;

/// A rectangle that may be turned: a base point, width and height along its own axes, and the
/// rotation of those axes. Width and height may be negative; the corners then run the other way.
///
/// Measuring runs on the closed polyline of its four corners, so a parameter runs round the
/// boundary from the base point along the width first.
class QDR_API CQdrGeRect2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kRect;

  /// All zero.
  CQdrGeRect2d();

  /// The components of `diagonal` are width and height: it is measured along the axes of the
  /// rectangle, not along those of the drawing.
  CQdrGeRect2d(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal, double rotation);
  CQdrGeRect2d(const CQdrGePoint2d& basePoint, double width, double height, double rotation);
  CQdrGeRect2d(const CQdrGeRect2d& other);
  CQdrGeRect2d& operator=(const CQdrGeRect2d& other);

  CQdrGeRect2d& set(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal,
                    double rotation);
  CQdrGeRect2d& set(const CQdrGePoint2d& basePoint, double width, double height, double rotation);

  /// Moves the whole rectangle.
  void setBasePoint(const CQdrGePoint2d& basePoint);
  void setWidth(double width);
  void setHeight(double height);

  /// Turns the rectangle about its base point to this angle.
  void setRotation(double rotation);

  /// Takes width and height from the corner opposite the base point; the rotation stays.
  void setDiagonPoint(const CQdrGePoint2d& point);

  /// The stored fields themselves: a property sheet hands out their addresses.
  const CQdrGePoint2d& basePoint() const { return m_basePoint; }
  const double& width() const { return m_width; }
  const double& height() const { return m_height; }
  const double& rotation() const { return m_rotation; }

  /// (width, height), as the constructor takes it.
  CQdrGeVector2d diagonal() const { return {m_width, m_height}; }

  /// Corner opposite the base point.
  const CQdrGePoint2d& getDiagonPoint() const { return m_diagonPoint; }
  CQdrGePoint2d centerPoint() const;

  /// Replaces `points` by the four corners, from the base point along the width.
  void getVertex(std::vector<CQdrGePoint2d>& points) const;

  /// The closed polyline of the four corners.
  void getPolyline(CQdrGePolyline2d& result) const;

  /// Base point coordinates, width, height and rotation each differ by at most `tol`.
  bool isEqualTo(const CQdrGeRect2d& rect, const double& tol) const;
  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;

  /// Exact for moving, turning, mirroring and even scaling. Of any other matrix the width side is
  /// followed exactly and the height stays at a right angle to it, with the length of its image.
  CQdrGeRect2d& transformBy(const CQdrGeMatrix2d& m) override;
  CQdrGeRect2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeRect2d& scaleBy(double s, const CQdrGePoint2d& center) override;
  CQdrGeRect2d& mirror(const CQdrGeLine2d& line) override;
  CQdrGeRect2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeRect2d& translateBy(const CQdrGeVector2d& v) override;

  bool isInsidePoint(const CQdrGePoint2d& point) const override;
  double length() const override;
  double length(double from, double to, double tol) const override;
  double paramAtDist(double from, double dist, bool forward, double tol) const override;
  double paramAtPoint(const CQdrGePoint2d& point, double tol) const override;
  double distAtParam(double param) const override;
  double distAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d pointAtDist(double dist) const override;
  CQdrGePoint2d pointAtParam(double param) const override;
  CQdrGeVector2d normalAtParam(double param) const override;
  CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, double tol) const override;
  CQdrGePoint2d closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                               double tol) const override;
  double distanceTo(const CQdrGeLine2d& line, double tol) const override;
  double distanceTo(const CQdrGePoint2d& point, double tol) const override;
  double curvatureAtParam(double param) const override;
  double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const override;
  bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                        double tol) const override;

  /// Shrinks by `dist` on every side when `side` lies inside, else grows. False, with nothing
  /// changed, when the rectangle would vanish.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// As the polyline's forms.
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& polyline, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;

  /// Base point, width, height, rotation: 44 bytes. Reading finds the opposite corner anew.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  CQdrGePolyline2d boundary() const;
  CQdrGePoint2d cornerAt(double alongWidth, double alongHeight) const;

  CQdrGePoint2d m_basePoint;
  double m_width = 0.0;
  double m_height = 0.0;
  double m_rotation = 0.0;
  CQdrGePoint2d m_diagonPoint;
};
