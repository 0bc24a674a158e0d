#include "entities/polyline_steps.h"

#include <new>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/internal/trim_scheme.h"
#include "entities/polyline.h"

namespace qdr {

VertexLooks vertexLooks(const CQdrGePolyline2d& chain, int i) {
  VertexLooks looks{.bulge = chain.getBulgeAt(i)};
  chain.getWidthsAt(i, looks.startWidth, looks.endWidth);
  return looks;
}

tagUndoEditEntity PolylineSteps::step(int operation, int index) {
  tagUndoEditEntity record = undoRecord(m_polyline, operation);
  record.index = index;
  return record;
}

void PolylineSteps::add(tagUndoEditEntity& record) {
  record.continued = m_first ? 0 : 1;
  m_first = false;
  addUndo(m_polyline, record);
}

void PolylineSteps::pointWillChange(int i) {
  tagUndoEditEntity record = step(kUndoVertex, i);
  m_chain.getPointAt(i, record.point);
  add(record);
}

void PolylineSteps::bulgeWillChange(int i, double former) {
  tagUndoEditEntity record = step(kUndoBulge, i);
  record.vector.x = former;
  add(record);
}

void PolylineSteps::vertexWillBeAdded(int i) {
  tagUndoEditEntity record = step(kUndoVertexAdded, i);
  add(record);
}

void PolylineSteps::vertexWillBeRemoved(int i, int index) {
  // A log that takes nothing would not own the buffer either.
  if (!m_polyline.IsDbEntity() || !m_polyline.database()) return;
  tagUndoEditEntity record = step(kUndoVertexRemoved, index);
  m_chain.getPointAt(i, record.point);
  record.buffer = ::operator new(sizeof(VertexLooks));
  *static_cast<VertexLooks*>(record.buffer) = vertexLooks(m_chain, i);
  record.continued = m_first ? 0 : 1;
  m_first = false;
  if (m_polyline.database()->m_undoHandler.AddUndo(record) == 0) ::operator delete(record.buffer);
}

void PolylineSteps::willBeOpened() {
  tagUndoEditEntity record = step(kUndoOpened, -1);
  record.vector.x = m_chain.getBulgeAt(m_chain.numVerts() - 1);
  add(record);
}

}  // namespace qdr
