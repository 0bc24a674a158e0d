// Steps of the undo log that belong to one class: taken back and done again, twice, they leave the
// entity as it was to the last byte.

#include <gtest/gtest.h>

#include "database/undo/undo_operations.h"
#include "entities/arc.h"
#include "entities/box.h"
#include "entities/circle.h"
#include "entities/cobweb.h"
#include "entities/cspline.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "entities/spiral.h"
#include "entities/spline.h"
#include "geometry/angle.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;
using qdr::test::bytesOf;

template <class Class>
Class& as(CQdrDbEntity& entity) {
  return static_cast<Class&>(entity);
}

struct Row {
  const char* name;
  const char* text;
  qdr::UndoCode code;
  /// Fills the record and does to the entity what it tells.
  void (*perform)(CQdrDbEntity& entity, tagUndoEditEntity& record);
  /// Rounding that a step may leave in a coordinate; then grips are compared.
  double rounding = 0.0;
};

template <class Class>
void changeRadius(CQdrDbEntity& entity, tagUndoEditEntity& record) {
  record.vector.x = as<Class>(entity).Radius();
  as<Class>(entity).setRadius(0.3);
}

template <class Class>
void changeRadii(CQdrDbEntity& entity, tagUndoEditEntity& record) {
  auto& ellipse = as<Class>(entity);
  record.vector = QdrXY(ellipse.MajorRadius(), ellipse.MinorRadius());
  ellipse.setRadii(0.7, 1.1);
}

template <class Class>
void moveCtrlVertex(CQdrDbEntity& entity, tagUndoEditEntity& record) {
  record.index = 1;
  as<Class>(entity).GetCtrlVertexAt(1, record.point);
  as<Class>(entity).SetCtrlPointAt(1, {8, -3});
}

template <class Class>
void addCtrlVertex(CQdrDbEntity& entity, tagUndoEditEntity& record) {
  record.index = 1;
  as<Class>(entity).AddCtrlVertexAt(1, {8, -3});
}

// The option of a vertex that goes waits in `value`.
template <class Class>
void removeCtrlVertex(CQdrDbEntity& entity, tagUndoEditEntity& record) {
  record.index = 1;
  record.value = 1;
  as<Class>(entity).GetCtrlVertexAt(1, record.point);
  as<Class>(entity).RemoveCtrlVertexAt(1);
}

double lastBulge(CQdrDbEntity& entity) {
  return as<CQdrDbPolyline>(entity).geometry().bulges().back();
}

const char* const kChain = "polyline -9 0 0.1 0 -9 0.5 9 0 0.3";
const char* const kLoop = "loop 0 0 0 10 0 0.5 10 10 0.25 0 10 0.1";
const char* const kSpline = "spline 0.5 0 0 10 0 10 10";
const char* const kCubic = "cspline 0 0 0 10 0 1 10 10 0";
const char* const kWeb = "cobweb 1 2 3 5 4 20";

const Row kRows[] = {
    {"arc start", "arc 1 2 5 33 90", qdr::kUndoAngle,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 0;
       record.vector = CQdrGeVector2d(as<CQdrDbArc>(entity).StartAngle());
       as<CQdrDbArc>(entity).setStartAngle(6.1);
     },
     1e-14},  // a vector alone has not all bits of an angle
    {"end of a whole elliptic arc", "ellipsearc 1 2 5 0 0.5 0 360", qdr::kUndoAngle,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 1;
       record.vector = CQdrGeVector2d(as<CQdrDbEllipseArc>(entity).EndAngle());
       as<CQdrDbEllipseArc>(entity).SetEndAngle(1.3);
     }},
    {"arc radius", "arc 1 2 5.1 0 90", qdr::kUndoRadius, changeRadius<CQdrDbArc>},
    {"circle radius", "circle 1 2 5.1", qdr::kUndoRadius, changeRadius<CQdrDbCircle>},
    {"ellipse radii", "ellipse 1 2 3 4 0.6", qdr::kUndoRadius, changeRadii<CQdrDbEllipse>},
    {"elliptic arc radii", "ellipsearc 1 2 3 4 0.6 10 80", qdr::kUndoRadius,
     changeRadii<CQdrDbEllipseArc>},
    {"cobweb radii", kWeb, qdr::kUndoRadius,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector = QdrXY(5, 3);
       as<CQdrDbCobweb>(entity).SetOuterRadius(8);
       as<CQdrDbCobweb>(entity).SetInnerRadius(2);
     }},
    // Both radii lie beyond those of the spiral, so they must be taken together.
    {"spiral radii and pitch", "spiral 4 0 0 4.25 0.75 2 0", qdr::kUndoRadius,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector = QdrXY(4.25, 0.75);
       record.point.x = 2;
       as<CQdrDbSpiral>(entity).Set(4, {0, 0}, 16.5, 7.5, 8, 0, 1);
     }},
    {"bulge", kChain, qdr::kUndoBulge,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 0;
       record.vector.x = 0.1;
       as<CQdrDbPolyline>(entity).SetBulgeAt(0, -0.7);
     }},
    {"fit parameter below 1", kSpline, qdr::kUndoBulge,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector.x = 0.5;
       as<CQdrDbSpline>(entity).SetFitParam(0.25);
     }},
    {"closing forms a bulge of its own", kChain, qdr::kUndoClosed,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector.x = lastBulge(entity);
       as<CQdrDbPolyline>(entity).SetClosed(true);
     }},
    {"opening", kLoop, qdr::kUndoOpened,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector.x = lastBulge(entity);
       as<CQdrDbPolyline>(entity).SetClosed(false);
     }},
    {"line end", "line 0.1 0.2 7 9", qdr::kUndoVertex,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 1;
       record.vector = CQdrGeVector2d(7 - 0.3, 9 - 0.7);
       as<CQdrDbLine>(entity).setEndPoint({0.3, 0.7});
     },
     1e-14},  // the way is added and taken off again
    {"box size", "box 1 2 6 4 90", qdr::kUndoVertex,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector = QdrXY(6, 4);
       as<CQdrDbBox>(entity).SetWidth(3);
       as<CQdrDbBox>(entity).SetHeight(-2);
     }},
    {"rectangle corners", "rect -4 6 2 3", qdr::kUndoVertex,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {-4, 6};
       record.vector = QdrXY(2, 3);
       as<CQdrDbRect>(entity).setLeftTop({1, 1});
       as<CQdrDbRect>(entity).setRightBottom({5, -1});
     }},
    {"vertex", kLoop, qdr::kUndoVertex,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 3;
       record.point = {0, 10};
       as<CQdrDbPolyline>(entity).SetPointAt(3, {-5, 6});
     }},
    {"control vertex", kSpline, qdr::kUndoVertex, moveCtrlVertex<CQdrDbSpline>},
    {"vertex of a cubic", kCubic, qdr::kUndoVertex, moveCtrlVertex<CQdrDbCSpline>},
    {"wings", kWeb, qdr::kUndoWings,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.value = 4;
       as<CQdrDbCobweb>(entity).SetWings(7);
     }},
    {"a vertex more, with its looks", kLoop, qdr::kUndoVertexAdded,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 2;
       as<CQdrDbPolyline>(entity).AddVertexAt(2, {12, 5}, -0.2, 0.5, 0.25);
     }},
    {"a last vertex less", "polyline 0 0 0 10 0 0 10 10 0", qdr::kUndoVertexRemoved,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 2;
       record.point = {10, 10};
       as<CQdrDbPolyline>(entity).RemoveVertexAt(2);
     }},
    {"a control vertex more", kSpline, qdr::kUndoVertexAdded, addCtrlVertex<CQdrDbSpline>},
    {"a control vertex less", kSpline, qdr::kUndoVertexRemoved, removeCtrlVertex<CQdrDbSpline>},
    {"a vertex of a cubic more", kCubic, qdr::kUndoVertexAdded, addCtrlVertex<CQdrDbCSpline>},
    {"a vertex of a cubic less", kCubic, qdr::kUndoVertexRemoved, removeCtrlVertex<CQdrDbCSpline>},
    {"reversing", kLoop, qdr::kUndoReversed,
     [](CQdrDbEntity& entity, tagUndoEditEntity&) { as<CQdrDbPolyline>(entity).Reverse(); }},
    {"option", kCubic, qdr::kUndoControlOption,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 1;
       record.value = 1;
       as<CQdrDbCSpline>(entity).SetControlOption(1, 0);
     }},
    {"another start", kLoop, qdr::kUndoStartChanged,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.index = 1;
       as<CQdrDbPolyline>(entity).ChangeStart(1);
     }},
    // The virtual transforms leave a cobweb alone, its steps do not.
    {"cobweb moved", kWeb, qdr::kUndoMoved,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector = CQdrGeVector2d(0.1, 7);
       as<CQdrDbCobweb>(entity).translateBy(CQdrGeVector2d(0.1, 7));
     },
     1e-9},
    {"cobweb mirrored", kWeb, qdr::kUndoMirrored,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {1, 0};
       record.vector = CQdrGeVector2d(2, 3);
       as<CQdrDbCobweb>(entity).mirror(CQdrGeLine2d(record.point, CQdrGeVector2d(2, 3)));
     },
     1e-9},
    {"cobweb turned", kWeb, qdr::kUndoRotated,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {3, -1};
       record.vector = CQdrGeVector2d(0.7);
       as<CQdrDbCobweb>(entity).rotateBy(0.7, {3, -1});
     },
     1e-9},
    {"cobweb scaled", kWeb, qdr::kUndoScaled,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {3, -1};
       record.vector = QdrXY(3, 3);
       as<CQdrDbCobweb>(entity).scaleBy(3, {3, -1});
     },
     1e-9},
};

// What an entity is, for comparing: its bytes and its grips.
struct State {
  explicit State(CQdrDbEntity& entity) : bytes(bytesOf(entity)) {
    std::vector<CQdrGePoint2d>* source = nullptr;
    entity.getGripPointVec(source);
    grips = *source;
  }

  bool isEqualTo(const State& other, double rounding) const {
    if (rounding == 0.0 && bytes != other.bytes) return false;
    if (grips.size() != other.grips.size()) return false;
    for (std::size_t i = 0; i < grips.size(); ++i)
      if (!(grips[i].distanceTo(other.grips[i]) <= rounding)) return false;
    return true;
  }

  std::string bytes;
  std::vector<CQdrGePoint2d> grips;
};

TEST(UndoSteps, GoBackAndForth) {
  CQdrDbDatabase database(true);
  CQdrUndoHandler& undo = database.m_undoHandler;
  for (const Row& row : kRows) {
    CQdrDbEntity* entity = addFromText(database, row.text);
    tagUndoEditEntity record;
    record.continued = 0;
    record.operation = row.code;
    record.entityId = entity->objectId();
    const State before(*entity);
    row.perform(*entity, record);
    const State after(*entity);
    EXPECT_FALSE(before.isEqualTo(after, row.rounding)) << row.name;
    undo.AddUndo(record);
    for (int round = 0; round < 2; ++round) {
      EXPECT_TRUE(undo.Undo());
      EXPECT_TRUE(State(*entity).isEqualTo(before, row.rounding)) << row.name << ", undo " << round;
      EXPECT_TRUE(undo.Redo());
      EXPECT_TRUE(State(*entity).isEqualTo(after, row.rounding)) << row.name << ", redo " << round;
    }
  }
}

// A vertex beyond the end of its entity: the step is passed over.
TEST(UndoSteps, PassOverWhatIsNotThere) {
  CQdrDbDatabase database(true);
  const std::pair<const char*, qdr::UndoCode> rows[] = {
      {kChain, qdr::kUndoBulge},         {kChain, qdr::kUndoVertex},
      {kChain, qdr::kUndoVertexAdded},   {kSpline, qdr::kUndoVertex},
      {kSpline, qdr::kUndoVertexAdded},  {kCubic, qdr::kUndoVertexAdded},
      {kCubic, qdr::kUndoControlOption}, {"circle 1 2 3", qdr::kUndoVertex},
  };
  for (const int index : {9, -1}) {
    for (const auto& [text, code] : rows) {
      CQdrDbEntity* entity = addFromText(database, text);
      const std::string before = bytesOf(*entity);
      tagUndoEditEntity record;
      record.operation = code;
      record.entityId = entity->objectId();
      record.index = index;
      database.m_undoHandler.AddUndo(record);
      EXPECT_TRUE(database.m_undoHandler.Undo());
      EXPECT_TRUE(database.m_undoHandler.Redo());
      EXPECT_EQ(bytesOf(*entity), before) << text << ", code " << code << ", index " << index;
    }
  }
}

}  // namespace
