// The indices of a drawing against a plain list, over random edits.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "database/database.h"
#include "entities/line.h"

namespace {

constexpr int kEdits = 4000;
constexpr int kEditsBetweenChecks = 50;

/// A drawing with two spaces, a block and three layers, and what should stand in it.
class EditedDrawing {
 public:
  explicit EditedDrawing(unsigned seed) : m_random(seed) {
    for (const wchar_t* name : {L"PAPER_SPACE", L"MODEL_SPACE"}) {
      CQdrDbBlockTableRecord* space = nullptr;
      m_database.m_blockTable.getRecord(name, space);
      m_blocks.push_back(space);
    }
  }

  ~EditedDrawing() {
    for (CQdrDbLine* line : m_removed)
      delete line;
  }

  void edit() {
    switch (pick(10)) {
      case 0:
        switchSpace();
        break;
      case 1:
        remove();
        break;
      case 2:
        putBack();
        break;
      case 3:
        moveToOtherBlock();
        break;
      case 4:
        erase();
        break;
      case 5:
        recolor();
        break;
      case 6:
        relayer();
        break;
      case 7:
        if (pick(40) == 0) clearSpace();
        break;
      default:
        add();
        break;
    }
  }

  void check() {
    std::size_t inBlocks = 0;
    for (CQdrDbBlockTableRecord* block : m_blocks) {
      EXPECT_EQ(block->getEntitySet(), block->getDisplayRecord()->getDisplayedIdSet());
      inBlocks += block->getNumEntity();
    }
    EXPECT_EQ(inBlocks, m_lines.size());
    CQdrDbEntityTableRecord* filed = nullptr;
    if (m_database.m_entityTable.getRecord(L"LINE", filed)) {
      EXPECT_EQ(filed->getNumEntity(), m_lines.size());
    }
    EXPECT_EQ(referrers(m_database.m_colorTable), m_lines.size());
    EXPECT_EQ(referrers(m_database.m_linetypeTable), m_lines.size());
    EXPECT_EQ(referrers(m_database.m_layerTable), m_lines.size());
    for (CQdrDbLine* line : m_lines)
      checkLine(line);
    for (CQdrDbLine* line : m_removed)
      EXPECT_FALSE(line->IsDbEntity());
  }

 private:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
  CQdrDbLine* pickLine() { return m_lines[static_cast<std::size_t>(pick(size(m_lines)))]; }
  static int size(const std::vector<CQdrDbLine*>& lines) { return static_cast<int>(lines.size()); }

  static std::size_t referrers(const CQdrDbTable& table) {
    std::size_t count = 0;
    for (const auto& [name, id] : table.records())
      count += static_cast<CQdrDbReferredRecord*>(id.getPObject())->getNumEntity();
    return count;
  }

  void checkLine(CQdrDbLine* line) {
    const CQdrDbObjectId id(line);
    auto* block = static_cast<CQdrDbBlockTableRecord*>(line->ownerId().getPObject());
    EXPECT_TRUE(line->IsDbEntity());
    EXPECT_TRUE(qdr::containsId(block->getEntitySet(), id));
    for (const CQdrDbObjectId& record : {line->ColorId(), line->LineTypeId(), line->LayerId()})
      EXPECT_TRUE(qdr::containsId(
          static_cast<CQdrDbReferredRecord*>(record.getPObject())->getEntitySet(), id));
  }

  void add() {
    auto* line = new CQdrDbLine(&m_database);
    CQdrDbObjectId id;
    m_database.addEntity(line, id);
    m_lines.push_back(line);
  }

  void remove() {
    if (m_lines.empty()) return;
    CQdrDbLine* line = pickLine();
    m_database.removeEntity(line);
    std::erase(m_lines, line);
    m_removed.push_back(line);
  }

  void putBack() {
    if (m_removed.empty()) return;
    CQdrDbObjectId id;
    m_database.addEntity(m_removed.back(), id);
    m_lines.push_back(m_removed.back());
    m_removed.pop_back();
  }

  void switchSpace() {
    m_database.m_blockTable.SetCurentSpace(m_blocks[pick(2) ? 1 : 0]->getName());
  }

  void moveToOtherBlock() {
    if (m_lines.empty()) return;
    m_blocks[pick(2) ? 1 : 0]->addEntity(pickLine()->objectId());
  }

  void erase() {
    if (!m_lines.empty()) pickLine()->setErased();
  }

  void recolor() {
    if (!m_lines.empty()) pickLine()->setColor(pick(20));
  }

  void relayer() {
    const wchar_t* const names[] = {L"0", L"PipeLine", L"WeldNum", L"Dimension"};
    if (!m_lines.empty()) pickLine()->setLayer(CString(names[pick(4)]));
  }

  /// The lines that are not erased die; those that are stay in the other indices, so they are
  /// shown again first.
  void clearSpace() {
    CQdrDbBlockTableRecord* space = m_database.m_blockTable.getCurrentRecord();
    for (CQdrDbLine* line : m_lines)
      line->resetObjectStatus(CQdrDbObject::eErased);
    std::erase_if(m_lines, [&](CQdrDbLine* line) { return line->ownerId() == space; });
    space->ClearEntity();
  }

  CQdrDbDatabase m_database{true};
  std::mt19937 m_random;
  std::vector<CQdrDbBlockTableRecord*> m_blocks;
  std::vector<CQdrDbLine*> m_lines;
  std::vector<CQdrDbLine*> m_removed;
};

TEST(DatabaseIndices, AgreeWithAPlainListOverRandomEdits) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    EditedDrawing drawing(seed);
    for (int i = 1; i <= kEdits && !testing::Test::HasFailure(); ++i) {
      drawing.edit();
      if (i % kEditsBetweenChecks == 0) drawing.check();
    }
  }
}

}  // namespace
