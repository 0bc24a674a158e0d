// The index of a view answers as the plain walk does, through additions, edits and deletions.

#include <gtest/gtest.h>

#include <random>

#include "database/block_table_record.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/line.h"
#include "entities/point.h"
#include "entities/rect.h"
#include "tests/support/desk.h"

namespace {

using qdr::test::Desk;

class IndexRandom : public testing::Test {
 protected:
  double coordinate() { return std::uniform_real_distribution<>(-200.0, 400.0)(m_random); }
  double size() { return std::uniform_real_distribution<>(0.1, 40.0)(m_random); }
  CQdrGePoint2d point() { return {coordinate(), coordinate()}; }

  CQdrDbEntity* anyEntity() {
    switch (m_random() % 5) {
      case 0:
        return new CQdrDbCircle(point(), size());
      case 1:
        return new CQdrDbArc(point(), size() * 10, size(), size());
      case 2: {
        const CQdrGePoint2d corner = point();
        return new CQdrDbRect(corner, corner + CQdrGeVector2d(size(), -size()));
      }
      case 3:
        return new CQdrDbPoint(point());
      default: {
        const CQdrGePoint2d start = point();
        return new CQdrDbLine(start, start + CQdrGeVector2d(size(), size()));
      }
    }
  }

  void add() {
    CQdrDbObjectId id;
    desk.drawing->addEntity(anyEntity(), id);
    m_ids.push_back(id);
  }

  // One change of the kinds that commands, undo and hosts make.
  void change() {
    const std::size_t at = m_random() % m_ids.size();
    CQdrDbEntity* const entity = qdr::asEntity(m_ids[at]);
    switch (m_random() % 6) {
      case 0:
        add();
        break;
      case 1:
        entity->TranslateBy(CQdrGeVector2d(coordinate(), coordinate()));
        entity->setGripPoints();
        break;
      case 2:
        entity->setLineWeight(static_cast<QdrDb::LineWeight>(211));
        break;
      case 3:
        desk.drawing->removeEntity(entity);
        delete entity;
        m_ids.erase(m_ids.begin() + static_cast<std::ptrdiff_t>(at));
        break;
      case 4:
        entity->setErased();
        break;
      default:
        desk.drawing->m_vars.pointSize = static_cast<std::uint8_t>(m_random() % 30);
        break;
    }
  }

  void compareOnce() {
    const CQdrGePoint2d a = point();
    const CQdrGePoint2d b = point();
    const double tolerance = view.pickBoxSide() / 2.0;
    CQdrDbObjectId picked;
    view.selectEntity(a, picked);
    CQdrDbObjectId expected;
    std::set<CQdrDbObjectId> inside;
    std::set<CQdrDbObjectId> crossing;
    for (const CQdrDbObjectId& id : view.getDisplayedIdSet()) {
      CQdrDbEntity* const entity = qdr::asEntity(id);
      if (!entity->isVisiable()) continue;
      if (expected.isNull() && entity->isOn(a, tolerance) != 0) expected = id;
      if (entity->checkInside(a, b)) inside.insert(id);
      if (entity->checkInsideOrCross(a, b)) crossing.insert(id);
    }
    EXPECT_EQ(picked, expected);
    std::set<CQdrDbObjectId> found;
    view.selectEntityByWin(a, b, found);
    EXPECT_TRUE(found == inside);
    view.selectEntityByCross(a, b, found);
    EXPECT_TRUE(found == crossing);
  }

  unsigned seed() const {
    const char* const given = std::getenv("QDR_TEST_SEED");
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 20261121u;
  }

  Desk desk;
  CQdrDbDisplayTableRecord& view = desk.record();
  std::mt19937 m_random{seed()};
  std::vector<CQdrDbObjectId> m_ids;
};

TEST_F(IndexRandom, AnswersAsThePlainWalk) {
  SCOPED_TRACE("seed " + std::to_string(seed()));
  for (int i = 0; i < 3000; ++i)
    add();
  for (int round = 0; round < 300 && !HasFailure(); ++round) {
    for (int i = 0; i < 8; ++i)
      change();
    compareOnce();
  }
}

// The same picture is drawn with the index and, one entity fewer than it takes, without it.
TEST_F(IndexRandom, DrawsAsThePlainWalk) {
  SCOPED_TRACE("seed " + std::to_string(seed()));
  for (int i = 0; i < 400; ++i)
    add();
  desk.paint();
  const std::vector<qdr::Pixel> indexed = desk.pixels();
  const std::set<CQdrDbObjectId> all = view.getDisplayedIdSet();
  // 200 at a time there is no index; the second half is drawn over the first by exclusion from
  // none.
  CDC* const dc = desk.drawing->m_pDC;
  dc->FillSolidRect(view.logicalWindow(), dc->GetBkColor());
  for (const CQdrDbObjectId& id : all)
    qdr::asEntity(id)->Draw(dc);
  EXPECT_EQ(indexed, desk.pixels());
}

}  // namespace
