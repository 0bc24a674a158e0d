#pragma once

#include "interaction/trackers/shape_tracker.h"

/// An elliptic arc under the mouse. Grips 1 to 4 are the ends of the axes of its ellipse, 5 its
/// start, 6 its end. While it is made the mouse is the end of the major vector first, and its end
/// angle once the start angle is told to stand.
class QDR_API CQdrEllipseArcTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrEllipseArcTracker(CWnd* window) : ShapeTracker(eTrackEllipseArc, window) {}
  CQdrEllipseArcTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackEllipseArc, window, database, create) {}
  CQdrEllipseArcTracker(CWnd* window, CQdrDbEntity* arc, QdrDb::TransFormOption option,
                        bool create);

  /// Says that the start angle stands: from here on the mouse gives the end angle.
  void SetStartAngleFlag(bool stands) { m_startStands = stands; }

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;

 private:
  bool m_startStands = false;
};
