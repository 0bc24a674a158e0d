#include "hostcore/internal/cobweb_stand_ins.h"

#include <utility>

#include "database/database.h"
#include "entities/cobweb.h"
#include "hostcore/internal/creation_numbers.h"

namespace qdr {

CobwebStandIns::CobwebStandIns(std::uint64_t firstNumber) : m_nextNumber(firstNumber) {}

// The delegation lets the destructor run, and all be as before, when memory ends on the way.
CobwebStandIns::CobwebStandIns(CQdrDbDatabase& database)
    : CobwebStandIns(largestNumber(database) + 1) {
  for (const auto& [name, id] : database.m_blockTable.records())
    replaceIn(*static_cast<CQdrDbBlockTableRecord*>(id.getPObject()));
}

// Cobwebs are gathered first: the set grows by their parts.
void CobwebStandIns::replaceIn(CQdrDbBlockTableRecord& block) {
  const std::size_t first = m_replaced.size();
  for (const CQdrDbObjectId& id : block.getEntitySet()) {
    if (classTypeOf(id.getPObject()) == QdrDb::eClassCobweb && !id.isErased())
      m_replaced.push_back(static_cast<CQdrDbCobweb*>(id.getPObject()));
  }
  CQdrDbDisplayTableRecord* const view = block.getDisplayRecord();
  for (std::size_t i = first; i < m_replaced.size(); ++i) {
    CQdrDbCobweb& web = *m_replaced[i];
    const bool hidden = !web.CQdrDbObject::isVisiable();  // whatever its layer says
    const bool shown = view && containsId(view->getDisplayedIdSet(), web.objectId());
    for (std::unique_ptr<CQdrDbEntity>& entity : web.parts()) {
      if (hidden) entity->setInVisable();
      entity->setCreatedTime(m_nextNumber++);
      m_parts.push_back(
          {std::move(entity), &block.getEntitySet(), shown ? &view->getDisplayedIdSet() : nullptr});
      const Part& part = m_parts.back();
      insertId(*part.block, part.entity->objectId());
      if (part.view) insertId(*part.view, part.entity->objectId());
    }
    web.setErased();
  }
}

CobwebStandIns::~CobwebStandIns() {
  for (const Part& part : m_parts) {
    eraseId(*part.block, part.entity->objectId());
    if (part.view) eraseId(*part.view, part.entity->objectId());
  }
  for (CQdrDbCobweb* web : m_replaced)
    web->resetObjectStatus(CQdrDbObject::eErased);
}

}  // namespace qdr
