#pragma once

#include "interaction/trackers/entity_tracker.h"

namespace qdr {

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
  // entity later, and show no grips by themselves.
  ShapeTracker(TrackerType type, CWnd* window);
  ShapeTracker(TrackerType type, CWnd* window, CQdrDbDatabase* database, bool create);
  ShapeTracker(TrackerType type, CWnd* window, CQdrDbEntity* entity, QdrDb::TransFormOption option,
               bool create);

  /// Puts the mouse into a grip of the working copy; `grip` counts from 1.
  virtual void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) = 0;

  /// Fills the record that takes the drag of a grip back, from the entity as it still stands.
  /// False when there is nothing to record.
  virtual bool recordGrip(const CQdrDbEntity& entity, int grip, tagUndoEditEntity& record) = 0;

 private:
  bool makeRecord(int handle, tagUndoEditEntity& record);
};

}  // namespace qdr
