#include "entities/internal/chain_explode.h"

#include <memory>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/arc.h"
#include "entities/internal/trim_scheme.h"
#include "entities/line.h"
#include "geometry/polyline2d.h"

namespace {

// The line or arc of a segment with the looks of the source; null for any other segment.
std::unique_ptr<CQdrDbEntity> entityOfSegment(const CQdrDbEntity& source,
                                              const CQdrGePolyline2d& chain, int segment) {
  std::unique_ptr<CQdrDbEntity> entity;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
  if (chain.getLineSegAt(segment, line)) {
    auto made = std::make_unique<CQdrDbLine>(source.database());
    made->set(line.startPoint(), line.endPoint());
    entity = std::move(made);
  } else if (chain.getArcSegAt(segment, arc)) {
    auto made = std::make_unique<CQdrDbArc>(source.database());
    made->set(arc.center(), arc.radius(), arc.startAng(), arc.endAng());
    entity = std::move(made);
  } else {
    return nullptr;
  }
  entity->setColor(source.ColorId());
  entity->setLayer(source.LayerId());
  entity->setLineType(source.LineTypeId());
  entity->setLineWeight(source.LineWeight());
  return entity;
}

}  // namespace

namespace qdr {

bool explodeChain(const CQdrDbEntity& source, const CQdrGePolyline2d& chain) {
  CQdrDbDatabase* database = source.database();
  if (!database) return false;
  CQdrDbEntity* entity = nullptr;
  bool first = true;
  for (int i = 0; i < chain.numVerts(); ++i) {
    if (std::unique_ptr<CQdrDbEntity> made = entityOfSegment(source, chain, i))
      entity = made.release();
    // A vertex without a segment hands the entity before it over again.
    if (!entity) continue;
    CQdrDbObjectId id;
    database->addEntity(entity, id);
    tagUndoEditEntity record = undoRecord(*entity, kUndoRestored);
    record.continued = first ? 0 : 1;
    record.entityId = id;
    record.extraId = entity->ownerId();
    addUndo(*entity, record);
    first = false;
  }
  return entity != nullptr;
}

}  // namespace qdr
