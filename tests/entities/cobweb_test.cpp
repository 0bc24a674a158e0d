#include "entities/cobweb.h"

#include <gtest/gtest.h>

#include "geometry/angle.h"
#include "geometry/line2d.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;

void expectNear(const CQdrGePoint2d& actual, const CQdrGePoint2d& expected, const char* what) {
  EXPECT_LT(actual.distanceTo(expected), 1e-9)
      << what << ": (" << actual.x << ", " << actual.y << ")";
}

class Cobwebs : public testing::Test {
 protected:
  Cobwebs() : web(new CQdrDbCobweb({1, 2}, 3, 5, 4, 0)) {
    CQdrDbObjectId id;
    database.addEntity(web, id);
  }

  CQdrDbDatabase database{true};
  CQdrDbCobweb* web;
  CQdrUndoHandler& undo = database.m_undoHandler;
};

TEST_F(Cobwebs, CountsItsWings) {
  std::vector<CQdrGePoint2d>* grips = nullptr;
  web->SetWings(1);
  web->getGripPointVec(grips);
  EXPECT_EQ(grips->size(), 4u);
  web->SetWings(4);
  EXPECT_EQ(web->GetWingNum({1, 4}, 0.01), 1);
  EXPECT_EQ(web->GetWingNum({4, 4}, 0.01), -1);
  web->SetWings(-3);
  EXPECT_EQ(web->GetDivAngle(), 0.0);
  EXPECT_EQ(web->GetWingNum({1, 2}, 0.1), -1);
}

TEST_F(Cobwebs, OnlyItsOwnTransformsMoveIt) {
  web->TranslateBy(CQdrGeVector2d(9, 9));
  EXPECT_EQ(web->CopyEntity(true), nullptr);
  expectNear(web->Center(), {1, 2}, "in place");
  web->translateBy(CQdrGeVector2d(1, -2));
  web->rotateBy(qdr::kHalfPi, {0, 0});
  expectNear(web->Center(), {0, 2}, "turned");
  expectNear(web->getGripPoint(2), {0, 7}, "the first spoke turns along");
  web->scaleBy(2, {0, 0});
  expectNear(web->getGripPoint(2), {0, 14}, "scaled");
  web->mirror(CQdrGeLine2d(CQdrGePoint2d(0, 0), CQdrGePoint2d(1, 0)));
  expectNear(web->getGripPoint(2), {0, -14}, "mirrored");
}

TEST_F(Cobwebs, RepeatsEntitiesAtItsWings) {
  struct Row {
    bool second;
    bool forward;
    int wings;
    std::vector<double> degrees;
  };
  const Row rows[] = {{false, true, 4, {90, 180, 270}}, {false, false, 4, {270, 180, 90}},
                      {true, true, 6, {120, 240}},      {true, false, 6, {240, 120}},
                      {true, true, 5, {144}},           {true, true, 3, {240}},
                      {true, false, 3, {120}}};
  for (const Row& row : rows) {
    web->SetWings(row.wings);
    const std::set<CQdrDbObjectId> lines = {addFromText(database, "line 2 2 4 2")->objectId(),
                                            addFromText(database, "line 3 2 4 2")->objectId()};
    const std::size_t before = undo.m_undoList.size();
    if (row.second)
      web->SetEntity2(lines, row.forward);
    else
      web->SetEntity(lines, row.forward);
    const std::size_t count = 2 * row.degrees.size();
    ASSERT_EQ(undo.m_undoList.size(), before + count);
    for (std::size_t i = 0; i < count; ++i) {
      const tagUndoEditEntity& step = undo.m_undoList[count - 1 - i];
      EXPECT_EQ(step.continued, i == 0 ? 0 : 1);
      auto* copy = static_cast<CQdrDbEntity*>(step.entityId.getPObject());
      copy->setGripPoints();
      const CQdrGeVector2d spoke(qdr::toRadians(row.degrees[i / 2]));
      expectNear(copy->getGripPoint(2), CQdrGePoint2d(1, 2) + spoke * 3.0, "end of the copy");
    }
  }
}

TEST_F(Cobwebs, Explodes) {
  ASSERT_TRUE(web->Explode());
  EXPECT_EQ(undo.m_undoList.size(), 6u);
  EXPECT_EQ(undo.m_undoList.back().continued, 0);
  EXPECT_EQ(undo.m_undoList.front().continued, 1);
}

}  // namespace
