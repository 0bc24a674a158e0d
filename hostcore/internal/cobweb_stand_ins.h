#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "database/id_set.h"

class CQdrDbDatabase;
class CQdrDbBlockTableRecord;
class CQdrDbCobweb;
class CQdrDbEntity;

namespace qdr {

/// Circles and lines in the place of the cobwebs of a drawing, for the time of a save.
///
/// No reader makes a cobweb, and what follows one in its block would be lost. While this object
/// lives, every cobweb that is not erased counts as erased, and its parts stand at the end of the
/// same block and of its view, with numbers above all others: two saves of one drawing store the
/// same. No index, undo log, selection or counter hears of it. Nothing may be drawn on the screen
/// or changed in the drawing meanwhile.
class CobwebStandIns {
 public:
  explicit CobwebStandIns(CQdrDbDatabase& database);
  ~CobwebStandIns();
  CobwebStandIns(const CobwebStandIns&) = delete;
  CobwebStandIns& operator=(const CobwebStandIns&) = delete;

  bool any() const { return !m_replaced.empty(); }

 private:
  struct Part {
    std::unique_ptr<CQdrDbEntity> entity;
    IdSet* block;
    IdSet* view;  ///< null for a block without one
  };
  explicit CobwebStandIns(std::uint64_t firstNumber);
  void replaceIn(CQdrDbBlockTableRecord& block);

  std::uint64_t m_nextNumber;
  std::vector<CQdrDbCobweb*> m_replaced;
  std::vector<Part> m_parts;
};

}  // namespace qdr
