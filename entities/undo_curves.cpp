// Operations of the undo log that belong to ellipses, boxes, spirals, splines and cobwebs.

#include <utility>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/angle_steps.h"
#include "entities/box.h"
#include "entities/cobweb.h"
#include "entities/cspline.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/internal/undo_rows.h"
#include "entities/spiral.h"
#include "entities/spline.h"

namespace {

// Major radius in x, minor radius in y.
template <class Ellipse>
void swapRadii(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& ellipse = static_cast<Ellipse&>(entity);
  const QdrXY live(ellipse.MajorRadius(), ellipse.MinorRadius());
  const QdrXY stored = std::exchange(record.vector, live);
  ellipse.setRadii(stored.x, stored.y);
}

void swapEllipseAngle(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& arc = static_cast<CQdrDbEllipseArc&>(entity);
  const double former = qdr::storedAngle(record);
  const bool atStart = record.index == 0;
  qdr::storeAngle(record, atStart ? arc.StartAngle() : arc.EndAngle());
  if (atStart)
    arc.SetStartAngle(former);
  else
    arc.SetEndAngle(former);
}

// Width in x, height in y.
void swapBoxSize(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& box = static_cast<CQdrDbBox&>(entity);
  const QdrXY stored = std::exchange(record.vector, QdrXY(box.Width(), box.Height()));
  box.Set(CQdrGePoint2d(box.BasePoint()), stored.x, stored.y, box.Rotation());
}

// Maximum and minimum radius in `vector`, the pitch in `point`.
void swapSpiralRadii(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& spiral = static_cast<CQdrDbSpiral&>(entity);
  const QdrXY live(spiral.MaxRadius(), spiral.MinRadius());
  const QdrXY radii = std::exchange(record.vector, live);
  const double pitch = std::exchange(record.point.x, spiral.OffsetDist());
  spiral.Set(spiral.DivNum(), CQdrGePoint2d(spiral.Center()), radii.x, radii.y, pitch,
             spiral.StartAng(), spiral.Scale());
}

template <class Spline>
void swapCtrlVertex(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& spline = static_cast<Spline&>(entity);
  CQdrGePoint2d live;
  if (!spline.GetCtrlVertexAt(record.index, live)) return;
  spline.SetCtrlPointAt(record.index, record.point);
  record.point = live;
}

// A removed vertex waits in `point`, its option in `value`.
unsigned char optionOf(const CQdrDbSpline&, std::int32_t) {
  return 0;
}

unsigned char optionOf(const CQdrDbCSpline& spline, std::int32_t index) {
  return spline.GetCtrlOption(index);
}

bool addVertex(CQdrDbSpline& spline, const tagUndoEditEntity& record) {
  return spline.AddCtrlVertexAt(record.index, record.point);
}

bool addVertex(CQdrDbCSpline& spline, const tagUndoEditEntity& record) {
  const auto option = static_cast<unsigned char>(record.value);
  return spline.AddCtrlVertexAt(record.index, record.point, option);
}

template <class Spline>
void removeCtrlVertex(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& spline = static_cast<Spline&>(entity);
  CQdrGePoint2d point;
  const unsigned char option = optionOf(spline, record.index);
  if (!spline.GetCtrlVertexAt(record.index, point)) return;
  if (!spline.RemoveCtrlVertexAt(record.index)) return;
  record.point = point;
  record.value = option;
  record.operation = qdr::kUndoVertexRemoved;
}

template <class Spline>
void addCtrlVertexAgain(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  if (addVertex(static_cast<Spline&>(entity), record)) record.operation = qdr::kUndoVertexAdded;
}

void swapFitParam(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& spline = static_cast<CQdrDbSpline&>(entity);
  spline.SetFitParam(std::exchange(record.vector.x, spline.GetFitParam()));
}

// The direction stays: this step builds the chain anew and nothing else.
void updateSpline(tagUndoEditEntity&, CQdrDbEntity& entity, bool) {
  static_cast<CQdrDbSpline&>(entity).updatePoly();
}

void reverseCSpline(tagUndoEditEntity&, CQdrDbEntity& entity, bool) {
  static_cast<CQdrDbCSpline&>(entity).Reverse();
}

// Of the vertex `index` the option in `value`.
void swapControlOption(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& spline = static_cast<CQdrDbCSpline&>(entity);
  const unsigned char live = spline.GetCtrlOption(record.index);
  if (spline.SetControlOption(record.index, static_cast<unsigned char>(record.value)))
    record.value = live;
}

// Outer radius in x, inner radius in y.
void swapCobwebRadii(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& web = static_cast<CQdrDbCobweb&>(entity);
  const QdrXY stored = std::exchange(record.vector, QdrXY(web.OuterRadius(), web.InnerRadius()));
  web.SetOuterRadius(stored.x);
  web.SetInnerRadius(stored.y);
}

void swapWings(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& web = static_cast<CQdrDbCobweb&>(entity);
  web.SetWings(std::exchange(record.value, web.Wings()));
}

}  // namespace

namespace qdr {

const UndoRow kEllipseUndo[] = {{kUndoRadius, swapRadii<CQdrDbEllipse>}};
const UndoRow kEllipseArcUndo[] = {{kUndoAngle, swapEllipseAngle},
                                   {kUndoRadius, swapRadii<CQdrDbEllipseArc>}};
const UndoRow kBoxUndo[] = {{kUndoVertex, swapBoxSize}};
const UndoRow kSpiralUndo[] = {{kUndoRadius, swapSpiralRadii}};
const UndoRow kSplineUndo[] = {{kUndoBulge, swapFitParam},
                               {kUndoVertex, swapCtrlVertex<CQdrDbSpline>},
                               {kUndoVertexAdded, removeCtrlVertex<CQdrDbSpline>},
                               {kUndoVertexRemoved, addCtrlVertexAgain<CQdrDbSpline>},
                               {kUndoReversed, updateSpline}};
const UndoRow kCSplineUndo[] = {{kUndoVertex, swapCtrlVertex<CQdrDbCSpline>},
                                {kUndoVertexAdded, removeCtrlVertex<CQdrDbCSpline>},
                                {kUndoVertexRemoved, addCtrlVertexAgain<CQdrDbCSpline>},
                                {kUndoReversed, reverseCSpline},
                                {kUndoControlOption, swapControlOption}};
const UndoRow kCobwebUndo[] = {{kUndoRadius, swapCobwebRadii}, {kUndoWings, swapWings}};

}  // namespace qdr
