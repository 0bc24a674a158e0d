#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A spiral under the mouse. Grips: 1 its beginning, the minimum radius; 2 the point one turn on,
/// which gives the pitch; 3 its end, the maximum radius. Each goes by the distance from the centre,
/// and a value that makes no spiral leaves the earlier one.
class QDR_API CQdrSpiralTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrSpiralTracker(CWnd* window) : ShapeTracker(eTrackSpiral, window) {}
  CQdrSpiralTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackSpiral, window, database, create) {}
  CQdrSpiralTracker(CWnd* window, CQdrDbEntity* spiral, QdrDb::TransFormOption option, bool create);

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
