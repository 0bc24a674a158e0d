#include "hostcore/internal/creation_numbers.h"

#include <algorithm>
#include <set>

#include "database/database.h"

namespace {

std::uint64_t largestNumberOf(const std::set<CQdrDbObjectId>& ids) {
  return ids.empty() ? 0 : ids.rbegin()->getPObject()->getCreatedTime();
}

}  // namespace

namespace qdr {

std::uint64_t largestNumber(CQdrDbDatabase& database) {
  std::uint64_t largest = 0;
  const CQdrDbTable* const tables[] = {
      &database.m_layerTable,     &database.m_colorTable,       &database.m_linetypeTable,
      &database.m_textStyleTable, &database.m_blockTable,       &database.m_displayTable,
      &database.m_symbolTable,    &database.m_projectInfoTable, &database.m_revisionTable};
  for (const CQdrDbTable* table : tables)
    for (const auto& [name, id] : table->records())
      largest = std::max(largest, id.getPObject()->getCreatedTime());
  for (const auto& [name, id] : database.m_blockTable.records()) {
    auto* block = static_cast<CQdrDbBlockTableRecord*>(id.getPObject());
    largest = std::max(largest, largestNumberOf(block->getEntitySet()));
  }
  return largest;
}

}  // namespace qdr
