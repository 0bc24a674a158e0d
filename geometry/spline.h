#pragma once

#include <vector>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "platform/export.h"

class CFile;

/// A control polygon with every corner rounded by one arc tangent to both of its sides: the
/// approximation, a chain of lines and arcs. The arc starts and ends at the fit parameter times the
/// shorter side from the corner, so a reversed spline keeps its shape.
///
/// Every measurement runs on the approximation. It follows changes of the control points and of the
/// fit parameter at its next use. A stored one, taken over with storeGePolyline, and one taken
/// straight from the control points stay until the next such change. Its closed flag outlives
/// rebuilding.
class QDR_API CQdrGeSpline : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kSpline;

  /// Fit parameter of a spline that no caller gave another.
  static constexpr double kDefaultFitParam = 0.49;

  CQdrGeSpline();
  explicit CQdrGeSpline(const std::vector<CQdrGePoint2d>& points);
  CQdrGeSpline(const CQdrGeSpline& other);
  CQdrGeSpline& operator=(const CQdrGeSpline& other);

  void set(const std::vector<CQdrGePoint2d>& points);

  /// Removes every control point and reserves room for `n`.
  void setSize(int n);
  int numCtrlVerts() const { return static_cast<int>(m_points.size()); }
  const std::vector<CQdrGePoint2d>& ctrlPoints() const { return m_points; }

  void reverse();

  /// Inserts before control point `i`; `i` equal to the count appends. False beyond.
  bool AddCtrlPt(int i, const CQdrGePoint2d& point);
  void appendCtrlPt(const CQdrGePoint2d& point);
  bool removeCtrlPtAt(int i);
  bool setPointAt(int i, const CQdrGePoint2d& point);
  bool getCtrlPtAt(int i, CQdrGePoint2d& point) const;

  /// Stores a value above 1 only; any other leaves the earlier one. Always true.
  bool setFitParam(double value);
  const double& getFitParam() const { return m_fitParam; }

  /// Stores any value: what owners of a spline use to set the usual ones, from 0 to 0.5.
  void storeFitParam(double value);

  /// Rebuilds the approximation from control points and fit parameter.
  void setGePolyline();

  /// The approximation becomes the control polygon, all bulges 0.
  void setGePolylineToCtrlPoint();

  /// The approximation becomes this polyline.
  void storeGePolyline(const CQdrGePolyline2d& polyline);

  /// The approximation; true when it has vertices.
  bool getGePolyline(CQdrGePolyline2d& result) const;

  /// The approximation in use, valid until the next change.
  const CQdrGePolyline2d& polyline() const;

  /// The flag of the approximation. Closing joins its ends by a straight segment.
  bool isClosed() const { return m_polyline.isClosed(); }
  void setClosed(bool closed);

  /// The flag, or first and last control point less than 0.002 apart.
  bool closed() const;

  /// The control polygon offset toward the side of the curve on which `side` lies; its corners
  /// become the control points. False, with nothing changed, when nothing of it remains.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// Control points by their `==` and equal fit parameters; isEqualTo takes a tolerance for both.
  bool operator==(const CQdrGeSpline& other) const;
  bool operator!=(const CQdrGeSpline& other) const { return !(*this == other); }
  bool isEqualTo(const CQdrGeSpline& other, double tol) const;

  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;
  CQdrGeSpline& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeSpline& scaleBy(double s, const CQdrGePoint2d& center) override;
  CQdrGeSpline& mirror(const CQdrGeLine2d& line) override;
  CQdrGeSpline& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeSpline& translateBy(const CQdrGeVector2d& v) override;
  CQdrGeSpline& transformBy(const CQdrGeMatrix2d& m) override;
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

  /// Fit parameter, point count (4 bytes), 20 bytes a point: the approximation is not stored.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  void rebuild() const;

  std::vector<CQdrGePoint2d> m_points;
  mutable CQdrGePolyline2d m_polyline;
  double m_fitParam = kDefaultFitParam;
  mutable bool m_isStale = false;
};
