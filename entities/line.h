#pragma once

#include "entities/curve.h"
#include "geometry/line2d.h"

/// A segment. Grips: midpoint, start, end.
class QDR_API CQdrDbLine : public CQdrDbCurve {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassLine;

  /// Both ends at the origin.
  explicit CQdrDbLine(CQdrDbDatabase* database = nullptr);
  CQdrDbLine(const CQdrDbLine& other);
  CQdrDbLine(const CQdrGePoint2d& start, const CQdrGePoint2d& end);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbLine& operator=(const CQdrDbLine& other);

  void makeProperty() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  /// By midpoint and start, then by the sides: an end inside shows by the side it crosses, or not.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  /// Both ends inside.
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  CQdrDbEntity* Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                     double tol) override;
  /// Moves the end to the crossing nearest to the pick, the start for a pick before the middle.
  /// Crossings that lie on the line already do not count.
  bool Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
              double tol) override;
  bool getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) override;

  /// Setters refresh the grips.
  void set(const CQdrGePoint2d& start, const CQdrGePoint2d& end);
  void setStartPoint(const CQdrGePoint2d& point) { set(point, EndPoint()); }
  void setEndPoint(const CQdrGePoint2d& point) { set(StartPoint(), point); }
  const CQdrGePoint2d& StartPoint() const { return m_line.startPoint(); }
  const CQdrGePoint2d& EndPoint() const { return m_line.endPoint(); }

  const CQdrGeLine2d& geometry() const { return m_line; }

 private:
  /// Moves an end and records the way back.
  void moveStart(const CQdrGePoint2d& point);
  void moveEnd(const CQdrGePoint2d& point);

  CQdrGeLine2d m_line;
};
