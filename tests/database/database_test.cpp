#include "database/database.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "database/ent_set_iterator.h"
#include "database/entity_access.h"
#include "entities/rect.h"

namespace {

/// A rectangle that counts its deletion.
class CountedRect : public CQdrDbRect {
 public:
  CountedRect(CQdrDbDatabase* database, int* deaths) : CQdrDbRect(database), m_deaths(deaths) {}
  ~CountedRect() override { ++*m_deaths; }

 private:
  int* m_deaths;
};

class Database : public testing::Test {
 protected:
  CountedRect* addRect() {
    auto* rect = new CountedRect(&m_database, &m_deaths);
    CQdrDbObjectId id;
    m_database.addEntity(rect, id);
    EXPECT_TRUE(id == rect);
    return rect;
  }

  CQdrDbBlockTableRecord* addBlock(const wchar_t* name) {
    auto* block = new CQdrDbBlockTableRecord(&m_database);
    block->setName(name);
    block->setOwnerId(m_database.BlockTable());
    block->initDisplayRec();
    EXPECT_TRUE(m_database.m_blockTable.add(block));
    return block;
  }

  CQdrDbBlockTableRecord* modelSpace() {
    CQdrDbBlockTableRecord* space = nullptr;
    m_database.m_blockTable.getRecord(L"MODEL_SPACE", space);
    return space;
  }

  /// In how many of block, display, keyword, colour, linetype and layer sets the entity stands.
  int places(CQdrDbEntity* entity) {
    const CQdrDbObjectId id(entity);
    int count = 0;
    const auto countIn = [&](const std::set<CQdrDbObjectId>& ids) {
      for (const CQdrDbObjectId& each : ids)
        if (each == id) ++count;
    };
    for (const auto& [name, blockId] : m_database.m_blockTable.records())
      countIn(static_cast<CQdrDbBlockTableRecord*>(blockId.getPObject())->getEntitySet());
    for (const auto& [name, displayId] : m_database.m_displayTable.records())
      countIn(static_cast<CQdrDbDisplayTableRecord*>(displayId.getPObject())->getDisplayedIdSet());
    for (const auto& [name, keywordId] : m_database.m_entityTable.records())
      countIn(static_cast<CQdrDbEntityTableRecord*>(keywordId.getPObject())->getEntitySet());
    for (const CQdrDbTable* table : {static_cast<CQdrDbTable*>(&m_database.m_colorTable),
                                     static_cast<CQdrDbTable*>(&m_database.m_linetypeTable),
                                     static_cast<CQdrDbTable*>(&m_database.m_layerTable)})
      for (const auto& [name, recordId] : table->records())
        countIn(static_cast<CQdrDbReferredRecord*>(recordId.getPObject())->getEntitySet());
    return count;
  }

  int m_deaths = 0;
  CQdrDbDatabase m_database{true};
};

TEST_F(Database, StartsWithItsSpacesAndCurrentRecords) {
  const CQdrDbBlockTable& blocks = m_database.m_blockTable;
  EXPECT_EQ(blocks.size(), 2u);
  EXPECT_EQ(blocks.getCurrentRecord(), modelSpace());
  EXPECT_EQ(m_database.m_displayTable.getCurrentRecord(), modelSpace()->getDisplayRecord());
  EXPECT_EQ(m_database.m_displayTable.size(), 2u);
  CQdrDbDatabase withoutPaper(false);
  EXPECT_EQ(withoutPaper.m_blockTable.size(), 1u);
  EXPECT_TRUE(withoutPaper.m_blockTable.has(L"MODEL_SPACE"));

  const auto nameOf = [](const CQdrDbObjectId& id) {
    return std::wstring(static_cast<CQdrDbTableRecord*>(id.getPObject())->getName());
  };
  EXPECT_EQ(nameOf(m_database.m_currentLayerId), L"0");
  EXPECT_EQ(nameOf(m_database.m_currentLinetypeId), L"ByLayer");
  EXPECT_EQ(nameOf(m_database.m_currentColorId), L"256");
  EXPECT_EQ(nameOf(m_database.m_currentTextStyleId), L"STANDARD");
  EXPECT_TRUE(m_database.BlockTable() == &m_database.m_blockTable);
  EXPECT_EQ(m_database.BlockTable().database(), &m_database);
}

TEST_F(Database, CutsHeaderFieldsAtTheirLength) {
  m_database.setAuthor(CString(std::wstring(50, L'a')));
  EXPECT_EQ(m_database.Author().text(), std::wstring(32, L'a'));
  EXPECT_EQ(m_database.FileVersion(), L"1.001a");
}

TEST_F(Database, AddedEntitiesStandInEveryIndexAndRemovedOnesInNone) {
  CountedRect* rect = addRect();
  EXPECT_EQ(places(rect), 6);
  EXPECT_TRUE(rect->IsDbEntity());
  EXPECT_TRUE(rect->ownerId() == modelSpace());
  EXPECT_EQ(m_database.m_lastEntity, rect);
  EXPECT_TRUE(m_database.m_blockTable.getObjectId(rect->hardObjectId()) == rect);

  m_database.removeEntity(rect);
  EXPECT_EQ(places(rect), 0);
  EXPECT_FALSE(rect->IsDbEntity());
  EXPECT_TRUE(rect->ownerId().isNull());
  EXPECT_EQ(m_database.m_lastEntity, nullptr);
  EXPECT_EQ(m_deaths, 0) << "it is the caller's";
  delete rect;
  m_database.removeEntity(nullptr);
}

TEST_F(Database, ErasingLeavesEveryIndexAlone) {
  CountedRect* rect = addRect();
  rect->setErased();
  EXPECT_EQ(places(rect), 6);
  CQdrDbEntSetIterator* made = nullptr;
  ASSERT_TRUE(modelSpace()->newIterator(made, true));
  const std::unique_ptr<CQdrDbEntSetIterator> iterator(made);
  CQdrDbEntity* entity = rect;
  EXPECT_FALSE(iterator->getEntity(entity, false));
  EXPECT_EQ(entity, nullptr);
  EXPECT_TRUE(iterator->getEntity(entity, true));
  EXPECT_EQ(entity, rect);
}

TEST_F(Database, EntityTableFilesByKeyword) {
  addRect();
  wchar_t name[CQdrDbTableRecord::kNameSize] = L"";
  CQdrDbEntityTableRecord* rects = nullptr;
  ASSERT_TRUE(m_database.m_entityTable.has(QdrDb::eClassRect, name, rects));
  EXPECT_EQ(std::wstring(name), L"RECT");
  EXPECT_EQ(rects->getNumEntity(), 1u);
  EXPECT_FALSE(m_database.m_entityTable.removeRecord(L"RECT")) << "it holds an entity";

  CQdrDbEntityTableRecord* none = nullptr;
  EXPECT_FALSE(m_database.m_entityTable.has(QdrDb::eClassLeaderDimension, name, none));
  EXPECT_EQ(std::wstring(name), L"DIMENSION");
  EXPECT_FALSE(m_database.m_entityTable.has(QdrDb::eClassCobweb, name, none));
  EXPECT_EQ(std::wstring(name), L"DIMENSION") << "without a keyword the name stays";

  const CQdrDbObjectId id(*rects->getEntitySet().begin());
  EXPECT_TRUE(m_database.m_entityTable.removeEntity(id));
  EXPECT_TRUE(m_database.m_entityTable.removeRecord(L"RECT"));
  EXPECT_FALSE(m_database.m_entityTable.removeEntity(id)) << "its record is gone";
  EXPECT_TRUE(m_database.m_entityTable.addEntity(id));
}

TEST_F(Database, AnEntityOfEqualNumberIsKeptAside) {
  CountedRect* first = addRect();
  auto* second = new CountedRect(&m_database, &m_deaths);
  second->setCreatedTime(first->getCreatedTime());
  CQdrDbObjectId id;
  m_database.addEntity(second, id);
  EXPECT_EQ(modelSpace()->getNumEntity(), 1u);
  EXPECT_EQ(places(first), 6);
  EXPECT_EQ(places(second), 0);
  m_database.removeEntity(second);
  EXPECT_EQ(places(first), 6) << "only the very object is taken out";
  m_database.addEntity(second, id);
  EXPECT_TRUE(m_database.m_blockTable.removeRecord(L"MODEL_SPACE"));
  EXPECT_EQ(m_deaths, 2) << "both die with the block";
}

TEST_F(Database, TakesAnEntityOutOfItsFirstBlock) {
  CountedRect* rect = addRect();
  CQdrDbBlockTableRecord* block = addBlock(L"Door");
  EXPECT_EQ(block->addEntity(rect->objectId()), 1u);
  EXPECT_EQ(modelSpace()->getNumEntity(), 0u);
  EXPECT_TRUE(rect->ownerId() == block);
  EXPECT_EQ(places(rect), 6);
}

TEST_F(Database, ReplacingABlockDeletesItsEntitiesAndMovesTheCurrentSpace) {
  CountedRect* rect = addRect();
  CQdrDbDisplayTableRecord* display = modelSpace()->getDisplayRecord();
  tagUndoEditEntity step;
  step.operation = 6;
  step.entityId = rect->objectId();
  m_database.m_undoHandler.AddUndo(step);
  auto* successor = new CQdrDbBlockTableRecord(&m_database);
  successor->setName(L"MODEL_SPACE");
  EXPECT_TRUE(m_database.m_blockTable.add(successor));
  EXPECT_EQ(m_deaths, 1);
  EXPECT_EQ(m_database.m_blockTable.getCurrentRecord(), successor);
  EXPECT_EQ(successor->getDisplayRecord(), display);
  EXPECT_TRUE(display->getDisplayedIdSet().empty());
  EXPECT_EQ(m_database.m_lastEntity, nullptr);
  EXPECT_FALSE(m_database.m_undoHandler.Undo()) << "no step names the deleted entity";
  addRect();
  EXPECT_EQ(successor->getNumEntity(), 1u);
}

TEST_F(Database, RemovingTheCurrentSpaceFallsBackToTheModel) {
  m_database.m_blockTable.SetCurentSpace(L"PAPER_SPACE");
  addRect();
  EXPECT_TRUE(m_database.m_blockTable.removeRecord(L"PAPER_SPACE"));
  EXPECT_FALSE(m_database.m_blockTable.removeRecord(L"PAPER_SPACE"));
  EXPECT_EQ(m_deaths, 1);
  EXPECT_EQ(m_database.m_blockTable.getCurrentRecord(), modelSpace());
}

TEST_F(Database, DeletesEveryEntityOnce) {
  int deaths = 0;
  {
    CQdrDbDatabase database(true);
    for (int i = 0; i < 3; ++i) {
      CQdrDbObjectId id;
      auto* rect = new CountedRect(&database, &deaths);
      database.addEntity(rect, id);
      if (i == 0) rect->setErased();
      if (i == 1) {
        CQdrDbBlockTableRecord* space = database.m_blockTable.getCurrentRecord();
        space->removeEntity(id);
        space->keepAside(id);
      }
    }
  }
  EXPECT_EQ(deaths, 3);
}

TEST_F(Database, ClearEntityDeletesWhatIsNotErased) {
  CQdrDbBlockTableRecord* space = modelSpace();
  EXPECT_EQ(space->ClearEntity(), -1);
  CountedRect* erased = addRect();
  addRect();
  CQdrDbEntity* last = addRect();
  erased->setErased();
  EXPECT_EQ(m_database.m_lastEntity, last);
  EXPECT_EQ(space->ClearEntity(), 0);
  EXPECT_EQ(m_deaths, 2);
  EXPECT_EQ(space->getNumEntity(), 0u);
  EXPECT_EQ(m_database.m_lastEntity, nullptr);
  EXPECT_EQ(places(erased), 5) << "an erased one leaves the block alone";
  EXPECT_EQ(space->ClearEntity(), -1);
}

TEST_F(Database, SetCurentSpaceAnswersFalseAndActs) {
  CQdrDbBlockTable& blocks = m_database.m_blockTable;
  EXPECT_FALSE(blocks.SetCurentSpace(L"PAPER_SPACE"));
  EXPECT_EQ(std::wstring(blocks.getCurrentRecord()->getName()), L"PAPER_SPACE");
  EXPECT_EQ(m_database.m_displayTable.getCurrentRecord(),
            blocks.getCurrentRecord()->getDisplayRecord());
  EXPECT_EQ(m_database.m_displayTable.getPreviousRecord(), modelSpace()->getDisplayRecord());
  EXPECT_FALSE(blocks.SetCurentSpace(L"paper_space"));
  EXPECT_FALSE(blocks.SetCurentSpace(L""));
  EXPECT_EQ(std::wstring(blocks.getCurrentRecord()->getName()), L"PAPER_SPACE");
}

TEST_F(Database, OnlySpacesMakeTheirNewDisplayCurrent) {
  struct Row {
    const wchar_t* name;
    bool current;
  };
  const Row rows[] = {{L"Door", false},         {L"PAPER_SPACE1", true}, {L"X_PAPER_SPACE", false},
                      {L"paper_space2", false}, {L"Model_Space", true},  {L"MODEL_SPACE1", false}};
  for (const Row& row : rows) {
    m_database.m_displayTable.setCurrentRecord(L"MODEL_SPACE");
    const std::size_t before = m_database.m_displayTable.size();
    CQdrDbBlockTableRecord* block = addBlock(row.name);
    const CQdrDbDisplayTableRecord* current = m_database.m_displayTable.getCurrentRecord();
    EXPECT_EQ(current == block->getDisplayRecord(), row.current) << row.name;
    block->initDisplayRec();
    EXPECT_EQ(m_database.m_displayTable.size(), before + 1) << row.name;
    EXPECT_EQ(m_database.m_displayTable.getCurrentRecord(), block->getDisplayRecord())
        << "a found one becomes current: " << row.name;
  }
}

TEST_F(Database, BlocksFollowAReplacedDisplay) {
  CountedRect* rect = addRect();
  auto* display = new CQdrDbDisplayTableRecord(&m_database);
  display->setName(static_cast<const wchar_t*>(L"MODEL_SPACE"));
  EXPECT_TRUE(m_database.m_displayTable.add(display));
  EXPECT_EQ(modelSpace()->getDisplayRecord(), display);
  EXPECT_EQ(m_database.m_displayTable.getCurrentRecord(), display);
  EXPECT_EQ(places(rect), 6) << "what was shown is shown";
}

TEST_F(Database, EmptyBlocksMakeNoIteratorAndNeedNoView) {
  auto* const untouched = reinterpret_cast<CQdrDbEntSetIterator*>(this);
  CQdrDbEntSetIterator* iterator = untouched;
  EXPECT_FALSE(modelSpace()->newIterator(iterator, true));
  EXPECT_EQ(iterator, untouched);
  modelSpace()->OnCurveChanged(nullptr, 1);
  m_database.DrawEntities(QdrDb::eClassHatch);
  m_database.Draw();
  m_database.invalidateView();
}

TEST_F(Database, BlocksCopyTheirEntities) {
  CQdrDbBlockTableRecord* door = addBlock(L"Door");
  CountedRect* rect = addRect();
  rect->setColor(5);
  addRect()->setErased();
  *door = *modelSpace();
  ASSERT_EQ(door->getNumEntity(), 1u);
  CQdrDbEntity* copy = qdr::asEntity(*door->getEntitySet().begin());
  EXPECT_NE(copy, rect);
  EXPECT_EQ(copy->ColorIndex(), 5);
  EXPECT_EQ(std::wstring(door->getName()), L"Door");
  *door = *door;
  EXPECT_EQ(door->getNumEntity(), 1u);

  CQdrDbDatabase other(false);
  CQdrDbBlockTableRecord* space = other.m_blockTable.getCurrentRecord();
  *space = *door;
  ASSERT_EQ(space->getNumEntity(), 1u);
  const CQdrDbEntity* foreign = qdr::asEntity(*space->getEntitySet().begin());
  EXPECT_EQ(foreign->database(), &other);
  EXPECT_TRUE(other.m_colorTable.has(foreign->ColorId())) << "records are those of its database";
  EXPECT_TRUE(other.m_layerTable.has(foreign->LayerId()));
}

}  // namespace
