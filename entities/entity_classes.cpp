#include "database/entity_classes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/box.h"
#include "entities/circle.h"
#include "entities/cobweb.h"
#include "entities/cspline.h"
#include "entities/drawn_box.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/internal/entity_transforms.h"
#include "entities/internal/undo_rows.h"
#include "entities/line.h"
#include "entities/point.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "entities/spiral.h"
#include "entities/spline.h"
#include "geometry/tolerance.h"

namespace {

using qdr::EntityClass;

constexpr std::uint8_t kPlain = CQdrDbObject::eEntity;
constexpr std::uint8_t kCompound = CQdrDbObject::eEntity | CQdrDbObject::eCompound;
constexpr std::uint8_t kDimension = CQdrDbObject::eDimension;
constexpr std::uint8_t kHidden = CQdrDbObject::eEntity | CQdrDbObject::eInvisible;

template <class Class>
CQdrDbEntity* make(CQdrDbDatabase* database) {
  return std::make_unique<Class>(database).release();
}

template <class Class>
CQdrDbEntity* copy(CQdrDbEntity& source) {
  return std::make_unique<Class>(static_cast<const Class&>(source)).release();
}

// Scaling leaves a point where it is.
constexpr EntityTransforms kPointTransforms = {
    .transformBy =
        [](CQdrDbEntity& entity, const CQdrGeMatrix2d& matrix) {
          auto& point = static_cast<CQdrDbPoint&>(entity);
          point.SetPosition(CQdrGePoint2d(point.Position()).transformBy(matrix));
        },
    .translateBy =
        [](CQdrDbEntity& entity, const CQdrGeVector2d& vector) {
          auto& point = static_cast<CQdrDbPoint&>(entity);
          point.SetPosition(CQdrGePoint2d(point.Position()) += vector);
        },
    .rotateBy =
        [](CQdrDbEntity& entity, double angle, const CQdrGePoint2d& center) {
          auto& point = static_cast<CQdrDbPoint&>(entity);
          point.SetPosition(CQdrGePoint2d(point.Position()).rotateBy(angle, center));
        },
    .scaleByXY = nullptr,
    .scaleBy = nullptr,
    .mirror =
        [](CQdrDbEntity& entity, const CQdrGeLine2d& line) {
          auto& point = static_cast<CQdrDbPoint&>(entity);
          point.SetPosition(CQdrGePoint2d(point.Position()).mirror(line));
        },
};

// The virtual transforms leave a cobweb alone; its tracker and the undo log move it. It stays
// round: a scaling takes the factor of x.
constexpr EntityTransforms kCobwebSteps = {
    .transformBy = nullptr,
    .translateBy =
        [](CQdrDbEntity& entity, const CQdrGeVector2d& vector) {
          static_cast<CQdrDbCobweb&>(entity).translateBy(vector);
        },
    .rotateBy =
        [](CQdrDbEntity& entity, double angle, const CQdrGePoint2d& center) {
          static_cast<CQdrDbCobweb&>(entity).rotateBy(angle, center);
        },
    .scaleByXY =
        [](CQdrDbEntity& entity, double sx, double, const CQdrGePoint2d& center) {
          static_cast<CQdrDbCobweb&>(entity).scaleBy(sx, center);
        },
    .scaleBy = nullptr,
    .mirror = [](CQdrDbEntity& entity,
                 const CQdrGeLine2d& line) { static_cast<CQdrDbCobweb&>(entity).mirror(line); },
};

// A marker without a size of its own is sized in pixels of the view, which `pixels` carries.
qdr::DrawnBox pointDrawnBox(CQdrDbEntity& entity) {
  const auto& point = static_cast<CQdrDbPoint&>(entity);
  qdr::DrawnBox box = qdr::drawnBoxOfOutRect(entity);
  const double half = std::max(point.Size(), 0.0);
  box.minX -= half;
  box.minY -= half;
  box.maxX += half;
  box.maxY += half;
  const CQdrDbDatabase* database = point.database();
  if (!(point.Size() > 0.0) && database) box.pixels += database->m_vars.pointSize;
  box.known = box.known && std::isfinite(half);
  return box;
}

qdr::DrawnBox knownIfFinite(qdr::DrawnBox box) {
  box.known = box.known && std::isfinite(box.minX) && std::isfinite(box.minY) &&
              std::isfinite(box.maxX) && std::isfinite(box.maxY);
  return box;
}

void enclose(qdr::DrawnBox& box, const CQdrGePoint2d& point) {
  box.minX = std::min(box.minX, point.x);
  box.minY = std::min(box.minY, point.y);
  box.maxX = std::max(box.maxX, point.x);
  box.maxY = std::max(box.maxY, point.y);
}

// What is drawn is a polygon within the ellipse; what is picked is the chain of arcs that stands
// for it. The box holds both.
qdr::DrawnBox ellipseDrawnBox(CQdrDbEntity& entity) {
  const CQdrGeEntity2d* curve = static_cast<CQdrDbCurve&>(entity).curve();
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  static_cast<const CQdrGeEllipArc2d*>(curve)->polyline().getMinMaxpoint(min, max);
  qdr::DrawnBox box = qdr::drawnBoxOfOutRect(entity);
  enclose(box, min);
  enclose(box, max);
  return knownIfFinite(box);
}

// A window takes hold of these by their grips as well, which lie off the curve.
qdr::DrawnBox boxWithGrips(CQdrDbEntity& entity) {
  qdr::DrawnBox box = qdr::drawnBoxOfOutRect(entity);
  std::vector<CQdrGePoint2d>* grips = nullptr;
  entity.getGripPointVec(grips);
  for (const CQdrGePoint2d& grip : *grips)
    enclose(box, grip);
  return knownIfFinite(box);
}

// Another view samples the curve at other steps: between two samples it may bow out, but not by
// more than they are apart.
qdr::DrawnBox csplineDrawnBox(CQdrDbEntity& entity) {
  qdr::DrawnBox box = boxWithGrips(entity);
  CQdrGePolyline2d samples;
  const CQdrGeCSpline2d& spline = static_cast<CQdrDbCSpline&>(entity).geometry();
  spline.getGePolyline(samples);
  spline.releaseCurve();
  double widest = 0.0;
  for (std::size_t i = 1; i < samples.points().size(); ++i)
    widest = std::max(widest, samples.points()[i - 1].distanceTo(samples.points()[i]));
  box.minX -= widest;
  box.minY -= widest;
  box.maxX += widest;
  box.maxY += widest;
  return knownIfFinite(box);
}

// Both circles reach beyond the grips, and the marker at the first inner point is sized in pixels.
qdr::DrawnBox cobwebDrawnBox(CQdrDbEntity& entity) {
  const auto& web = static_cast<CQdrDbCobweb&>(entity);
  const double radius = std::max(std::abs(web.InnerRadius()), std::abs(web.OuterRadius()));
  const CQdrGeVector2d reach(radius, radius);
  qdr::DrawnBox box = qdr::drawnBoxOfOutRect(entity);
  // The pen of the circles is as wide as that of the spokes.
  const double margin = std::abs(box.minX - entity.GetOutRect().LeftBottom().x);
  enclose(box, web.Center() - reach - CQdrGeVector2d(margin, margin));
  enclose(box, web.Center() + reach + CQdrGeVector2d(margin, margin));
  box.pixels += CQdrDbCobweb::kMarkerPixels;
  return knownIfFinite(box);
}

// How far beyond the box of its two ends and its arc a segment is drawn or picked. Arcs are drawn
// over any chord, those too short to count as segments included, and picked a little beyond their
// ends by angle.
double reachOfSegment(double chord, double bulge) {
  const double steepness = std::abs(bulge);
  if (!(steepness > qdr::kBulgeTolerance)) return 0.0;
  if (chord <= qdr::kCoincidentTolerance) return chord * (1.0 + steepness);
  const double radius = chord * (1.0 + steepness * steepness) / (4.0 * steepness);
  return radius * qdr::kAngleTolerance;
}

qdr::DrawnBox polylineDrawnBox(CQdrDbEntity& entity) {
  qdr::DrawnBox box = qdr::drawnBoxOfOutRect(entity);
  const CQdrGePolyline2d& chain = static_cast<CQdrDbPolyline&>(entity).geometry();
  const std::vector<CQdrGePoint2d>& points = chain.points();
  for (std::size_t i = 0; i < points.size(); ++i) {
    const CQdrGePoint2d& next = points[i + 1 < points.size() ? i + 1 : 0];
    const double reach = reachOfSegment(points[i].distanceTo(next), chain.bulges()[i]);
    if (reach == 0.0) continue;
    box.minX = std::min(box.minX, std::min(points[i].x, next.x) - reach);
    box.minY = std::min(box.minY, std::min(points[i].y, next.y) - reach);
    box.maxX = std::max(box.maxX, std::max(points[i].x, next.x) + reach);
    box.maxY = std::max(box.maxY, std::max(points[i].y, next.y) + reach);
  }
  return knownIfFinite(box);
}

// One row per class; what is left out of a row is null or false. A class joins the system here, and
// its tests by a row in the contract of all entities.
constexpr EntityClass kClasses[] = {
    {.type = QdrDb::eClassArc,
     .status = kPlain,
     .bodyBytes = 83,
     .make = make<CQdrDbArc>,
     .copy = copy<CQdrDbArc>,
     .undo = qdr::playUndoRows<qdr::kArcUndo>,
     .trimmable = true,
     .extendable = true},
    {.type = QdrDb::eClassCircle,
     .status = kPlain,
     .bodyBytes = 83,
     .make = make<CQdrDbCircle>,
     .copy = copy<CQdrDbCircle>,
     .undo = qdr::playUndoRows<qdr::kCircleUndo>,
     .trimmable = true},
    {.type = QdrDb::eClassEllipse,
     .status = kPlain,
     .bodyBytes = 124,
     .make = make<CQdrDbEllipse>,
     .copy = copy<CQdrDbEllipse>,
     .undo = qdr::playUndoRows<qdr::kEllipseUndo>,
     .drawnBox = ellipseDrawnBox,
     .trimmable = true},
    {.type = QdrDb::eClassEllipseArc,
     .status = kPlain,
     .bodyBytes = 124,
     .make = make<CQdrDbEllipseArc>,
     .copy = copy<CQdrDbEllipseArc>,
     .undo = qdr::playUndoRows<qdr::kEllipseArcUndo>,
     .drawnBox = ellipseDrawnBox,
     .trimmable = true,
     .extendable = true},
    {.type = QdrDb::eClassLine,
     .status = kPlain,
     .bodyBytes = 79,
     .make = make<CQdrDbLine>,
     .copy = copy<CQdrDbLine>,
     .undo = qdr::playUndoRows<qdr::kLineUndo>,
     .trimmable = true,
     .extendable = true},
    {.type = QdrDb::eClassPolyline,
     .status = kCompound,
     .bodyBytes = 49,
     .make = make<CQdrDbPolyline>,
     .copy = copy<CQdrDbPolyline>,
     .undo = qdr::playUndoRows<qdr::kPolylineUndo>,
     .drawnBox = polylineDrawnBox,
     .trimmable = true,
     .extendable = true,
     .explodable = true},
    {.type = QdrDb::eClassSpline,
     .status = kCompound,
     .bodyBytes = 56,
     .make = make<CQdrDbSpline>,
     .copy = copy<CQdrDbSpline>,
     .undo = qdr::playUndoRows<qdr::kSplineUndo>,
     .drawnBox = boxWithGrips,
     .explodable = true},
    {.type = QdrDb::eClassCSpline,
     .status = kCompound,
     .bodyBytes = 44,
     .make = make<CQdrDbCSpline>,
     .copy = copy<CQdrDbCSpline>,
     .undo = qdr::playUndoRows<qdr::kCSplineUndo>,
     .drawnBox = csplineDrawnBox,
     .trimmable = true,
     .extendable = true},
    {.type = QdrDb::eClassSpiral,
     .status = kCompound,
     .bodyBytes = 100,
     .make = make<CQdrDbSpiral>,
     .copy = copy<CQdrDbSpiral>,
     .undo = qdr::playUndoRows<qdr::kSpiralUndo>,
     .drawnBox = boxWithGrips,
     .explodable = true},
    {.type = QdrDb::eClassCobweb,
     .status = kPlain,
     .bodyBytes = 83,
     .undo = qdr::playUndoRows<qdr::kCobwebUndo>,
     .stepTransforms = &kCobwebSteps,
     .drawnBox = cobwebDrawnBox,
     .explodable = true},
    {.type = QdrDb::eClassBlockInsert,
     .status = kCompound,
     .bodyBytes = 253,
     .undo = qdr::undoNothing,
     .explodable = true},
    {.type = QdrDb::eClassHatch, .status = kPlain, .bodyBytes = 141},
    {.type = QdrDb::eClassPoint,
     .status = kPlain,
     .bodyBytes = 69,
     .make = make<CQdrDbPoint>,
     .copy = copy<CQdrDbPoint>,
     .transforms = &kPointTransforms,
     .drawnBox = pointDrawnBox},
    {.type = QdrDb::eClassText, .status = kPlain, .bodyBytes = 637},
    {.type = QdrDb::eClassRect,
     .status = kPlain,
     .bodyBytes = 71,
     .make = make<CQdrDbRect>,
     .copy = copy<CQdrDbRect>,
     .undo = qdr::playUndoRows<qdr::kRectUndo>,
     .transforms = &qdr::kTransformsOf<CQdrDbRect>},
    {.type = QdrDb::eClassDimension, .status = kDimension, .bodyBytes = 603},
    {.type = QdrDb::eClass2LineAngularDimension, .status = kDimension, .bodyBytes = 723},
    {.type = QdrDb::eClass3PointAngularDimension, .status = kDimension, .bodyBytes = 683},
    {.type = QdrDb::eClassAlignedDimension, .status = kDimension, .bodyBytes = 671},
    {.type = QdrDb::eClassDiametricDimension, .status = kDimension, .bodyBytes = 651},
    {.type = QdrDb::eClassHorizontalDimension, .status = kDimension, .bodyBytes = 1274},
    {.type = QdrDb::eClassLeaderDimension, .status = kDimension, .bodyBytes = 662},
    {.type = QdrDb::eClassRadialDimension, .status = kDimension, .bodyBytes = 651},
    {.type = QdrDb::eClassVerticalDimension, .status = kDimension, .bodyBytes = 1274},
    {.type = QdrDb::eClassBox,
     .status = kPlain,
     .bodyBytes = 83,
     .make = make<CQdrDbBox>,
     .copy = copy<CQdrDbBox>,
     .undo = qdr::playUndoRows<qdr::kBoxUndo>},
    {.type = QdrDb::eClassSymbol, .status = kCompound, .bodyBytes = 306, .undo = qdr::undoNothing},
    {.type = QdrDb::eClassTextTable, .status = kHidden, .bodyBytes = 205},
};

// Rows by class type; entities bear the numbers below that of the first table.
constexpr auto kRowByType = [] {
  std::array<const EntityClass*, QdrDb::eClassBlockTable> rows{};
  for (const EntityClass& row : kClasses)
    rows[row.type] = &row;
  return rows;
}();

}  // namespace

namespace qdr {

const EntityClass* entityClass(QdrDb::ClassType type) {
  const auto index = static_cast<std::uint32_t>(type);
  return index < kRowByType.size() ? kRowByType[index] : nullptr;
}

}  // namespace qdr
