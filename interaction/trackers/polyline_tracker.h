#pragma once

#include "interaction/trackers/shape_tracker.h"

class CQdrDbPolyline;

/// A polyline under the mouse. A grip is a vertex, or the middle of an arc, a diamond, through
/// which the arc then runs.
///
/// While a polygon is made the polyline is the entity tracked and the option says how the mouse
/// gives it: 10000 plus the number of sides by its first edge, 20000 inscribed with a corner at the
/// mouse and 30000 circumscribed with the middle of a side there. While a chain is made the command
/// tracks a line or an arc in its stead, the segment that comes next: an arc leaves the previous
/// entity along its tangent with option 400, else it runs through the point of SetArcPoint.
class QDR_API CQdrPolylineTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrPolylineTracker(CWnd* window) : ShapeTracker(eTrackPolyline, window) {}
  CQdrPolylineTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackPolyline, window, database, create) {}
  CQdrPolylineTracker(CWnd* window, CQdrDbEntity* polyline, QdrDb::TransFormOption option,
                      bool create);

  enum CreateOption : unsigned {
    eThreePoints = 100,
    eTangent = 400,
    ePolygonByEdge = 10000,
    ePolygonInscribed = 20000,
    ePolygonCircumscribed = 30000
  };

  /// The second point of an arc segment.
  void SetArcPoint(const CQdrGePoint2d& second) { m_arcPoint = second; }
  /// Draws the marks of vertices and arcs; true when there is one.
  bool DrawSelBoxByProperty() { return DrawBoxis(); }

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

 protected:
  std::vector<bool> diamonds() const override;
  void runOwnCommand(CWnd* window, int handle, unsigned command) override;
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;

 private:
  void insertVertex(CQdrDbPolyline& polyline, int handle);
  void removeVertex(CQdrDbPolyline& polyline, int handle);
  void changeStart(CQdrDbPolyline& polyline, int handle);
  void flipSegment(CQdrDbPolyline& polyline, int handle);
  void makePolygon(CQdrDbPolyline& polygon, const CQdrGePoint2d& mouse) const;

  CQdrGePoint2d m_arcPoint;
};
