// What a property combo has chosen: for the selection, else for what is drawn next.

#include <set>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "entities/entity.h"
#include "hostcore/drawing_host.h"

namespace {

// Kinds of a choice, as the message brings them.
enum Choice : WPARAM { kColor = 0, kLayer = 1, kLineType = 2, kLineWeight = 3 };

std::int32_t undoCodeOf(WPARAM kind) {
  switch (kind) {
    case kColor:
      return qdr::kUndoColor;
    case kLayer:
      return qdr::kUndoLayer;
    case kLineType:
      return qdr::kUndoLineType;
    default:
      return qdr::kUndoLineWeight;
  }
}

CQdrDbObjectId valueOf(const CQdrDbEntity& entity, WPARAM kind) {
  if (kind == kColor) return entity.ColorId();
  if (kind == kLayer) return entity.LayerId();
  return kind == kLineType ? entity.LineTypeId() : CQdrDbObjectId();
}

void setValue(CQdrDbEntity& entity, WPARAM kind, const CQdrDbObjectId& record, int weight) {
  if (kind == kColor) entity.setColor(record);
  if (kind == kLayer) entity.setLayer(record);
  if (kind == kLineType) entity.setLineType(record);
  if (kind == kLineWeight) entity.setLineWeight(static_cast<QdrDb::LineWeight>(weight));
  entity.setGripPoints();
  entity.OnCurveChanged();
}

void makeCurrent(CQdrDbDatabase& database, WPARAM kind, const CQdrDbObjectId& record, int weight) {
  CQdrDbObject* const object = record.getPObject();
  if (kind == kColor) {
    database.m_currentColorId = record;
    database.m_colorTable.setCurrentRecord(static_cast<CQdrDbColorTableRecord*>(object));
  } else if (kind == kLayer) {
    database.m_currentLayerId = record;
    database.m_layerTable.setCurrentRecord(static_cast<CQdrDbLayerTableRecord*>(object));
  } else if (kind == kLineType) {
    database.m_currentLinetypeId = record;
    database.m_linetypeTable.setCurrentRecord(static_cast<CQdrDbLTypeTableRecord*>(object));
  } else {
    database.m_vars.currentLineWeight = weight;
  }
}

}  // namespace

namespace qdr {

// `data` is the record chosen, null for none, or the text of the row of a width.
void DrawingHost::onPropertyChosen(WPARAM kind, LPARAM data) {
  if (isBusy() || kind > kLineWeight || data == 0) return;
  const bool isWeight = kind == kLineWeight;
  const int weight = isWeight ? _wtoi(reinterpret_cast<const wchar_t*>(data)) : 0;
  const CQdrDbObjectId record(isWeight ? nullptr : reinterpret_cast<const CQdrDbObject*>(data));
  m_drawing->modified = true;
  guarded([&] {
    const std::set<CQdrDbEntity*> selected = handler().GetSelectedEntity();
    if (selected.empty()) makeCurrent(database(), kind, record, weight);
    std::int32_t continued = 0;
    for (CQdrDbEntity* entity : selected) {
      tagUndoEditEntity step;
      step.operation = undoCodeOf(kind);
      step.continued = continued;
      step.entityId = entity->objectId();
      step.oldId = valueOf(*entity, kind);
      step.value = entity->LineWeight();
      const std::size_t before = database().m_undoHandler.m_undoList.size();
      if (database().m_undoHandler.AddUndo(step) > before) continued = 1;
      setValue(*entity, kind, record, weight);
    }
  });
  repaint();
}

}  // namespace qdr
