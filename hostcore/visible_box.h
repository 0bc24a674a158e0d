#pragma once

#include "geometry/point2d.h"
#include "platform/export.h"

class CQdrDbDisplayTableRecord;

namespace qdr {

/// A rectangle of the world around visible entities.
struct QDR_API VisibleBox {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  bool known = false;

  bool isEmpty() const { return !known; }
  void widen(double by);
};

/// The box of all visible entities as they are drawn; entities whose box is not known count by
/// their grips. Empty when nothing is visible.
QDR_API VisibleBox visibleBox(CQdrDbDisplayTableRecord& display);

}  // namespace qdr
