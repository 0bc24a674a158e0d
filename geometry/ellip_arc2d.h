#pragma once

#include <cstdint>
#include <vector>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "platform/export.h"
#include "platform/points.h"

class CFile;
class CQdrGeCircArc2d;
class CQdrGeLine2d;

/// An ellipse or elliptic arc, with a chain of circular arcs that stands for it.
///
/// Start and end angle are polar angles of the ends as seen from the center, measured from the
/// major axis; they are not the eccentric parameter. The axes are directions, of length 1 unless a
/// caller stores others; the radii are stored beside them. The clockwise flag is kept and stored,
/// nothing else reads it.
///
/// Nearly every measurement runs on the chain: 50 arcs for a whole ellipse, each through three
/// points of it and always counter-clockwise, so results are as exact as that. Every change of a
/// field rebuilds the chain.
class QDR_API CQdrGeEllipArc2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kEllipArc;

  /// Center at the origin, axes along x and y, radii 1, angles 0 and 2 pi.
  CQdrGeEllipArc2d();

  /// Axes are normalised; a negative radius becomes positive and turns its axis round. Both angles
  /// are the direction of `major`: an arc of no sweep, whose chain is a single vertex.
  CQdrGeEllipArc2d(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                   const CQdrGeVector2d& minor, double majorRadius, double minorRadius);

  /// Axes are normalised, the rest is stored as given.
  CQdrGeEllipArc2d(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                   const CQdrGeVector2d& minor, double majorRadius, double minorRadius,
                   double startAng, double endAng);

  /// Center, radius and angles of the arc with axes along x and y and the flag clear; the set form
  /// below sets the flag.
  explicit CQdrGeEllipArc2d(const CQdrGeCircArc2d& arc);
  CQdrGeEllipArc2d& operator=(const CQdrGeCircArc2d& arc);
  CQdrGeEllipArc2d(const CQdrGeEllipArc2d& other);
  CQdrGeEllipArc2d& operator=(const CQdrGeEllipArc2d& other);

  /// The setters store as given, without normalising; the first form keeps the angles.
  CQdrGeEllipArc2d& set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                        const CQdrGeVector2d& minor, double majorRadius, double minorRadius);
  CQdrGeEllipArc2d& set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                        const CQdrGeVector2d& minor, double majorRadius, double minorRadius,
                        double startAng, double endAng);
  CQdrGeEllipArc2d& set(const CQdrGeCircArc2d& arc);
  void setCenter(const CQdrGePoint2d& center);
  void setMinorRadius(double radius);
  void setMajorRadius(double radius);
  void setAxes(const CQdrGeVector2d& major, const CQdrGeVector2d& minor);
  void setAngles(double startAng, double endAng);

  /// The stored fields themselves: a property sheet hands out their addresses.
  const CQdrGePoint2d& center() const { return m_center; }
  const CQdrGeVector2d& minorAxis() const { return m_minorAxis; }
  const CQdrGeVector2d& majorAxis() const { return m_majorAxis; }
  const double& minorRadius() const { return m_minorRadius; }
  const double& majorRadius() const { return m_majorRadius; }
  const double& startAng() const { return m_startAng; }
  const double& endAng() const { return m_endAng; }
  bool isClockWise() const { return m_isClockWise != 0; }

  /// Eccentric parameters of the ends, in [0, 2 pi].
  double startEllAng() const;
  double endEllAng() const;

  /// In the frame of the ellipse: relative to the center, x along the major axis.
  CQdrGePoint2d startPoint() const;
  CQdrGePoint2d endPoint() const;

  bool isCircular(double tol) const;

  /// The chain of 100 steps; true when it has vertices.
  bool getGePolyline(CQdrGePolyline2d& result) const;

  /// The chain in use, valid until the next change.
  const CQdrGePolyline2d& polyline() const { return m_polyline; }

  /// Rebuilds the chain with an arc for every two of `steps` steps of a full turn. Always true.
  bool setGePolyline(int steps);

  /// True when the distances to the foci sum up to at most twice the major radius plus `margin` and
  /// the polar angle lies strictly between the stored angles, each widened by `margin`. The foci
  /// are looked for along the major axis: with a larger minor radius no point is inside.
  bool isInside(const CQdrGePoint2d& point, double margin) const;

  bool isEqualTo(const CQdrGeEllipArc2d& ellipse, const double& tol) const;
  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;

  /// `sx` multiplies the major radius and `sy` the minor one, whatever the axes' directions.
  CQdrGeEllipArc2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeEllipArc2d& scaleBy(double s, const CQdrGePoint2d& center) override;

  /// Mirrors center and axes; the angles of an arc become -end and -start, those of a whole ellipse
  /// stay.
  CQdrGeEllipArc2d& mirror(const CQdrGeLine2d& line) override;
  CQdrGeEllipArc2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeEllipArc2d& translateBy(const CQdrGeVector2d& v) override;

  /// Transforms center and axes, the axes too with the translation of `m`. The radii stay.
  CQdrGeEllipArc2d& transformBy(const CQdrGeMatrix2d& m) override;

  bool isInsidePoint(const CQdrGePoint2d& point) const override;
  double length() const override;

  /// 0 if |from - to| < tol or from lies outside [0, 1]; otherwise |to - from| of the length.
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

  /// The radius of the arc of the chain that holds the place.
  double curvatureAtParam(double param) const override;
  double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const override;
  bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                        double tol) const override;

  /// Moves toward `side` by `dist`; 0 stands for the distance along the minor axis. Both radii
  /// change by the same length. False, with nothing changed, when the minor radius would vanish.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// For a point on the ellipse, the line from (majorRadius^2 / x, 0) to (0, minorRadius^2 / y):
  /// the tangent of an ellipse about the origin along the axes, for which alone it is right. False,
  /// with `line` as it is, off the ellipse.
  bool tangent(const CQdrGePoint2d& point, CQdrGeLine2d& line, double tol) const;

  /// The first two hits on the chain; `count` may be larger.
  bool intersectWith(const CQdrGeLine2d& line, int& count, CQdrGePoint2d& p1, CQdrGePoint2d& p2,
                     Intersect mode, double tol) const;

  /// The hits of the chain; those with an ellipse are the hits of both chains.
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     Intersect mode, double tol) const;
  bool intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;
  bool intersectWith(const CQdrGePolyline2d& polyline, int& count,
                     std::vector<CQdrGePoint2d>& points, Intersect mode, double tol) const;

  /// The whole ellipse whatever its angles: n + 1 points at even eccentric steps, each times
  /// `scale` and truncated. `points` is cleared first. At least one step is taken, at most a
  /// million.
  void getGrVertexArray(std::vector<CPoint>& points, int n, double scale) const;

  /// The arc, with the lengths of the axis vectors in the place of the radii: a step of a full turn
  /// / n apart, the last point exactly at the end. With n below 1, the two ends.
  void getGrVertexArray_Arc(std::vector<CPoint>& points, int n, double scale) const;

  /// Center, minor axis, major axis, major radius, minor radius, angles, flag: 85 bytes. Reading
  /// rebuilds the chain.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  // A point of the ellipse runs through `from` to `to` as its eccentric parameter grows.
  struct Sweep {
    double from = 0.0;
    double to = 0.0;
  };

  CQdrGePoint2d pointAtAngle(double angle, int world, double tol) const;
  double angleAtPoint(const CQdrGePoint2d& point, int world, double tol) const;
  double eccentricOf(double polar) const;
  Sweep eccentricSweep(double wholeStart, double wholeEnd) const;
  CQdrGePoint2d inFrame(const CQdrGePoint2d& worldPoint) const;
  bool isWhole() const;
  void storeArc(const CQdrGeCircArc2d& arc, bool isClockWise);
  void rebuild();

  CQdrGePoint2d m_center;
  CQdrGeVector2d m_minorAxis{0.0, 1.0};
  CQdrGeVector2d m_majorAxis{1.0, 0.0};
  double m_minorRadius = 1.0;
  double m_majorRadius = 1.0;
  double m_startAng = 0.0;
  double m_endAng;
  std::uint8_t m_isClockWise = 0;
  CQdrGePolyline2d m_polyline;
  int m_chainSteps = 0;
};
