#include <algorithm>
#include <utility>

#include "database/block_table_record.h"
#include "database/entity_classes.h"
#include "database/undo/undo_handler.h"
#include "database/undo/undo_operations.h"
#include "entities/angle_steps.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/internal/entity_transforms.h"
#include "entities/internal/undo_rows.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "geometry/line2d.h"

namespace {

CQdrDbBlockTableRecord* ownerBlock(const CQdrDbEntity& entity) {
  CQdrDbObject* owner = entity.ownerId().getPObject();
  return classTypeOf(owner) == QdrDb::eClassBlockTableRecord
             ? static_cast<CQdrDbBlockTableRecord*>(owner)
             : nullptr;
}

void undoCreation(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  if (CQdrDbBlockTableRecord* block = ownerBlock(entity)) {
    block->removeEntity(record.entityId);
    block->keepAside(record.entityId);
  }
  entity.setErased();
  record.operation = qdr::kUndoCreationUndone;
}

void createAgain(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  if (CQdrDbBlockTableRecord* block = ownerBlock(entity)) block->addEntity(record.entityId);
  entity.resetObjectStatus(CQdrDbObject::eErased);
  record.operation = qdr::kUndoCreated;
}

void erase(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  entity.setErased();
  record.operation = qdr::kUndoErased;
}

void restore(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  entity.resetObjectStatus(CQdrDbObject::eErased);
  record.operation = qdr::kUndoRestored;
}

constexpr EntityTransforms kVirtualTransforms = {
    .transformBy = nullptr,
    .translateBy = [](CQdrDbEntity& entity,
                      const CQdrGeVector2d& vector) { entity.TranslateBy(vector); },
    .rotateBy = [](CQdrDbEntity& entity, double angle,
                   const CQdrGePoint2d& center) { entity.RotateBy(angle, center); },
    .scaleByXY = [](CQdrDbEntity& entity, double sx, double sy,
                    const CQdrGePoint2d& center) { entity.ScaleBy(sx, sy, center); },
    .scaleBy = nullptr,
    .mirror = [](CQdrDbEntity& entity, const CQdrGeLine2d& line) { entity.Mirror(line); },
};

const EntityTransforms& transformsOf(const CQdrDbEntity& entity) {
  const qdr::EntityClass* row = qdr::entityClass(entity.classType());
  return row && row->stepTransforms ? *row->stepTransforms : kVirtualTransforms;
}

void finishTransform(CQdrDbEntity& entity) {
  entity.setGripPoints();
  entity.OnCurveChanged();
}

void move(tagUndoEditEntity& record, CQdrDbEntity& entity, bool redo) {
  const CQdrGeVector2d way(record.vector);
  transformsOf(entity).translateBy(entity, redo ? way : -way);
  finishTransform(entity);
}

void mirror(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  transformsOf(entity).mirror(entity, CQdrGeLine2d(record.point, CQdrGeVector2d(record.vector)));
  finishTransform(entity);
}

void rotate(tagUndoEditEntity& record, CQdrDbEntity& entity, bool redo) {
  const double angle = CQdrGeVector2d(record.vector).angle();
  transformsOf(entity).rotateBy(entity, redo ? angle : -angle, record.point);
  finishTransform(entity);
}

void scale(tagUndoEditEntity& record, CQdrDbEntity& entity, bool redo) {
  const QdrXY factor = record.vector;
  const auto scaleBy = transformsOf(entity).scaleByXY;
  if (redo)
    scaleBy(entity, factor.x, factor.y, record.point);
  else
    scaleBy(entity, 1.0 / factor.x, 1.0 / factor.y, record.point);
  finishTransform(entity);
}

void swapLayer(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  entity.setLayer(std::exchange(record.oldId, entity.LayerId()));
}

void swapLineType(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  entity.setLineType(std::exchange(record.oldId, entity.LineTypeId()));
}

void swapColor(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  entity.setColor(std::exchange(record.oldId, entity.ColorId()));
}

void swapLineWeight(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  const std::int32_t former = std::exchange(record.value, entity.LineWeight());
  entity.setLineWeight(static_cast<QdrDb::LineWeight>(former));
}

constexpr qdr::UndoRow kCommonRows[] = {
    {qdr::kUndoCreated, undoCreation}, {qdr::kUndoCreationUndone, createAgain},
    {qdr::kUndoRestored, erase},       {qdr::kUndoErased, restore},
    {qdr::kUndoMoved, move},           {qdr::kUndoMirrored, mirror},
    {qdr::kUndoRotated, rotate},       {qdr::kUndoScaled, scale},
    {qdr::kUndoLayer, swapLayer},      {qdr::kUndoLineType, swapLineType},
    {qdr::kUndoColor, swapColor},      {qdr::kUndoLineWeight, swapLineWeight},
};

// The record holds the way back of one end; once gone, the way back leads forward.
void shiftLineEnd(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& line = static_cast<CQdrDbLine&>(entity);
  const CQdrGeVector2d way(record.vector);
  if (record.index == 0)
    line.setStartPoint(line.StartPoint() + way);
  else
    line.setEndPoint(line.EndPoint() + way);
  record.vector = -way;
}

void swapArcAngle(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& arc = static_cast<CQdrDbArc&>(entity);
  const double former = qdr::storedAngle(record);
  const bool atStart = record.index == 0;
  qdr::storeAngle(record, atStart ? arc.StartAngle() : arc.EndAngle());
  if (atStart)
    arc.setStartAngle(former);
  else
    arc.setEndAngle(former);
}

template <class Curve>
void swapRadius(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& curve = static_cast<Curve&>(entity);
  curve.setRadius(std::exchange(record.vector.x, curve.Radius()));
}

// The two corners stand in `point` and `vector`.
void swapRectCorners(tagUndoEditEntity& record, CQdrDbEntity& entity, bool) {
  auto& rect = static_cast<CQdrDbRect&>(entity);
  const CQdrGePoint2d rightBottom = rect.RightBottom();
  rect.setRightBottom(CQdrGePoint2d(record.vector));
  record.vector = rightBottom.asVector();
  const CQdrGePoint2d leftTop = rect.LeftTop();
  rect.setLeftTop(record.point);
  record.point = leftTop;
}

}  // namespace

namespace qdr {

const UndoRow kLineUndo[] = {{kUndoVertex, shiftLineEnd}};
const UndoRow kArcUndo[] = {{kUndoAngle, swapArcAngle}, {kUndoRadius, swapRadius<CQdrDbArc>}};
const UndoRow kCircleUndo[] = {{kUndoRadius, swapRadius<CQdrDbCircle>}};
const UndoRow kRectUndo[] = {{kUndoVertex, swapRectCorners}};

bool playUndoRow(std::span<const UndoRow> rows, CQdrUndoHandler& handler, bool redo) {
  tagUndoEditEntity& record = handler.m_current;
  CQdrDbEntity* entity = asEntity(record.entityId);
  const auto row = std::ranges::find(rows, record.operation, &UndoRow::code);
  if (entity && row != rows.end()) row->play(record, *entity, redo);
  return true;
}

bool undoNothing(CQdrUndoHandler&, bool) {
  return true;
}

}  // namespace qdr

bool CQdrUndoHandler::UndoEntity(bool redo) {
  return qdr::playUndoRow(kCommonRows, *this, redo);
}
