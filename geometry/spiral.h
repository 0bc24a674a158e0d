#pragma once

#include <cstdint>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "platform/export.h"

class CFile;

/// A spiral about a center that gains the pitch in radius with every turn, held as a polyline of
/// short chords. It runs counter-clockwise and outward from the minimum to the maximum radius, its
/// first vertex in the direction of the start angle.
///
/// `scale` is a factor on the pitch from turn to turn: the first turn has the pitch itself, and in
/// each further one the pitch grows evenly until it is `scale` times that of the turn before.
///
/// Every measurement runs on the polyline, which `set` and `read` build; the single setters leave
/// it, and setGePolyline brings it up to date.
class QDR_API CQdrGeSpiral : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kSpiral;

  /// All zero but the scale, which is 1; no vertices.
  CQdrGeSpiral();
  CQdrGeSpiral(int divNum, const CQdrGePoint2d& center, double maxRadius, double minRadius,
               double offsetDist, double startAng, double scale = 1.0);
  CQdrGeSpiral(const CQdrGeSpiral& other);
  CQdrGeSpiral& operator=(const CQdrGeSpiral& other);

  /// Stores everything as given and builds the polyline. `divNum` is the number of chords per turn,
  /// `offsetDist` the pitch.
  CQdrGeSpiral& set(int divNum, const CQdrGePoint2d& center, double maxRadius, double minRadius,
                    double offsetDist, double startAng, double scale = 1.0);

  void setCenter(const CQdrGePoint2d& center) { m_center = center; }
  void setStartAngle(double angle) { m_startAng = angle; }
  void setDivNum(int divNum) { m_divNum = divNum; }

  /// A maximum radius not above the minimum, a minimum not below the maximum and a pitch not below
  /// their difference leave the earlier value.
  void setMaxRadius(double radius);
  void setMinRadius(double radius);
  void setOffsetDist(double dist);

  /// The stored fields themselves: a property sheet hands out their addresses.
  const CQdrGePoint2d& center() const { return m_center; }
  const double& maxRadius() const { return m_maxRadius; }
  const double& minRadius() const { return m_minRadius; }
  const double& offsetDist() const { return m_offsetDist; }
  const double& startAng() const { return m_startAng; }
  const std::int32_t& divNum() const { return m_divNum; }
  const double& scale() const { return m_scale; }

  /// Reverses the polyline; the fields stay.
  void reverse();

  /// Builds the polyline from the fields. A pitch not above 0 or fewer than one chord per turn ends
  /// it after its first step; it has at most 10 million vertices.
  void setGePolyline();

  /// The polyline becomes this one; the fields stay.
  void storeGePolyline(const CQdrGePolyline2d& polyline);

  /// The polyline; true when it has vertices.
  bool getGePolyline(CQdrGePolyline2d& result) const;
  /// The polyline in use, valid until the next change.
  const CQdrGePolyline2d& polyline() const;

  /// Every field, each within `tol`.
  bool isEqualTo(const CQdrGeSpiral& other, double tol) const;

  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;
  CQdrGeSpiral& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeSpiral& scaleBy(double s, const CQdrGePoint2d& center) override;
  CQdrGeSpiral& mirror(const CQdrGeLine2d& line) override;
  CQdrGeSpiral& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeSpiral& translateBy(const CQdrGeVector2d& v) override;

  /// Transforms center and vertices, multiplies radii and pitch by the scale of `m` and adds its
  /// rotation to the start angle. A mirrored spiral keeps its shape until it is built anew.
  CQdrGeSpiral& transformBy(const CQdrGeMatrix2d& m) override;
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

  /// Maximum and minimum radius, pitch, start angle, divNum (4 bytes), center: 56 bytes. The scale
  /// is not stored; reading keeps the one in place. The polyline of a spiral that was read is built
  /// at its first use, so an owner that stores one of its own pays for none.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  void build() const;

  double m_maxRadius = 0.0;
  double m_minRadius = 0.0;
  double m_offsetDist = 0.0;
  double m_startAng = 0.0;
  std::int32_t m_divNum = 0;
  CQdrGePoint2d m_center;
  mutable CQdrGePolyline2d m_polyline;
  double m_scale = 1.0;
  mutable bool m_isStale = false;
};
