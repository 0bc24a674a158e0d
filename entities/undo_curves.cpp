// Operations of the undo log that belong to ellipses, boxes, spirals, splines and cobwebs.

#include <utility>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/box.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/internal/undo_rows.h"
#include "entities/spiral.h"

namespace {

// Major radius in x, minor radius in y.
template <class Ellipse>
void swapRadii(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& ellipse = static_cast<Ellipse&>(entity);
  const QdrXY live(ellipse.MajorRadius(), ellipse.MinorRadius());
  const QdrXY stored = std::exchange(record.vector, live);
  ellipse.setRadii(stored.x, stored.y);
}

// Angles travel as unit vectors.
void swapEllipseAngle(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& arc = static_cast<CQdrDbEllipseArc&>(entity);
  const double former = CQdrGeVector2d(record.vector).angle();
  const bool atStart = record.index == 0;
  record.vector = CQdrGeVector2d(atStart ? arc.StartAngle() : arc.EndAngle());
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

}  // namespace

namespace qdr {

const UndoRow kEllipseUndo[] = {{kUndoRadius, swapRadii<CQdrDbEllipse>}};
const UndoRow kEllipseArcUndo[] = {{kUndoAngle, swapEllipseAngle},
                                   {kUndoRadius, swapRadii<CQdrDbEllipseArc>}};
const UndoRow kBoxUndo[] = {{kUndoVertex, swapBoxSize}};
const UndoRow kSpiralUndo[] = {{kUndoRadius, swapSpiralRadii}};

}  // namespace qdr
