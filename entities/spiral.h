#pragma once

#include <vector>

#include "entities/curve.h"
#include "geometry/spiral.h"

class CQdrDbPolyline;

/// A spiral, counter-clockwise and outward from the minimum to the maximum radius, drawn by the
/// polyline of its chords; see CQdrGeSpiral. Grips: centre, first point of the polyline, the point
/// one turn on, last point.
///
/// The polyline is stored in a file and taken from it as it stands: the scale of the pitch is not
/// stored, and so a spiral keeps its shape until a setter builds the polyline anew.
class QDR_API CQdrDbSpiral : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassSpiral;

  /// All zero; no polyline, which draws nothing.
  explicit CQdrDbSpiral(CQdrDbDatabase* database = nullptr);
  CQdrDbSpiral(const CQdrDbSpiral& other);
  /// `divNum` is the number of chords per turn, `offsetDist` the pitch, `scale` its factor from
  /// turn to turn.
  CQdrDbSpiral(int divNum, const CQdrGePoint2d& center, double maxRadius, double minRadius,
               double offsetDist, double startAngle, double scale);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbSpiral& operator=(const CQdrDbSpiral& other);

  void save() override;
  void read() override;
  /// The scale of the pitch stands under the name "Raito". The count of chords is shown as "%f",
  /// and its data is the address of a 32-bit integer.
  void makeProperty() override;
  /// Box of the polyline.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  /// Turns the polyline round until it is built anew.
  void Reverse() override;

  // A window crosses the spiral with a grip inside, the centre too, or a side crossed; all grips
  // inside it are taken for the whole spiral.

  /// Setters build the polyline anew and refresh the grips; the centre alone moves what is there.
  /// A maximum radius not above the minimum, a minimum not below the maximum and a pitch not below
  /// their difference leave the earlier value.
  void Set(int divNum, const CQdrGePoint2d& center, double maxRadius, double minRadius,
           double offsetDist, double startAngle, double scale);
  void SetCenter(const CQdrGePoint2d& center);
  void SetMaxRadius(double radius);
  void SetMinRadius(double radius);
  void SetStartAngle(double angle);
  void SetDivNum(int divNum);
  void SetOffsetDist(double distance);
  /// Builds the polyline anew from the fields.
  void updatePoly();

  const CQdrGePoint2d& Center() const { return m_spiral.center(); }
  double MaxRadius() const { return m_spiral.maxRadius(); }
  double MinRadius() const { return m_spiral.minRadius(); }
  double OffsetDist() const { return m_spiral.offsetDist(); }
  double StartAng() const { return m_spiral.startAng(); }
  int DivNum() const { return m_spiral.divNum(); }
  /// Factor of the pitch from turn to turn.
  double Scale() const { return m_spiral.scale(); }

  /// First point of the polyline within `distance` of the point, or -1.
  int IsVertex(const CQdrGePoint2d& point, double distance) const;

  /// Gives the polyline the points and the looks of the spiral.
  void ConvertToPolyline(CQdrDbPolyline& result) const;

  /// Adds a line to the drawing for each chord; the caller erases the spiral. The last point hands
  /// the last line over once more. False without a drawing or a chord.
  bool Explode();

  const CQdrGeSpiral& geometry() const { return m_spiral; }

 private:
  CQdrGeSpiral m_spiral;
};
