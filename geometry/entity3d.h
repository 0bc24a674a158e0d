#pragma once

#include <cstdint>

#include "platform/export.h"

class CFile;

namespace QdrGe {

/// Kind of a 3D curve; the numbers are part of the interface.
enum Entity3DId : std::int32_t {
  kLine3d = 1,
  kPolyline3d = 2,
};

}  // namespace QdrGe

/// Base of the 3D curves. It fixes kind, copying and storing; measuring stands in the classes.
class QDR_API CQdrGeEntity3d {
 public:
  /// Which of two partners may be taken as extended beyond its ends; values as in 2D.
  enum Intersect : int { kExtendNone = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };

  constexpr virtual ~CQdrGeEntity3d() {}

  /// Raw fields of the concrete class, without its kind.
  virtual void save(CFile* file) const = 0;
  virtual void read(CFile* file) = 0;

  QdrGe::Entity3DId type() const { return m_type; }

  /// Exact match of the kind; there is no hierarchy.
  bool isKindOf(QdrGe::Entity3DId id) const { return m_type == id; }

  /// A new object of the concrete class, owned by the caller; null for an unknown kind.
  CQdrGeEntity3d* copy() const;

  /// Compares the kinds only: any two lines are equal here.
  bool operator==(const CQdrGeEntity3d& entity) const { return m_type == entity.m_type; }
  bool operator!=(const CQdrGeEntity3d& entity) const { return m_type != entity.m_type; }

 protected:
  explicit constexpr CQdrGeEntity3d(QdrGe::Entity3DId id) : m_type(id) {}
  constexpr CQdrGeEntity3d(const CQdrGeEntity3d&) = default;
  constexpr CQdrGeEntity3d& operator=(const CQdrGeEntity3d&) = default;

 private:
  QdrGe::Entity3DId m_type;
};
