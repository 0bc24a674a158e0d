// The entity base: looks and the pen made of them, hit tests, grips, extended data.

#include "entities/entity.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "entities/line.h"
#include "entities/point.h"
#include "entities/rect.h"
#include "entities/return_struct.h"
#include "geometry/tolerance.h"
#include "platform/device_context.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addAs;
using qdr::test::addFromText;
using qdr::test::bytesOf;
using qdr::test::readFrom;

constexpr COLORREF kWhite = 0xffffff;
constexpr COLORREF kBlack = 0;
constexpr COLORREF kRed = 0x0000ff;
constexpr COLORREF kGreen = 0x00ff00;
constexpr COLORREF kOdd = 0x123456;

class EntityLooks : public testing::Test {
 protected:
  CQdrDbLayerTableRecord* layer(const wchar_t* name) {
    CQdrDbLayerTableRecord* record = nullptr;
    m_database.m_layerTable.getRecord(name, record);
    return record;
  }

  CQdrDbLTypeTableRecord* addLineType(const wchar_t* name, const std::vector<double>& dashes) {
    auto* record = new CQdrDbLTypeTableRecord(&m_database);
    record->setName(name);
    record->setDashes(dashes);
    m_database.m_linetypeTable.add(record);
    return record;
  }

  CQdrDbDatabase m_database{true};
  CQdrDbLine* m_line = addAs<CQdrDbLine>(m_database, "line 0 0 10 0");
};

TEST_F(EntityLooks, PenTakesColour) {
  struct Row {
    const char* name;
    int index;
    COLORREF background;
    COLORREF expected;
  };
  // The layer of the entity is "Dimension", colour 3, green; the pen in use has an odd colour.
  const Row rows[] = {
      {"own colour", 1, kWhite, kRed},
      {"by layer", 256, kWhite, kGreen},
      {"index 255 goes by layer too", 255, kWhite, kGreen},
      {"beyond the palette", 300, kWhite, kGreen},
      {"by block, from the pen in use", 0, kWhite, kOdd},
      {"white on white", 7, kWhite, kBlack},
      {"white on black", 7, kBlack, kWhite},
      {"own colour on itself", 1, kRed, kRed},
  };
  m_line->setLayer(L"Dimension");
  for (const Row& row : rows) {
    CDC dc;
    CPen inUse(PS_SOLID, 9, kOdd);
    dc.SelectObject(&inUse);
    dc.SetBkColor(row.background);
    m_line->setColor(row.index);
    CPen* former = m_line->setPen(&dc);
    EXPECT_EQ(dc.GetCurrentPen()->color(), row.expected) << row.name;
    m_line->RemovePen(&dc, former);
    EXPECT_EQ(dc.GetCurrentPen(), &inUse) << row.name;
  }
}

TEST_F(EntityLooks, BlackOnBlackDrawsWhite) {
  m_line->Color()->setColor(0ul);  // the record "256" plays no part, the layer's colour does
  static_cast<CQdrDbColorTableRecord*>(layer(L"0")->getColorId().getPObject())->setColor(0ul);
  CDC dc;
  dc.SetBkColor(kBlack);
  CPen* former = m_line->setPen(&dc);
  EXPECT_EQ(dc.GetCurrentPen()->color(), kWhite);
  m_line->RemovePen(&dc, former);
}

TEST_F(EntityLooks, PenTakesWidth) {
  struct Row {
    const char* name;
    int weight;
    int layerWeight;
    int expected;
  };
  const Row rows[] = {
      {"own weight, a hundredth of a millimetre each", 25, 0, 25},
      {"by layer", -1, 50, 50},
      {"default, from the pen in use", -3, 50, 9},
      {"by block has no rule of its own", -2, 50, -2},
  };
  for (const Row& row : rows) {
    CDC dc;
    CPen inUse(PS_SOLID, 9, kOdd);
    dc.SelectObject(&inUse);
    m_line->setLineWeight(static_cast<QdrDb::LineWeight>(row.weight));
    layer(L"0")->setLineWeight(static_cast<QdrDb::LineWeight>(row.layerWeight));
    CPen* former = m_line->setPen(&dc);
    EXPECT_EQ(dc.GetCurrentPen()->width(), row.expected) << row.name;
    m_line->RemovePen(&dc, former);
  }
}

TEST_F(EntityLooks, PenTakesDashes) {
  m_database.m_vars.linetypeScale = 2.0;
  addLineType(L"bylayer", {5.0, -5.0});
  addLineType(L"Dot", {1.0});
  addLineType(L"Slot", {1.0, -0.257, 0.5});
  layer(L"0")->setLinetypeId(addLineType(L"OfLayer", {0.1, -0.2}));
  struct Row {
    const wchar_t* name;
    std::vector<DWORD> expected;
  };
  // Lengths times the linetype scale of 2 times 100, truncated.
  const Row rows[] = {
      {L"CONTINUOUS", {}},       {L"Dot", {}},           {L"Hidden", {200, 100}},
      {L"Slot", {200, 51, 100}}, {L"ByLayer", {20, 40}}, {L"bylayer", {20, 40}},
  };
  for (const Row& row : rows) {
    CDC dc;
    ASSERT_TRUE(m_line->setLineType(row.name));
    CPen* former = m_line->setPen(&dc);
    EXPECT_EQ(dc.GetCurrentPen()->dashes(), row.expected) << CString(row.name).text().size();
    EXPECT_EQ(dc.GetCurrentPen()->style(), row.expected.empty() ? 0x10000 : 0x10007);
    m_line->RemovePen(&dc, former);
  }
}

TEST_F(EntityLooks, MissingRecordsLeaveThePenInUse) {
  CDC dc;
  CPen* const inUse = dc.GetCurrentPen();
  m_line->setColor(CQdrDbObjectId());
  EXPECT_EQ(m_line->setPen(&dc), inUse);
  EXPECT_EQ(dc.GetCurrentPen(), inUse);
  EXPECT_EQ(m_line->Color(), nullptr);
  m_line->setLayer(CQdrDbObjectId());
  EXPECT_FALSE(m_line->isVisiable());
  EXPECT_EQ(m_line->Layer(), L"");
  m_line->getProperty();
}

TEST_F(EntityLooks, UndrawTakesTheBackgroundAndHighlightADottedPen) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CBitmap bitmap;
  bitmap.CreateCompatibleBitmap(&dc, 20, 20);
  dc.SelectObject(&bitmap);
  dc.FillSolidRect(0, 0, 20, 20, kGreen);
  m_line->set({0.05, 0.05}, {0.15, 0.05});  // logical (5, 5) to (15, 5)
  m_line->setColor(1);
  m_line->Draw(&dc);
  EXPECT_EQ(dc.GetPixel(10, 5), kRed);
  m_line->UnDraw(&dc);
  EXPECT_EQ(dc.GetPixel(10, 5), kGreen);
  m_line->HighlightDraw(&dc);
  int red = 0;
  for (int x = 5; x < 15; ++x)
    red += dc.GetPixel(x, 5) == kRed ? 1 : 0;
  EXPECT_GT(red, 0);
  EXPECT_LT(red, 10);
  dc.FillSolidRect(0, 0, 20, 20, kGreen);
  layer(L"0")->setIsOff(true);
  m_line->Draw(&dc);
  EXPECT_EQ(dc.GetPixel(10, 5), kGreen);
}

TEST_F(EntityLooks, NamesNeverSayByLayer) {
  EXPECT_EQ(m_line->LineType(), L"CONTINUOUS");
  EXPECT_EQ(m_line->ColorIndex(), 7);
  m_line->setLayer(L"Dimension");
  EXPECT_EQ(m_line->Layer(), L"Dimension");
  EXPECT_EQ(m_line->ColorIndex(), 3);
  m_line->setLineType(L"Hidden");
  EXPECT_EQ(m_line->LineType(), L"Hidden");
}

TEST_F(EntityLooks, SettersByName) {
  EXPECT_FALSE(m_line->setLayer(L"nowhere"));
  EXPECT_EQ(m_line->Layer(), L"0");
  EXPECT_FALSE(m_line->setLineType(L"nowhere"));
  EXPECT_TRUE(m_line->setColor(42));  // an index without a record gets one
  CQdrDbColorTableRecord* record = nullptr;
  ASSERT_TRUE(m_database.m_colorTable.getRecord(L"42", record));
  EXPECT_EQ(record->getColor(), 0x0099CCu);
  EXPECT_TRUE(record->ownerId() == m_database.ColorTable());
}

TEST_F(EntityLooks, SettersMoveTheEntityBetweenReferringSets) {
  const CQdrDbObjectId id = m_line->objectId();
  CQdrDbColorTableRecord* byLayer = m_line->Color();
  m_line->setLayer(L"WeldNum");
  m_line->setColor(2);
  EXPECT_FALSE(layer(L"0")->getEntitySet().contains(id));
  EXPECT_TRUE(layer(L"WeldNum")->getEntitySet().contains(id));
  EXPECT_FALSE(byLayer->getEntitySet().contains(id));
  EXPECT_TRUE(m_line->Color()->getEntitySet().contains(id));
  EXPECT_FALSE(m_database.m_layerTable.removeRecord(L"WeldNum"));

  CQdrDbLine outside(&m_database);
  outside.setLayer(L"PipeLine");
  EXPECT_EQ(layer(L"PipeLine")->getNumEntity(), 0u);
}

TEST_F(EntityLooks, UnknownReferencesFallBackOnReading) {
  m_line->setLayer(L"WeldNum");
  m_line->setLineType(L"Hidden");
  m_line->setColor(1);
  std::string bytes = bytesOf(*m_line);
  const std::uint64_t noSuchRecord = 0x7777777777777777;
  const std::int32_t noSuchColor = 77;
  std::memcpy(&bytes[13], &noSuchRecord, 8);
  std::memcpy(&bytes[21], &noSuchRecord, 8);
  std::memcpy(&bytes[29], &noSuchColor, 4);
  const std::size_t colors = m_database.m_colorTable.size();
  CQdrDbLine line(&m_database);
  readFrom(line, bytes);
  EXPECT_EQ(line.Layer(), L"0");
  EXPECT_STREQ(static_cast<CQdrDbTableRecord*>(line.LineTypeId().getPObject())->getName(),
               L"ByLayer");
  EXPECT_STREQ(line.Color()->getName(), L"256");
  EXPECT_EQ(m_database.m_colorTable.size(), colors);
}

TEST_F(EntityLooks, WritesTheCommonBlock) {
  m_line->setColor(1);
  m_line->setLineWeight(static_cast<QdrDb::LineWeight>(53));
  const std::string bytes = bytesOf(*m_line);
  std::uint64_t number = 0;
  std::int32_t value = 0;
  std::memcpy(&number, &bytes[0], 8);
  EXPECT_EQ(number, m_line->getCreatedTime());
  std::memcpy(&value, &bytes[8], 4);
  EXPECT_EQ(value, 6);
  std::memcpy(&number, &bytes[13], 8);
  EXPECT_EQ(number, m_line->LayerId().hardId());
  std::memcpy(&value, &bytes[29], 4);
  EXPECT_EQ(value, 1);
  std::memcpy(&value, &bytes[33], 4);
  EXPECT_EQ(value, 53);
  EXPECT_EQ(bytes.substr(37, 2), std::string(2, '\0'));
}

Return_Struct* textNode(const wchar_t* text, Return_Struct* next) {
  auto* node = new Return_Struct;
  node->code = Return_Struct::kText;
  node->value.text = text ? new wchar_t[std::wcslen(text) + 1] : nullptr;
  if (text) std::wcscpy(node->value.text, text);
  node->next = next;
  return node;
}

TEST_F(EntityLooks, ExtendedDataSurvivesAFile) {
  auto* number = new Return_Struct;
  number->code = Return_Struct::kNumber;
  number->value.number[0] = 2.5;
  auto* letter = new Return_Struct;
  letter->code = Return_Struct::kKeyword;
  letter->value.keyword = L'K';
  letter->next = number;
  m_line->SetXData(textNode(L"pipe \x1F600", textNode(nullptr, letter)));
  const std::string bytes = bytesOf(*m_line);
  // Four nodes of 32 bytes and 7 units of text: the last character takes two.
  EXPECT_EQ(bytes.size(), 79u + 4 * 32 + 14);
  EXPECT_EQ(bytes.substr(39 + 4, 6), std::string("\0\0\0\0\x07\0", 6));

  CQdrDbLine line(&m_database);
  readFrom(line, bytes);
  readFrom(line, bytes);  // a second reading frees what the first one made
  const Return_Struct* node = line.xData();
  EXPECT_STREQ(node->value.text, L"pipe \x1F600");
  node = node->next;
  EXPECT_EQ(node->code, Return_Struct::kText);
  EXPECT_EQ(node->value.text, nullptr);
  node = node->next;
  EXPECT_EQ(node->value.keyword, L'K');
  node = node->next;
  EXPECT_EQ(node->value.number[0], 2.5);
  EXPECT_EQ(node->next, nullptr);
  EXPECT_EQ(line.EndPoint().x, 10.0);
  EXPECT_EQ(std::unique_ptr<CQdrDbEntity>(line.CopyEntity())->xData(), nullptr);
  for (std::size_t length = 39; length < bytes.size(); ++length) {
    CQdrDbLine cut(&m_database);
    readFrom(cut, bytes.substr(0, length));
  }
}

TEST_F(EntityLooks, AnEntityJoinsTheDatabaseItIsGiven) {
  _gpDatabase = nullptr;
  CQdrDbLine line(nullptr);
  EXPECT_TRUE(line.LayerId().isNull());
  line.SetBoundary(1);
  line.setDatabase(&m_database);
  EXPECT_EQ(line.Layer(), L"0");
  EXPECT_EQ(line.IsBoundary(), 0);
  line.SetBoundary(1);
  line.setDatabase(&m_database);  // it has one already
  EXPECT_EQ(line.IsBoundary(), 1);
  line.makeProperty();
}

TEST_F(EntityLooks, MovesIntoAnotherDatabaseByName) {
  CQdrDbDatabase other(false);
  CQdrDbLTypeTableRecord* foreign = addLineType(L"Foreign", {1.0, -1.0});
  m_line->setLayer(L"WeldNum");
  m_line->setLineType(foreign);
  m_line->setColor(99);
  CQdrDbLine copy(*m_line);
  copy.setDatabase(&other);
  copy.SetEntPropertyToThis();
  EXPECT_EQ(copy.LayerId().database(), &other);
  EXPECT_EQ(copy.Layer(), L"WeldNum");
  EXPECT_EQ(copy.ColorId().database(), &other);
  EXPECT_EQ(copy.ColorIndex(), 99);
  EXPECT_EQ(copy.LineTypeId().database(), &other);
  EXPECT_EQ(copy.LineType(), L"CONTINUOUS");  // "ByLayer", and so the layer's
}

TEST(EntityHits, PolygonTest) {
  struct Row {
    const char* name;
    CQdrGePoint2d point;
    bool inside;
  };
  // An L: the notch is the upper right quarter of a square of side 4.
  const CQdrGePoint2d shape[] = {{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}};
  const Row rows[] = {
      {"middle", {1, 1}, true},
      {"notch", {3, 3}, false},
      {"left", {-1, 1}, false},
      {"height of a horizontal edge, inside", {1, 2}, true},
      {"on the upper edge", {1, 4}, true},
      {"on the lower edge", {1, 0}, false},
      {"on the left edge", {0, 1}, false},
      {"on the right edge", {4, 1}, true},
  };
  for (const Row& row : rows)
    EXPECT_EQ(CQdrDbEntity::IsInsidePolygon(shape, row.point, 6), row.inside) << row.name;
  EXPECT_FALSE(CQdrDbEntity::IsInsidePolygon(shape, {1, 1}, 0));
}

TEST(EntityHits, GripBoxesAreWholeUnits) {
  CQdrDbDatabase database(true);
  CQdrDbEntity* line = addFromText(database, "line 10 10 20 10");
  struct Row {
    const char* name;
    CQdrGePoint2d pick;
    double scale;
    int grip;
  };
  // With scale 100 the box of the start runs from 10 - 5 to 10 + 5, right and top outside.
  const Row rows[] = {
      {"in the box of the start", {5.9, 14.9}, 100, 1},
      {"truncated pick on the right side", {15.1, 10}, 100, 0},
      {"below", {7, 4.9}, 100, -1},
      {"the first grip wins", {15, 10}, 200, 0},
      {"a scale below one unit leaves no box", {10, 10}, 5, -1},
  };
  for (const Row& row : rows) {
    CQdrGePoint2d grip;
    EXPECT_EQ(line->GetGripNumber(row.pick, row.scale, grip), row.grip) << row.name;
    const int last = row.grip < 0 ? 2 : row.grip;
    EXPECT_EQ(grip.x, line->getGripPoint(last).x) << row.name;
  }
  CQdrGePoint2d grip;
  EXPECT_EQ(std::unique_ptr<CQdrDbEntity>(line->CopyEntity())->GetGripNumber({10, 10}, 100, grip),
            -1);
  EXPECT_EQ(line->getGripPoint(-1).x, 0.0);
  EXPECT_EQ(line->getGripPoint(3).x, 0.0);
}

TEST(EntityHits, CrossingAtBothEndsOfTheLineCountsForNothing) {
  CQdrDbDatabase database(true);
  CQdrDbEntity* line = addFromText(database, "line 0 -5 0 5");
  CQdrGeLine2d through(CQdrGePoint2d(-5, 0), CQdrGePoint2d(5, 0));
  CQdrGeLine2d apart(CQdrGePoint2d(1, 0), CQdrGePoint2d(5, 0));
  CQdrGeLine2d tiny(CQdrGePoint2d(-0.0001, 0), CQdrGePoint2d(0.0001, 0));
  EXPECT_TRUE(line->IntersectWith(through, qdr::kCurveTolerance));
  EXPECT_TRUE(line->IsCrossWidth(through, qdr::kCurveTolerance));
  EXPECT_FALSE(line->IntersectWith(apart, qdr::kCurveTolerance));
  EXPECT_FALSE(line->IsCrossWidth(apart, qdr::kCurveTolerance));
  EXPECT_TRUE(line->IntersectWith(tiny, 0.001));
  EXPECT_FALSE(line->IsCrossWidth(tiny, 0.001));
}

TEST(Rect, EmptinessIsExact) {
  EXPECT_TRUE(CQdrDbRect().isRectEmpty());
  EXPECT_FALSE(CQdrDbRect({0.0, 1.0}, {-1.0, 0.0}).isRectEmpty());
  EXPECT_TRUE(CQdrDbRect({2.0, 1.0}, {2.0, 0.0}).isRectEmpty());
  EXPECT_EQ(CRect(CQdrDbRect({0.015, 2.0}, {3.0, -1.0})), CRect(1, 200, 300, -100));
  EXPECT_TRUE(CQdrDbRect({0.0, 4.0}, {4.0, 0.0}).isPtInRect({1.0, 1.0}));
  EXPECT_FALSE(CQdrDbRect({0.0, 4.0}, {4.0, 0.0}).isPtInRect({5.0, 1.0}));
}

TEST(PointMarker, DrawsItsShape) {
  CQdrDbDatabase database(true);
  auto* point = addAs<CQdrDbPoint>(database, "point 0 0 0.1");
  point->setColor(1);
  struct Row {
    int mode;
    bool filled;
    // Colour wanted at the middle, on the right arm, on the diagonal, and at a corner; logical.
    bool middle, arm, diagonal, corner;
  };
  const Row rows[] = {
      {2, false, true, true, false, false},  {3, false, true, false, true, true},
      {5, false, false, false, false, true}, {5, true, true, true, true, true},
      {6, true, true, true, false, false},   {9, false, true, true, true, true},
      {12, false, true, true, true, true},   {13, false, true, false, true, true},
      {14, false, true, true, false, false}, {15, false, false, false, false, false},
  };
  for (const Row& row : rows) {
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&dc, 41, 41);
    dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, 41, 41, kGreen);
    dc.SetWindowOrg(-20, -20);
    point->SetPdMode(row.mode);
    point->SetFillMode(row.filled);
    point->Draw(&dc);
    EXPECT_EQ(dc.GetPixel(0, 0) == kRed, row.middle) << row.mode;
    EXPECT_EQ(dc.GetPixel(7, 0) == kRed, row.arm) << row.mode;
    EXPECT_EQ(dc.GetPixel(7, 7) == kRed, row.diagonal) << row.mode;
    EXPECT_EQ(dc.GetPixel(-10, -10) == kRed, row.corner) << row.mode;
    EXPECT_EQ(dc.GetPixel(15, 15), kGreen) << row.mode;
  }
}

TEST(PointMarker, FollowsTheDrawing) {
  CQdrDbDatabase database(true);
  CQdrDbPoint point(&database);
  point.SetPdMode(5);
  CQdrDbPoint loaded(&database);
  readFrom(loaded, bytesOf(point));
  EXPECT_EQ(loaded.PdMode(), 0);                        // the shape is not in a file
  EXPECT_EQ(loaded.markerSquare(), CRect(0, 0, 0, 0));  // no view, no pixel size
  loaded.SetSize(0.05);
  EXPECT_EQ(loaded.markerSquare(), CRect(-5, 5, 5, -5));
}

}  // namespace
