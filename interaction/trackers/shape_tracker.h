#pragma once

#include <functional>
#include <vector>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "interaction/trackers/entity_tracker.h"

namespace qdr {

/// A step of the log that holds one or two old values.
tagUndoEditEntity undoStep(UndoCode operation, const QdrXY& vector);
/// One that turns by an angle about a point.
tagUndoEditEntity turnStep(double angle, const CQdrGePoint2d& center);

/// What the trackers of single shapes do alike: the working copy, the whole-entity transforms, and
/// the commit of a drag with its undo record. A class adds its grips.
class ShapeTracker : public CQdrDbEntityTracker {
 public:
  void UpdateEntity(CQdrDbEntity* entity, int handle) override;
  void MoveEntity(CQdrDbEntity* entity) override;
  void RotateEntity(CQdrDbEntity* entity) override;
  void MirrorEntity(CQdrDbEntity* entity) override;
  /// A drag of length 0 has no scale and changes nothing.
  void ScaleEntity(CQdrDbEntity* entity) override;
  CQdrDbEntity* CopyEntity(CQdrDbEntity* entity) override;
  bool ControlEnd(int handle) override;

 protected:
  // The shapes of construction that every tracker of an entity has. The first two are bound to an
  // entity later, and show no grips by themselves; a class calls showGrips in its own third one.
  ShapeTracker(TrackerType type, CWnd* window);
  ShapeTracker(TrackerType type, CWnd* window, CQdrDbDatabase* database, bool create);
  ShapeTracker(TrackerType type, CWnd* window, CQdrDbEntity* entity, QdrDb::TransFormOption option,
               bool create);

  /// Puts the mouse into a grip of the working copy; `grip` counts from 1.
  virtual void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) = 0;

  using UndoSteps = std::vector<tagUndoEditEntity>;

  /// Appends the steps of the log that the drag of a grip makes, oldest first, from the entity as
  /// it still stands; the working copy is what it becomes.
  virtual void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) = 0;

  /// True for a shape that its command makes vertex by vertex: each pick is the command's to add,
  /// and what the mouse shows is not taken over.
  virtual bool isMadeByPicks() const { return false; }

  /// Explodes and divides; what a class has besides, it adds.
  void runOwnCommand(CWnd* window, int handle, unsigned command) override;

  /// Lets a change work on the entity while neither it nor its grips are on the screen.
  void editEntity(const std::function<void()>& change);
  /// Records a step of the entity; the first of a user action.
  void recordStep(tagUndoEditEntity step);
  /// A point that the user picks or types, from a grip on; false when there is none, or when the
  /// entity is gone meanwhile.
  bool askPoint(int handle, CQdrGePoint2d& point);
  /// Reverses a spline, or adds or removes a control vertex at a grip; false for other commands.
  template <class Spline>
  bool editVertices(Spline& spline, int handle, unsigned command);

 private:
  void commit();
  void explode(CWnd* window);
  void divide(CWnd* window);
  void record(int handle);
  void makeSteps(int handle, UndoSteps& steps);
};

}  // namespace qdr
