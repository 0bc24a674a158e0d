#pragma once

#include "interaction/trackers/shape_tracker.h"

class CQdrDbCSpline;

/// A cubic spline under the mouse: a grip is a vertex, one at which the curve breaks a diamond.
/// While it is made the mouse is the vertex behind those that the command has added.
class QDR_API CQdrCSplineTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrCSplineTracker(CWnd* window) : ShapeTracker(eTrackCSpline, window) {}
  CQdrCSplineTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackCSpline, window, database, create) {}
  CQdrCSplineTracker(CWnd* window, CQdrDbEntity* spline, QdrDb::TransFormOption option,
                     bool create);

  /// The curve that a command makes.
  void SetCSpline(CQdrDbCSpline* spline);
  /// Draws the marks of the vertices by their option; true when there is one.
  bool DrawSelBoxByProperty() { return DrawBoxis(); }

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  std::vector<bool> diamonds() const override;
  bool isMadeByPicks() const override { return true; }
  void runOwnCommand(CWnd* window, int handle, unsigned command) override;
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
