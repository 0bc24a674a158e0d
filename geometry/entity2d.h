#pragma once

#include <cstdint>

#include "geometry/matrix2d.h"
#include "geometry/point2d.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

class CFile;
class CQdrGeCircArc2d;
class CQdrGeLine2d;

namespace QdrGe {

/// Kind of a 2D curve; the numbers are part of the interface. 7 belongs to no class.
enum EntityId : std::int32_t {
  kCircArc = 1,
  kEllipArc = 2,
  kLine = 3,
  kPolyline = 4,
  kSpline = 5,
  kCSpline = 6,
  kRect = 8,
  kSpiral = 9,
};

}  // namespace QdrGe

/// Base of every 2D curve: one interface that entities and snaps use without knowing the curve.
///
/// A parameter runs from 0 to 1 over the whole curve in proportion to length unless the class says
/// otherwise; distances are in drawing units from the start. Normals are unit vectors. Callers
/// pass kCurveTolerance where they have no better tolerance; many bodies do not use it.
///
/// All operations are pure but isInsidePoint. Most of them have a body here all the same, the
/// behaviour that several classes share: an override takes it by one call of the base form.
///
/// A concrete class declares `static constexpr QdrGe::EntityId kTypeId`, passes it to the protected
/// constructor, adds its row to the table in entity2d.cpp, and defines copy constructor and copy
/// assignment itself, both over its own fields only: the assignment of this base dispatches on the
/// concrete class and would come back to it.
class QDR_API CQdrGeEntity2d {
 public:
  /// Which of two curves may be taken as extended beyond its ends, seen from the object whose
  /// intersectWith runs. Any other value is a caller's error and gives no result.
  enum Intersect : int {
    kExtendNone = 0,  // the point must lie on both
    kExtendThis = 1,  // the point must lie on the argument
    kExtendArg = 2,   // the point must lie on this curve
    kExtendBoth = 3,  // the point need lie on neither
  };

  virtual ~CQdrGeEntity2d() = default;

  /// Same kind and same geometry within `tol`. Two arcs never are; see CQdrGeCircArc2d.
  virtual bool isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const = 0;

  /// 1 when the point lies on the curve within `tol`, else 0.
  virtual int isOn(const CQdrGePoint2d& point, const double& tol) const = 0;

  /// Shared body of the next four: the matching matrix through transformBy.
  virtual CQdrGeEntity2d& scaleBy(double sx, double sy, const CQdrGePoint2d& center) = 0;
  virtual CQdrGeEntity2d& scaleBy(double s, const CQdrGePoint2d& center) = 0;
  virtual CQdrGeEntity2d& mirror(const CQdrGeLine2d& line) = 0;
  virtual CQdrGeEntity2d& rotateBy(double angle, const CQdrGePoint2d& center) = 0;
  virtual CQdrGeEntity2d& translateBy(const CQdrGeVector2d& v) = 0;
  virtual CQdrGeEntity2d& transformBy(const CQdrGeMatrix2d& m) = 0;

  /// True for a point inside a closed figure; here always false.
  virtual bool isInsidePoint(const CQdrGePoint2d& point) const;

  virtual double length() const = 0;

  /// Length between two parameters. Shared body: 0 if |from - to| < tol, if to < from, or if from
  /// lies outside [0, 1]; otherwise |length() (to - from)|, with `to` not held to 1.
  virtual double length(double from, double to, double tol) const = 0;

  /// Parameter reached from `from` after `dist` along the curve, forward or backward. Shared body:
  /// held down to 1 forward, up to 0 backward.
  virtual double paramAtDist(double from, double dist, bool forward, double tol) const = 0;

  /// Parameter of a point on the curve, -1 for a point off it.
  virtual double paramAtPoint(const CQdrGePoint2d& point, double tol) const = 0;

  /// Distance from the start at a parameter. Shared body: length() * param.
  virtual double distAtParam(double param) const = 0;

  /// Distance from the start at a point. Shared body: length() * paramAtPoint, so -length() off
  /// the curve.
  virtual double distAtPoint(const CQdrGePoint2d& point, double tol) const = 0;

  /// Shared body: pointAtParam(paramAtDist(0, dist, true)).
  virtual CQdrGePoint2d pointAtDist(double dist) const = 0;
  virtual CQdrGePoint2d pointAtParam(double param) const = 0;
  virtual CQdrGeVector2d normalAtParam(double param) const = 0;

  /// Shared body: normalAtParam(paramAtPoint).
  virtual CQdrGeVector2d normalAtPoint(const CQdrGePoint2d& point, double tol) const = 0;

  virtual CQdrGePoint2d closestPointTo(const CQdrGePoint2d& point, double tol) const = 0;

  /// The point on this curve; `onLine` receives the point on the line.
  virtual CQdrGePoint2d closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                       double tol) const = 0;

  /// Shared bodies: from the result of closestPointTo to `onLine`, or to the point.
  virtual double distanceTo(const CQdrGeLine2d& line, double tol) const = 0;
  virtual double distanceTo(const CQdrGePoint2d& point, double tol) const = 0;

  /// Shared bodies: 0.
  virtual double curvatureAtParam(double param) const = 0;
  virtual double curvatureAtPoint(const CQdrGePoint2d& point, double tol) const = 0;

  /// The vector from the foot of the perpendicular on this curve to `point`. False without a foot;
  /// `result` then stays as it is.
  virtual bool perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                double tol) const = 0;

  /// Raw fields of the concrete class, without its kind.
  virtual void save(CFile* file) const = 0;
  virtual void read(CFile* file) = 0;

  QdrGe::EntityId type() const { return m_type; }

  /// Exact match of the kind; there is no hierarchy.
  bool isKindOf(QdrGe::EntityId id) const { return m_type == id; }

  /// A new object of the concrete class, owned by the caller; null for an unknown kind.
  CQdrGeEntity2d* copy() const;

  /// Assigns as the concrete class does. This object must be of the source's class; of another one
  /// it stays as it is.
  CQdrGeEntity2d& operator=(const CQdrGeEntity2d& source);

  /// Assigns the arc to an arc or to a polyline; a curve of another kind stays as it is.
  CQdrGeEntity2d& operator=(const CQdrGeCircArc2d& arc);

  /// Same kind and isEqualTo within 0.001.
  bool operator==(const CQdrGeEntity2d& entity) const;

 protected:
  CQdrGeEntity2d() = default;
  explicit constexpr CQdrGeEntity2d(QdrGe::EntityId id) : m_type(id) {}
  CQdrGeEntity2d(const CQdrGeEntity2d&) = default;

 private:
  QdrGe::EntityId m_type{};
};

namespace qdr {

/// The curve as its concrete class, or null when it is of another one.
template <class Curve>
const Curve* curveAs(const CQdrGeEntity2d& entity) {
  return entity.isKindOf(Curve::kTypeId) ? static_cast<const Curve*>(&entity) : nullptr;
}
template <class Curve>
Curve* curveAs(CQdrGeEntity2d& entity) {
  return entity.isKindOf(Curve::kTypeId) ? static_cast<Curve*>(&entity) : nullptr;
}

constexpr bool isIntersectMode(CQdrGeEntity2d::Intersect mode) {
  return mode >= CQdrGeEntity2d::kExtendNone && mode <= CQdrGeEntity2d::kExtendBoth;
}

/// The mode as the other curve sees it: 1 and 2 change places.
constexpr CQdrGeEntity2d::Intersect swappedMode(CQdrGeEntity2d::Intersect mode) {
  if (mode == CQdrGeEntity2d::kExtendThis) return CQdrGeEntity2d::kExtendArg;
  if (mode == CQdrGeEntity2d::kExtendArg) return CQdrGeEntity2d::kExtendThis;
  return mode;
}

/// True when a hit counts in this mode; asks whether it lies on a curve only where that matters.
template <class OnThis, class OnArgument>
bool keepsHit(CQdrGeEntity2d::Intersect mode, OnThis onThis, OnArgument onArgument) {
  switch (mode) {
    case CQdrGeEntity2d::kExtendNone:
      return onArgument() && onThis();
    case CQdrGeEntity2d::kExtendThis:
      return onArgument();
    case CQdrGeEntity2d::kExtendArg:
      return onThis();
    case CQdrGeEntity2d::kExtendBoth:
      return true;
  }
  return false;
}

}  // namespace qdr
