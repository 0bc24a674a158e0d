#pragma once

#include <cstddef>
#include <vector>

#include "database/referred_record.h"
#include "database/sym_point.h"
#include "geometry/point3d.h"
#include "platform/export.h"

/// The outline of a symbol: points with pen modes, and a base. The host fills it.
class QDR_API CQdrDbSymbolTableRecord : public CQdrDbReferredRecord {
 public:
  explicit CQdrDbSymbolTableRecord(CQdrDbDatabase* database);

  /// Copies name, base and points. For a record outside a table.
  CQdrDbSymbolTableRecord& operator=(const CQdrDbSymbolTableRecord& source);

  /// Names the record "*S" and the next number of the symbol table; `buffer` of at least kNameSize
  /// characters takes the name too.
  void SetAutoName(wchar_t* buffer);

  /// A base in the plane has z 0.
  void SetBase(const CQdrGePoint2d& base) { m_base = CQdrGePoint3d(base.x, base.y, 0.0); }
  void SetBase(const CQdrGePoint3d& base) { m_base = base; }
  CQdrGePoint2d GetBase2() const { return {m_base.x, m_base.y}; }
  CQdrGePoint3d GetBase3() const { return m_base; }

  std::size_t NumPoints() const { return m_points.size(); }
  void AddPoint(const CQdrDbSymPoint& point) { m_points.push_back(point); }

  /// A default point for an index out of range and for an empty outline.
  CQdrDbSymPoint GetPointAt(std::size_t index) const;
  CQdrDbSymPoint GetStartPoint() const { return GetPointAt(0); }
  CQdrDbSymPoint GetEndPoint() const { return GetPointAt(m_points.size() - 1); }

  void save() override;
  void read() override;

 private:
  template <class Stream>
  void fields(Stream& stream);

  std::vector<CQdrDbSymPoint> m_points;
  CQdrGePoint3d m_base;
};
