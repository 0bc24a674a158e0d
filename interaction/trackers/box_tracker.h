#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A box under the mouse. Grips from the base point along the width: 1, 3, 5 and 7 are the sides,
/// which follow the mouse while the opposite one stays; 2 turns the box about its base point; 4 and
/// 6 scale it about the opposite corner by the length of the diagonal. While it is made the mouse
/// is the corner opposite the base point.
class QDR_API CQdrBoxTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrBoxTracker(CWnd* window) : ShapeTracker(eTrackBox, window) {}
  CQdrBoxTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackBox, window, database, create) {}
  CQdrBoxTracker(CWnd* window, CQdrDbEntity* box, QdrDb::TransFormOption option, bool create);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
