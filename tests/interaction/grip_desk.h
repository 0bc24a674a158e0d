#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "entities/rect.h"
#include "interaction/trackers/entity_tracker.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

// Entities by their grips on a desk.
namespace qdr::test {

using Entity = std::unique_ptr<CQdrDbEntity>;

// Of every class that has a tracker, in the view of the desk.
inline const char* const kEntities[] = {
    "line 20 20 80 60",
    "arc 60 50 30 20 200",
    "circle 60 50 30",
    "rect 20 80 60 40",
    "box 40 30 60 40 0",
    "box 60 20 50 30 70",
    "ellipse 60 50 40 0 0.5",
    "ellipsearc 60 50 40 10 0.5 20 200",
    "polyline 20 20 0 60 20 1 60 60 0 20 60 0",
    "loop 20 20 0 60 20 0 60 60 1",
    "spline 0.4 20 20 60 80 100 20 140 80",
    "cspline 20 20 0 60 80 1 100 20 0 140 80 0",
    "spiral 8 60 50 40 10 12 0",
    "cobweb 60 50 10 30 5 15",
};

class GripDesk : public testing::Test {
 protected:
  ~GripDesk() override { EXPECT_FALSE(desk.script().isExhaustedUnannounced()); }

  Entity made(const std::string& text) { return entityFromText(*desk.drawing, text); }

  CQdrDbEntity* added(const std::string& text) {
    CQdrDbEntity* const entity = made(text).release();
    CQdrDbObjectId id;
    desk.drawing->addEntity(entity, id);
    return entity;
  }

  CQdrDbEntityTracker& grip(CQdrDbEntity* entity) {
    desk.paint();
    desk.handler().DoDragEntity(entity, CPoint(0, 0));
    return *desk.handler().trackers().back();
  }

  // A list owns the buffers of its records: they go with the entities that they name.
  void forgetSteps() {
    EntitySet all;
    for (const CQdrDbObjectId& id : desk.drawing->m_blockTable.getCurrentRecord()->getEntitySet())
      all.insert(id.getPObject());
    undo.forgetEntities(all);
  }

  // Takes the entity out of sight and empties the log, so that the next one stands alone.
  void putAway(CQdrDbEntity* entity) {
    desk.handler().ClearTracker(true);
    entity->setErased();
    forgetSteps();
  }

  CPoint deviceOf(const CQdrGePoint2d& world) { return desk.record().GetDecivePoint(world); }
  CWnd* window() { return desk.handler().GetDispWindow(); }

  int dragTo(CQdrDbEntityTracker& tracker, int handle, const CQdrGePoint2d& to) {
    desk.script().move(deviceOf(to).x, deviceOf(to).y).up();
    return tracker.Track(window(), deviceOf(tracker.GetEntity()->getGripPoint(handle)), handle);
  }

  Desk desk;
  CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
};

inline std::vector<CQdrGePoint2d> gripsOf(CQdrDbEntity& entity) {
  std::vector<CQdrGePoint2d>* grips = nullptr;
  entity.getGripPointVec(grips);
  return *grips;
}

// Grips and box tell all that a drag can change.
inline testing::AssertionResult sameShape(CQdrDbEntity& actual, CQdrDbEntity& expected) {
  constexpr double kNear = 1e-6;
  std::vector<CQdrGePoint2d> a = gripsOf(actual);
  std::vector<CQdrGePoint2d> b = gripsOf(expected);
  for (auto [entity, points] : {std::pair{&actual, &a}, std::pair{&expected, &b}}) {
    const CQdrDbRect box = entity->GetOutRect();
    points->push_back(box.LeftTop());
    points->push_back(box.RightBottom());
  }
  if (a.size() != b.size()) return testing::AssertionFailure() << a.size() << " points";
  for (std::size_t i = 0; i < a.size(); ++i) {
    // The corners of the box of a drawn polygon are whole hundredths.
    const double tol = i + 2 < a.size() ? kNear : 0.02;
    if (!(a[i].distanceTo(b[i]) <= tol))
      return testing::AssertionFailure() << "point " << i << ": (" << a[i].x << ", " << a[i].y
                                         << ") for (" << b[i].x << ", " << b[i].y << ")";
  }
  return testing::AssertionSuccess();
}

}  // namespace qdr::test
