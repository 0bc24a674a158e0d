#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/entity2d.h"
#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

class CFile;
class CQdrGeCircArc2d;
class CQdrGeLine2d;

/// A cubic through its control points, sampled into a list of points.
///
/// A control point carries an option byte; a non-zero one breaks the curve into spans of their own
/// there, which meet at an angle. Such a point is a real control point, all others are ordinary.
/// The tangents come from two sweeps over the system of a curve with continuous second derivative:
/// that count is part of the curve's shape, which is close to such a curve and not equal to it.
///
/// Every measurement runs on the polyline of the samples; it follows a change at its next use.
class QDR_API CQdrGeCSpline2d : public CQdrGeEntity2d {
 public:
  static constexpr QdrGe::EntityId kTypeId = QdrGe::kCSpline;

  /// A curve has about so many samples at the most: beyond them its step grows.
  static constexpr int kMaxSamples = 250'000;

  /// The sample step in drawing units; 0 and less stand for 0.5.
  explicit CQdrGeCSpline2d(double step = 0.0);
  explicit CQdrGeCSpline2d(const std::vector<CQdrGePoint2d>& points);
  CQdrGeCSpline2d(const CQdrGeCSpline2d& other);
  CQdrGeCSpline2d& operator=(const CQdrGeCSpline2d& other);

  /// Options that are not given are 0. The closed flag and the step stay.
  void set(const std::vector<CQdrGePoint2d>& points);
  void set(const std::vector<CQdrGePoint2d>& points, const std::vector<unsigned char>& options);

  /// The sample step of all further sampling.
  void setResolution(double step);
  double resolution() const { return m_step; }

  // Control points. Indices out of range are refused with false.

  void appendCtrlPt(const CQdrGePoint2d& point, unsigned char option = 0);

  /// Inserts before control point `i`; `i` equal to the count appends.
  bool addCtrlPt(int i, const CQdrGePoint2d& point, unsigned char option = 0);
  /// The form without an option keeps the one in place.
  bool setPointAt(int i, const CQdrGePoint2d& point);
  bool setPointAt(int i, const CQdrGePoint2d& point, unsigned char option);
  bool removeCtrlPtAt(int i);
  bool getCtrlPtAt(int i, CQdrGePoint2d& point) const;

  /// 0 out of range.
  unsigned char getCtrlOption(int i) const;
  bool setControlOption(int i, unsigned char option);

  /// Some option is not 0.
  bool hasCtrlOption() const;
  int numCtrlVerts() const { return static_cast<int>(m_points.size()); }
  const std::vector<CQdrGePoint2d>& ctrlPoints() const { return m_points; }
  const std::vector<unsigned char>& ctrlOptions() const { return m_options; }

  // Views of the control list by index; -1 stands for none.

  /// Number of real control points.
  int numRealCtrlVerts() const;

  /// Index in the control list of the real control point number `i`, counted from 0.
  int getRealControlPtIndex(int i) const;

  /// Index of the first control point within `tol` of `point`.
  int getControlPtIndex(const CQdrGePoint2d& point, double tol) const;

  /// Index of the control point whose span holds sample `vertex` of the curve: the sample at a
  /// control point belongs to the span that starts there.
  int getVertexControlPtIndex(int vertex) const;

  /// Makes control point `i` a real one.
  bool addRealControlPoint(int i) { return setControlOption(i, 1); }

  /// Makes every control point an ordinary one.
  void clearRealControl();

  /// The stored flag.
  bool isClosed() const { return m_closed != 0; }

  /// The flag, or first and last control point less than 0.02 apart.
  bool closed() const;

  /// Stores the flag; setting it drops the last control point when it lies within 0.001 of the
  /// first.
  void setClosed(bool closed);
  void reverse();

  // The sampled curve.

  /// Samples the curve. False, with no samples, for fewer than two control points.
  bool genCurve();

  /// Points `points` at the samples, valid until the next change, and answers their number; -1
  /// without a curve, and then `points` stays.
  int getCurve(const std::vector<CQdrGePoint2d>*& points);

  /// Frees the samples where there are far more of them than control points, so that many curves
  /// hold little memory for what little they are made of. The next use draws them anew.
  void releaseCurve() const;

  /// The samples as a polyline, all bulges 0. False, with an empty result, without a curve. Two
  /// names of one call.
  bool getGePolyline(CQdrGePolyline2d& result) const;
  bool asPolyline(CQdrGePolyline2d& result) const { return getGePolyline(result); }

  /// The samples from control point `first` to control point `last`.
  bool getSubGePolyline(CQdrGePolyline2d& result, int first, int last) const;

  /// Joins `other` at an end nearer than 0.02, reversed where needed; the shared point stays once,
  /// as it stands here. `where` as in CQdrGePolyline2d::appendPolyline. False when no ends meet or
  /// either is closed. Of an arc a point every 15 degrees and its end become control points.
  bool appendCSpline(const CQdrGeCSpline2d& other, int& where);
  bool appendCSpline(const CQdrGeLine2d& line, int& where);
  bool appendCSpline(const CQdrGeCircArc2d& arc, int& where);

  /// Offsets the polyline of the samples toward `side` and moves every control point to its closest
  /// place on the result; those that fall together become one. False, with nothing changed, when
  /// nothing remains.
  bool offset(const CQdrGePoint2d& side, double dist);

  /// The offset polyline of the samples, to the left of the travel, or to the right for a negative
  /// distance.
  bool getOffsetPolyline(CQdrGePolyline2d& result, double dist) const;

  /// Equal flag and options, and every control point within `tol`.
  bool isEqualTo(const CQdrGeCSpline2d& other, double tol) const;

  bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const override;
  int isOn(const CQdrGePoint2d& point, const double& tol) const override;
  CQdrGeCSpline2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) override;
  CQdrGeCSpline2d& scaleBy(double s, const CQdrGePoint2d& center) override;
  CQdrGeCSpline2d& mirror(const CQdrGeLine2d& line) override;
  CQdrGeCSpline2d& rotateBy(double angle, const CQdrGePoint2d& center) override;
  CQdrGeCSpline2d& translateBy(const CQdrGeVector2d& v) override;
  CQdrGeCSpline2d& transformBy(const CQdrGeMatrix2d& m) override;
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

  /// Closed flag (1 byte), point count (4), then point (20) and option (1) in pairs.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  const CQdrGePolyline2d& polyline() const;
  CQdrGePolyline2d outline() const;
  double boundedStep() const;
  bool sample() const;
  void sampleStretch(const std::vector<CQdrGePoint2d>& points, bool isRing, double step,
                     std::size_t firstPoint) const;
  std::size_t firstSampled() const;
  bool join(std::vector<CQdrGePoint2d> points, std::vector<unsigned char> options, int& where);

  double m_step = 0.0;
  std::uint8_t m_closed = 0;
  std::vector<CQdrGePoint2d> m_points;
  std::vector<unsigned char> m_options;

  // The samples, the index of the sample at each control point, and the polyline of the samples.
  mutable std::vector<CQdrGePoint2d> m_curve;
  mutable std::vector<std::size_t> m_samplesAt;
  mutable CQdrGePolyline2d m_polyline;
  mutable bool m_isStale = true;
};
