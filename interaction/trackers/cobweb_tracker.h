#pragma once

#include "interaction/trackers/shape_tracker.h"

/// A cobweb under the mouse. Grips on the circles set their radii, the handle beyond the first
/// spoke turns it about its centre. The virtual transforms leave a cobweb alone, so this tracker
/// uses those of the class, and its copies are made by the class too.
class QDR_API CQdrDbCobwebTracker : public qdr::ShapeTracker {
 public:
  explicit CQdrDbCobwebTracker(CWnd* window) : ShapeTracker(eTrackCobweb, window) {}
  CQdrDbCobwebTracker(CWnd* window, CQdrDbDatabase* database, bool create)
      : ShapeTracker(eTrackCobweb, window, database, create) {}
  CQdrDbCobwebTracker(CWnd* window, CQdrDbEntity* web, QdrDb::TransFormOption option, bool create);

  void MoveEntity(CQdrDbEntity* entity) override;
  void RotateEntity(CQdrDbEntity* entity) override;
  void MirrorEntity(CQdrDbEntity* entity) override;
  void ScaleEntity(CQdrDbEntity* entity) override;
  CQdrDbEntity* CopyEntity(CQdrDbEntity* entity) override;

 protected:
  void dragGrip(CQdrDbEntity& entity, int grip, const CQdrGePoint2d& mouse) override;
  void recordGrip(const CQdrDbEntity& entity, int grip, UndoSteps& steps) override;
};
