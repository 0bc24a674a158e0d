#pragma once

#include "interaction/trackers/shape_tracker.h"

class CQdrDbSpline;

/// A spline under the mouse, shown with its control polygon: a grip is a control vertex.
///
/// While it is made the mouse is the vertex behind those of the control polygon, which the command
/// fills pick by pick along with the spline itself.
class QDR_API CQdrSplineTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrSplineTracker(CWnd* window) : ShapeTracker(eTrackSpline, window) {}
  CQdrSplineTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackSpline, window, database, create) {}
  CQdrSplineTracker(CWnd* window, CQdrDbEntity* spline, QdrDb::TransFormOption option, bool create);

  /// The control polygon as far as it has been picked; at first that of the spline tracked.
  void AddCtrlPoint(const CQdrGePoint2d& point) { m_picked.push_back(point); }
  /// An index out of range is ignored.
  void RemoveCtrlPointAt(int i);

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;
  void DrawCurrent() override;

 protected:
  bool isMadeByPicks() const override { return true; }
  void runOwnCommand(CWnd* window, int handle, unsigned command) override;
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;

 private:
  void changeFit(CQdrDbSpline& spline, CWnd* window);

  std::vector<CQdrGePoint2d> m_picked;
};
