// How the undo log plays the steps of a polyline.

#include <new>
#include <utility>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/internal/undo_rows.h"
#include "entities/polyline.h"
#include "entities/polyline_steps.h"

namespace {

CQdrDbPolyline& polylineOf(CQdrDbEntity& entity) {
  return static_cast<CQdrDbPolyline&>(entity);
}

void swapBulge(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  CQdrDbPolyline& polyline = polylineOf(entity);
  const double live = polyline.GetBulgeAt(record.index);
  if (polyline.SetBulgeAt(record.index, record.vector.x)) record.vector.x = live;
}

void swapPoint(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  CQdrDbPolyline& polyline = polylineOf(entity);
  CQdrGePoint2d live;
  polyline.GetPointAt(record.index, live);
  if (polyline.SetPointAt(record.index, record.point)) record.point = live;
}

// The record keeps the bulge that the last vertex has in the state to go back to, since closing
// forms one of its own.
void setClosed(tagUndoEditEntity& record, CQdrDbPolyline& polyline, bool closed) {
  const int last = polyline.NumVerts() - 1;
  const double live = polyline.GetBulgeAt(last);
  if (!polyline.SetClosed(closed)) return;
  polyline.SetBulgeAt(last, record.vector.x);
  record.vector.x = live;
  record.operation = closed ? qdr::kUndoClosed : qdr::kUndoOpened;
}

void undoClosing(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  setClosed(record, polylineOf(entity), false);
}

void undoOpening(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  setClosed(record, polylineOf(entity), true);
}

void removeVertex(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  CQdrDbPolyline& polyline = polylineOf(entity);
  if (record.index < 0 || record.index >= polyline.NumVerts()) return;
  polyline.GetPointAt(record.index, record.point);
  if (!record.buffer) record.buffer = ::operator new(sizeof(qdr::VertexLooks));
  *static_cast<qdr::VertexLooks*>(record.buffer) =
      qdr::vertexLooks(polyline.geometry(), record.index);
  polyline.RemoveVertexAt(record.index);
  record.operation = qdr::kUndoVertexRemoved;
}

void addVertex(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  if (record.index < 0) return;
  qdr::VertexLooks looks;
  if (record.buffer) looks = *static_cast<const qdr::VertexLooks*>(record.buffer);
  if (polylineOf(entity).AddVertexAt(static_cast<unsigned long>(record.index), record.point,
                                     looks.bulge, looks.startWidth, looks.endWidth))
    record.operation = qdr::kUndoVertexAdded;
}

void reverse(tagUndoEditEntity&, CQdrDbEntity& entity, bool) {
  polylineOf(entity).Reverse();
}

// The index counts on from the present start; the way back is the rest of the round.
void changeStart(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  CQdrDbPolyline& polyline = polylineOf(entity);
  const int back = polyline.NumVerts() - record.index - (polyline.IsClosed() ? 0 : 1);
  polyline.ChangeStart(back);
  record.index = back;
}

}  // namespace

namespace qdr {

const UndoRow kPolylineUndo[] = {
    {kUndoBulge, swapBulge},  {kUndoClosed, undoClosing},       {kUndoOpened, undoOpening},
    {kUndoVertex, swapPoint}, {kUndoVertexAdded, removeVertex}, {kUndoVertexRemoved, addVertex},
    {kUndoReversed, reverse}, {kUndoStartChanged, changeStart},
};

}  // namespace qdr
