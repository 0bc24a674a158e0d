#pragma once

#include "interaction/trackers/shape_tracker.h"

/// An ellipse under the mouse. Grips 1 to 4 are the ends of its axes, counter-clockwise from that
/// of the major vector. While it is made the mouse is the end of the major vector, and the minor
/// radius stays.
class QDR_API CQdrEllipseTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrEllipseTracker(CWnd* window) : ShapeTracker(eTrackEllipse, window) {}
  CQdrEllipseTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackEllipse, window, database, create) {}
  CQdrEllipseTracker(CWnd* window, CQdrDbEntity* ellipse, QdrDb::TransFormOption option,
                     bool create);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
