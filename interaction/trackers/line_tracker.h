#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A line under the mouse: its end follows while it is made; grips 1 and 2 are start and end.
class QDR_API CQdrLineTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrLineTracker(CWnd* window) : ShapeTracker(eTrackLine, window) {}
  CQdrLineTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackLine, window, database, create) {}
  CQdrLineTracker(CWnd* window, CQdrDbEntity* line, QdrDb::TransFormOption option, bool create);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
