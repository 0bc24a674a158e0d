#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A rectangle under the mouse: its second corner follows while it is made. Grips 1 to 4 are the
/// sides bottom, right, top, left; 5 to 8 the corners from the left bottom one counter-clockwise.
class QDR_API CQdrRectTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrRectTracker(CWnd* window) : ShapeTracker(eTrackRect, window) {}
  CQdrRectTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackRect, window, database, create) {}
  CQdrRectTracker(CWnd* window, CQdrDbEntity* rect, QdrDb::TransFormOption option, bool create);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
