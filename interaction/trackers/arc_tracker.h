#pragma once

#include "interaction/trackers/shape_tracker.h"

class CQdrDbArc;

/// An arc under the mouse. Grips: 1 start angle, 2 radius, 3 end angle.
///
/// While an arc is made the option says what the mouse gives: 100 the third of three points, 400
/// the end of an arc that leaves the previous entity along its tangent, anything else the end
/// angle.
class QDR_API CQdrArcTracker : public qdr::ShapeTracker {
 public:
  enum CreateOption : unsigned { eEndAngle = 0, eThreePoints = 100, eTangent = 400 };

  explicit CQdrArcTracker(CWnd* window) : ShapeTracker(eTrackArc, window) {}
  CQdrArcTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackArc, window, database, create) {}
  CQdrArcTracker(CWnd* window, CQdrDbEntity* arc, QdrDb::TransFormOption option, bool create);

  /// The second point of a three-point arc, which begins at the start of the rubber line.
  void SetArcPoint(const CQdrGePoint2d& second) { m_arcPoint = second; }

  void CheckCreateOption(CQdrDbEntity* entity, CPoint& point) override;

  /// Lets an arc leave the start of the rubber line along the previous entity and end at a point;
  /// straight on and straight back there is none, and then it stays as it is.
  void setTangentEnd(CQdrDbArc& arc, const CQdrGePoint2d& end) const;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;

 private:
  CQdrGePoint2d m_arcPoint;
};

namespace qdr {

/// Direction in which an entity leaves through its end that is nearest to a point: along a line, or
/// along the tangent of an arc. False for any other class.
bool endDirection(const CQdrDbEntity& entity, const CQdrGePoint2d& at, CQdrGeVector2d& direction);

/// Bulge of the arc from `start` to `end` that leaves `start` along `direction`: the tangent of
/// half the angle between direction and chord. 0 when the chord has no length, and for the way
/// straight back, which no arc takes.
double tangentBulge(const CQdrGePoint2d& start, const CQdrGeVector2d& direction,
                    const CQdrGePoint2d& end);

/// Makes the arc that leaves the previous entity at `start` along its tangent and ends at `end`;
/// without a previous line or arc, straight on and straight back it stays as it is.
void leaveAlongTangent(CQdrDbArc& arc, const CQdrDbEntity* previous, const CQdrGePoint2d& start,
                       const CQdrGePoint2d& end);

}  // namespace qdr
