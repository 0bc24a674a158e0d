#include "database/undo/undo_handler.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "database/undo/undo_operations.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;

class UndoHandler : public testing::Test {
 protected:
  tagUndoEditEntity record(CQdrDbEntity* entity, std::int32_t operation, bool continued) {
    tagUndoEditEntity step;
    step.continued = continued ? 1 : 0;
    step.operation = operation;
    step.entityId = entity;
    return step;
  }

  // Moves a line by (1, 0) and records it.
  void move(CQdrDbEntity* entity, bool continued) {
    tagUndoEditEntity step = record(entity, qdr::kUndoMoved, continued);
    step.vector = QdrXY(1.0, 0.0);
    entity->TranslateBy(CQdrGeVector2d(1.0, 0.0));
    entity->setGripPoints();
    m_handler.AddUndo(step);
  }

  void erase(CQdrDbEntity* entity, bool continued) {
    entity->setErased();
    tagUndoEditEntity step = record(entity, qdr::kUndoErased, continued);
    m_handler.AddUndo(step);
  }

  // A letter per line: 'e' for an erased one, else how far it has moved.
  std::string state() const {
    std::string text;
    for (CQdrDbEntity* entity : m_lines) {
      const int moved = static_cast<int>(entity->getGripPoint(1).x);
      text += entity->isErased() ? 'e' : static_cast<char>('0' + moved);
    }
    return text;
  }

  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_handler = m_database.m_undoHandler;
  CQdrDbEntity* m_lines[3] = {addFromText(m_database, "line 0 0 0 5"),
                              addFromText(m_database, "line 0 1 0 6"),
                              addFromText(m_database, "line 0 2 0 7")};
};

TEST_F(UndoHandler, EmptyListsDoNothing) {
  EXPECT_FALSE(m_handler.Undo());
  EXPECT_FALSE(m_handler.Redo());
  EXPECT_EQ(m_handler.UndoPop(), 0u);
  EXPECT_FALSE(m_handler.isUndoing());
  EXPECT_FALSE(m_handler.isRedoing());
}

TEST_F(UndoHandler, ABatchIsOneStepBothWays) {
  move(m_lines[0], false);
  for (int i = 0; i < 3; ++i)
    erase(m_lines[i], i > 0);
  EXPECT_EQ(state(), "eee");
  EXPECT_TRUE(m_handler.Undo());
  EXPECT_EQ(state(), "100");
  EXPECT_TRUE(m_handler.Undo());
  EXPECT_EQ(state(), "000");
  EXPECT_TRUE(m_handler.Redo());
  EXPECT_EQ(state(), "100");
  EXPECT_TRUE(m_handler.Redo());
  EXPECT_EQ(state(), "eee");
  EXPECT_FALSE(m_handler.Redo());
}

TEST_F(UndoHandler, GroupMarksHoldAStepTogether) {
  tagUndoEditEntity begin = record(m_lines[0], qdr::kUndoGroupBegin, false);
  tagUndoEditEntity end = record(m_lines[0], qdr::kUndoGroupEnd, true);
  move(m_lines[1], false);
  m_handler.AddUndo(begin);
  move(m_lines[0], false);
  move(m_lines[0], false);
  m_handler.AddUndo(end);
  EXPECT_EQ(state(), "210");
  EXPECT_TRUE(m_handler.Undo());
  EXPECT_EQ(state(), "010");
  EXPECT_EQ(m_handler.m_undoList.size(), 1u);
  EXPECT_TRUE(m_handler.Redo());
  EXPECT_EQ(state(), "210");
}

TEST_F(UndoHandler, ANewStepEndsRedo) {
  move(m_lines[0], false);
  move(m_lines[1], false);
  m_handler.Undo();
  m_handler.m_redoList.front().buffer = ::operator new(16);  // freed with its record
  move(m_lines[2], false);
  EXPECT_TRUE(m_handler.m_redoList.empty());
  EXPECT_FALSE(m_handler.Redo());
  EXPECT_EQ(m_handler.m_undoList.size(), 2u);
}

TEST_F(UndoHandler, RecordsNothingWhileItPlays) {
  tagUndoEditEntity step = record(m_lines[0], qdr::kUndoErased, false);
  m_handler.m_undoing = true;
  EXPECT_EQ(m_handler.AddUndo(step), 0u);
  m_handler.m_undoing = false;
  EXPECT_TRUE(m_handler.m_undoList.empty());
  m_handler.m_redoing = true;
  EXPECT_EQ(m_handler.AddRedo(), 0u);
  m_handler.m_redoing = false;
}

TEST_F(UndoHandler, ChoosesTheRoutineByCodeAndClass) {
  struct Row {
    const char* name;
    std::int32_t operation;
    QdrDb::ClassType given;
    QdrDb::ClassType expected;
  };
  const Row rows[] = {
      {"a common code", 11, QdrDb::eClassNone, QdrDb::eClassEntity},
      {"last of the common codes", 25, QdrDb::eClassNone, QdrDb::eClassEntity},
      {"a code of the class", 18, QdrDb::eClassNone, QdrDb::eClassLine},
      {"between the common codes", 12, QdrDb::eClassNone, QdrDb::eClassLine},
      {"common already", 18, QdrDb::eClassEntity, QdrDb::eClassEntity},
  };
  for (const Row& row : rows) {
    tagUndoEditEntity step = record(m_lines[0], row.operation, false);
    step.classType = row.given;
    m_handler.AddUndo(step);
    EXPECT_EQ(m_handler.m_undoList.front().classType, row.expected) << row.name;
  }
}

TEST_F(UndoHandler, AnUndoneCreationStandsInNoSet) {
  CQdrDbEntity* line = m_lines[1];
  CQdrDbBlockTableRecord* space = m_database.m_blockTable.getCurrentRecord();
  tagUndoEditEntity step = record(line, qdr::kUndoCreated, false);
  m_handler.AddUndo(step);
  m_handler.Undo();
  EXPECT_TRUE(line->isErased());
  EXPECT_FALSE(space->getEntitySet().contains(line->objectId()));
  EXPECT_EQ(m_handler.m_redoList.front().operation, qdr::kUndoCreationUndone);
  m_handler.Redo();
  EXPECT_FALSE(line->isErased());
  EXPECT_TRUE(space->getEntitySet().contains(line->objectId()));
  EXPECT_EQ(m_handler.m_undoList.front().operation, qdr::kUndoCreated);
}

TEST_F(UndoHandler, UnknownCodesCountAsDone) {
  tagUndoEditEntity step = record(m_lines[0], 99, false);
  m_handler.AddUndo(step);
  EXPECT_TRUE(m_handler.Undo());
  EXPECT_EQ(m_handler.m_redoList.size(), 1u);
}

TEST_F(UndoHandler, PopDropsDownToACommandMark) {
  tagUndoEditEntity mark = record(m_lines[0], qdr::kUndoCommandMark, false);
  move(m_lines[0], false);
  m_handler.AddUndo(mark);
  move(m_lines[1], false);
  move(m_lines[2], false);
  EXPECT_EQ(m_handler.UndoPop(), 3u);
  EXPECT_EQ(state(), "111");
  EXPECT_EQ(m_handler.m_undoList.size(), 1u);
  EXPECT_TRUE(m_handler.m_redoList.empty());
}

// A batch over all three lines loses one of them, on the undo list and on the redo list.
TEST_F(UndoHandler, ForgettingAnEntityKeepsBatchesApart) {
  struct Row {
    const char* name;
    int gone;
    const char* undone;
  };
  const Row rows[] = {
      {"first of the batch", 0, "e00"},
      {"middle of the batch", 1, "0e0"},
      {"last of the batch", 2, "00e"},
  };
  for (const Row& row : rows) {
    for (const bool whileUndone : {false, true}) {
      CQdrUndoHandler& handler = m_handler;
      handler.m_undoList.clear();
      handler.m_redoList.clear();
      CQdrDbEntity* other = addFromText(m_database, "line 9 9 9 9");
      erase(other, false);
      for (int i = 0; i < 3; ++i)
        erase(m_lines[i], i > 0);
      if (whileUndone) handler.Undo();
      handler.forgetEntities({m_lines[row.gone]});
      if (whileUndone) {
        m_lines[row.gone]->setErased();
        EXPECT_TRUE(handler.Redo()) << row.name;
        EXPECT_EQ(state(), "eee") << row.name;
      }
      EXPECT_TRUE(handler.Undo()) << row.name;
      EXPECT_EQ(state(), row.undone) << row.name;
      EXPECT_TRUE(other->isErased()) << row.name << ": the batch before is another step";
      for (CQdrDbEntity* line : m_lines)
        line->resetObjectStatus(CQdrDbObject::eErased);
    }
  }
}

TEST_F(UndoHandler, FollowsReplacedAndRemovedRecords) {
  CQdrDbObjectId pipe;
  CQdrDbObjectId weld;
  m_database.m_layerTable.getAt(L"PipeLine", pipe);
  m_database.m_layerTable.getAt(L"WeldNum", weld);
  tagUndoEditEntity step = record(m_lines[0], qdr::kUndoLayer, false);
  step.oldId = pipe;
  m_handler.AddUndo(step);
  m_handler.replaceRecord(pipe.getPObject(), weld.getPObject());
  EXPECT_TRUE(m_handler.m_undoList.front().oldId == weld);
  m_handler.forgetRecord(pipe.getPObject());
  EXPECT_EQ(m_handler.m_undoList.size(), 1u);
  m_handler.forgetRecord(weld.getPObject());
  EXPECT_TRUE(m_handler.m_undoList.empty());
}

TEST_F(UndoHandler, ScaleByZeroIsUndoneWithoutAFault) {
  tagUndoEditEntity step = record(m_lines[0], qdr::kUndoScaled, false);
  m_handler.AddUndo(step);
  EXPECT_TRUE(m_handler.Undo());
}

}  // namespace
