#pragma once

#include "entities/entity.h"

/// A marker of one of fifteen shapes. One grip, the position. Size and shape of 0 stand for the
/// settings of the drawing; the shape is not in a file, so a point read from one follows them.
class QDR_API CQdrDbPoint : public CQdrDbEntity {
 public:
  static constexpr QdrDb::ClassType kClassType = QdrDb::eClassPoint;

  explicit CQdrDbPoint(CQdrDbDatabase* database = nullptr);
  explicit CQdrDbPoint(const CQdrGePoint2d& position);
  CQdrDbPoint(const CQdrDbPoint& other);

  CQdrDbEntity& operator=(const CQdrDbEntity& other) override;
  CQdrDbPoint& operator=(const CQdrDbPoint& other);

  void save() override;
  void read() override;
  /// A box of size zero at the position.
  CQdrDbRect GetOutRect() override;
  using CQdrDbEntity::Draw;
  void Draw(CDC* dc) override;
  void setGripPoints() override;
  int isOn(const CQdrGePoint2d& point, const double& tol) override;
  /// Both: the position is inside.
  bool checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;
  bool checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) override;

  /// A point crosses nothing: all forms answer false with a count of 0.
  bool intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points, int mode,
                     double tol) override;
  bool intersectWith(const CQdrGeEllipArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeCircArc2d& arc, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;
  bool intersectWith(const CQdrGeLine2d& line, int& count, std::vector<CQdrGePoint2d>& points,
                     int mode, double tol) override;

  /// Setters refresh the grip.
  void Set(double x, double y) { SetPosition({x, y}); }
  void SetPosition(const CQdrGePoint2d& position);
  const CQdrGePoint2d& Position() const { return m_position; }

  /// Half the side of the square around the position, in world units; 0 is the drawing's setting.
  void SetSize(double size) { m_size = size; }
  double Size() const { return m_size; }
  void SetFillMode(bool filled) { m_fill = filled ? 1 : 0; }
  bool FillMode() const { return m_fill != 0; }
  /// Shape 1 to 14; 0 is the drawing's setting.
  void SetPdMode(int mode) { m_mode = mode; }
  int PdMode() const { return m_mode; }
  /// A byte of the host's, kept in the file.
  void SetFlag(std::uint8_t flag) { m_flag = flag; }
  std::uint8_t GetFlag() const { return m_flag; }

  /// The logical square that the marker fills.
  CRect markerSquare() const;

 private:
  template <class Stream>
  void fields(Stream& stream);
  void takeMarker(const CQdrDbPoint& other);

  CQdrGePoint2d m_position;
  double m_size = 0.0;
  std::int32_t m_mode = 0;
  std::uint8_t m_fill = 0;
  std::uint8_t m_flag = 0;
};
