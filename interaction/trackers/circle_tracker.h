#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A circle under the mouse: every grip but the centre sets its radius.
class QDR_API CQdrCircleTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrCircleTracker(CWnd* window) : ShapeTracker(eTrackCircle, window) {}
  CQdrCircleTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackCircle, window, database, create) {}
  CQdrCircleTracker(CWnd* window, CQdrDbEntity* circle, QdrDb::TransFormOption option, bool create);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
