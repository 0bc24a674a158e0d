#pragma once

#include <cstdint>

#include "geometry/point2d.h"
#include "platform/export.h"

class CFile;
class CQdrDbRect;

/// A vertex of a symbol outline: a point and whether the pen is down on the way to it.
class QDR_API CQdrDbSymPoint : public CQdrGePoint2d {
 public:
  /// At the origin, pen down.
  CQdrDbSymPoint() = default;
  CQdrDbSymPoint(const CQdrGePoint2d& point, int penMode);
  CQdrDbSymPoint(const CQdrDbSymPoint&) = default;
  CQdrDbSymPoint& operator=(const CQdrDbSymPoint&) = default;

  void Set(const CQdrGePoint2d& point, int penMode);
  void SetPoint(const CQdrGePoint2d& point);
  CQdrGePoint2d GetPoint() const { return *this; }

  /// Kept in one byte: non-zero is pen down.
  void SetPenMode(int penMode) { m_penMode = static_cast<std::int8_t>(penMode); }
  bool GetPenMode() const { return m_penMode != 0; }

  /// A box of size zero at the point.
  CQdrDbRect GetOutRect() const;

  /// 21 bytes: the point, then the pen mode.
  void save(CFile* file) const override;
  void read(CFile* file) override;

 private:
  std::int8_t m_penMode = 1;
};
