#pragma once

#include "geometry/polyline2d.h"

class CQdrDbPolyline;
struct tagUndoEditEntity;

namespace qdr {

/// What a vertex has beside its point; the buffer of an undo record of a vertex added or removed.
struct VertexLooks {
  double bulge = 0.0;
  double startWidth = -1.0;
  double endWidth = -1.0;
};

/// Of a vertex that there is.
VertexLooks vertexLooks(const CQdrGePolyline2d& chain, int i);

/// Records the steps of one user action on a polyline before they are done: the first one starts
/// the action, the others continue it. Records nothing for a polyline outside a drawing.
class PolylineSteps {
 public:
  PolylineSteps(const CQdrDbPolyline& polyline, const CQdrGePolyline2d& chain)
      : m_polyline(polyline), m_chain(chain) {}

  void pointWillChange(int i);
  void bulgeWillChange(int i, double former);
  void vertexWillBeAdded(int i);
  /// `index` is where the vertex stands when its turn to be removed comes, `i` where it is now.
  void vertexWillBeRemoved(int i, int index);
  void willBeOpened();

 private:
  tagUndoEditEntity step(int operation, int index);
  void add(tagUndoEditEntity& record);

  const CQdrDbPolyline& m_polyline;
  const CQdrGePolyline2d& m_chain;
  bool m_first = true;
};

}  // namespace qdr
