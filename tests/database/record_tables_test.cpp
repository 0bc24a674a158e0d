#include <gtest/gtest.h>

#include "database/color_index.h"
#include "database/database.h"
#include "database/ent_set_iterator.h"
#include "entities/line.h"
#include "platform/headless/headless_platform.h"

namespace {

class RecordTables : public testing::Test {
 protected:
  CQdrDbLine* addLine() {
    auto* line = new CQdrDbLine(&database);
    CQdrDbObjectId id;
    database.addEntity(line, id);
    return line;
  }

  template <class Record, class Table>
  Record* added(Table& table, const wchar_t* name) {
    auto* record = new Record(&database);
    record->setName(name);
    record->setOwnerId(table.objectId());
    EXPECT_TRUE(table.add(record));
    return record;
  }

  qdr::HeadlessPlatform headless;
  qdr::ScopedPlatform scope{headless.context()};
  CQdrDbDatabase database{false};
};

TEST(LineWeights, WordsAndWidths) {
  struct Row {
    const wchar_t* number;
    const wchar_t* text;
  };
  const Row rows[] = {{L"-3", L"Default"},  {L"-2", L"ByBlock"}, {L"-1", L"ByLayer"},
                      {L"0", L"0.00 mm"},   {L"25", L"0.25 mm"}, {L"211", L"2.11 mm"},
                      {L"word", L"0.00 mm"}};
  for (const Row& row : rows)
    EXPECT_EQ(_getStrWeight(row.number), row.text);
}

TEST(LineWeights, BoundaryGrowsUpAndDown) {
  struct Row {
    int weight;
    int top;
    int bottom;
  };
  // Truncated: 10 + 5.0, -20 - 5.0; 10 + 4.1 = 14.1, -24.1; 10 + 0.5 = 10.5, -20.5.
  const Row rows[] = {{30, 15, -25},  {40, 14, -24},  {53, 13, -23},  {70, 12, -22},
                      {106, 11, -21}, {120, 11, -21}, {200, 10, -20}, {25, 10, -20}};
  for (const Row& row : rows) {
    const CRect rect = _getBoundary(CRect(1, 10, 2, -20), row.weight);
    EXPECT_EQ(rect.top, row.top) << row.weight;
    EXPECT_EQ(rect.bottom, row.bottom) << row.weight;
    EXPECT_EQ(rect.left, 1);
    EXPECT_EQ(rect.right, 2);
  }
}

TEST(ColorIndex, ValuesBothWays) {
  struct Row {
    int index;
    unsigned long value;
  };
  const Row rows[] = {{0, 0xFFFFFF},   {1, 0x0000FF},   {5, 0xFF0000},  {100, 0x3FFF00},
                      {250, 0x333333}, {255, 0x000000}, {256, 0xFFFFFF}};
  for (const Row& row : rows)
    EXPECT_EQ(_getColorValueByIndex(row.index), row.value) << row.index;
  EXPECT_EQ(_getColorValueByIndex(-1), 0xFFFFFFu);
  EXPECT_EQ(_getColorValueByIndex(257), 0xFFFFFFu);
  EXPECT_EQ(_getColorIndexByValue(0xFFFFFF), 0);    // the first white, not 7
  EXPECT_EQ(_getColorIndexByValue(0xAB0000FF), 1);  // the high byte does not count
  EXPECT_EQ(_getColorIndexByValue(0x000000), 255);
  EXPECT_EQ(_getColorIndexByValue(0x010101), 0);  // none
  EXPECT_EQ(getColor(CQdrDbObjectId::kNULL), 0xFFFFFFu);
}

TEST_F(RecordTables, NaturalColorNames) {
  struct Row {
    const wchar_t* index;
    unsigned long value;
    const wchar_t* name;
  };
  const Row rows[] = {
      {L"0", 0xFFFFFF, L"ByBlock"}, {L"256", 0xFFFFFF, L"ByLayer"}, {L"7", 0xFFFFFF, L"white"},
      {L"1", 0x0000FF, L"red"},     {L"5", 0xFF0000, L"blue"},      {L"2", 0x00FFFF, L"yellow"},
      {L"4", 0xFFFF00, L"cyan"},    {L"6", 0xFF00FF, L"magenta"},   {L"3", 0x00FF00, L"green"},
      {L"255", 0x000000, L"black"}, {L"8", 0x808080, L"8"}};
  for (const Row& row : rows) {
    CQdrDbColorTableRecord record(&database);
    record.setName(row.index);
    record.setColor(row.value);
    CString name;
    record.getNaturColorName(name);
    EXPECT_EQ(name, row.name);
    EXPECT_STREQ(record.getColorName(), row.name);
  }
}

TEST_F(RecordTables, DefaultsOfANewDrawing) {
  EXPECT_STREQ(database.m_colorTable.getCurrentRecord()->getName(), L"256");
  EXPECT_STREQ(database.m_linetypeTable.getCurrentRecord()->getName(), L"ByLayer");
  EXPECT_STREQ(database.m_layerTable.getCurrentRecord()->getName(), L"0");
  struct Row {
    const wchar_t* layer;
    unsigned long color;
  };
  const Row rows[] = {
      {L"PipeLine", 0x0000FF}, {L"WeldNum", 0xFFFFFF}, {L"Dimension", 0x00FF00}, {L"0", 0xFFFFFF}};
  for (const Row& row : rows) {
    CQdrDbLayerTableRecord* layer = nullptr;
    ASSERT_TRUE(database.m_layerTable.getRecord(row.layer, layer));
    EXPECT_EQ(layer->getColorValue(), row.color);
    EXPECT_EQ(layer->getLineWeight(), 0);
    const auto* linetype = static_cast<CQdrDbTableRecord*>(layer->getLinetypeId().getPObject());
    EXPECT_STREQ(linetype->getName(), L"CONTINUOUS");
  }
  const CQdrDbTextStyleTableRecord* style = database.m_textStyleTable.getCurrentRecord();
  EXPECT_STREQ(style->getName(), L"STANDARD");
  EXPECT_EQ(style->widthFactor(), 0.0);
}

TEST_F(RecordTables, RecordsInUseStay) {
  CQdrDbLine* line = addLine();
  added<CQdrDbLayerTableRecord>(database.m_layerTable, L"Wall");
  added<CQdrDbLTypeTableRecord>(database.m_linetypeTable, L"Dots");
  ASSERT_TRUE(line->setLayer(L"Wall"));
  ASSERT_TRUE(line->setLineType(L"Dots"));
  ASSERT_TRUE(line->setColor(99));
  line->setErased();
  EXPECT_FALSE(database.m_layerTable.removeRecord(L"Wall"));
  EXPECT_FALSE(database.m_linetypeTable.removeRecord(L"Dots"));
  EXPECT_FALSE(database.m_colorTable.removeRecord(L"99"));
  EXPECT_FALSE(database.m_linetypeTable.removeRecord(L"CONTINUOUS"));
  EXPECT_FALSE(database.m_textStyleTable.removeRecord(L"STANDARD"));
  EXPECT_FALSE(database.m_textStyleTable.removeRecord(L"standard"));
  EXPECT_FALSE(database.m_colorTable.removeRecord(L"7")) << "layers refer to it";
  EXPECT_TRUE(headless.ui.boxes().empty());
  EXPECT_FALSE(database.m_layerTable.removeRecord(L"0"));
  ASSERT_EQ(headless.ui.boxes().size(), 1u);
  EXPECT_EQ(headless.ui.boxes()[0].text, L"Cannot remove base layer.");

  ASSERT_TRUE(line->setLayer(L"0"));
  ASSERT_TRUE(line->setLineType(L"ByLayer"));
  ASSERT_TRUE(line->setColor(256));
  EXPECT_TRUE(database.m_layerTable.removeRecord(L"Wall"));
  EXPECT_TRUE(database.m_linetypeTable.removeRecord(L"Dots"));
  EXPECT_TRUE(database.m_colorTable.removeRecord(L"99"));
}

TEST_F(RecordTables, RemovedCurrentRecordsFallBack) {
  auto* layer = added<CQdrDbLayerTableRecord>(database.m_layerTable, L"Wall");
  layer->setColorId(database.m_currentColorId);
  database.m_layerTable.setCurrentRecord(layer);
  database.m_currentLayerId = layer->objectId();
  ASSERT_TRUE(database.m_layerTable.removeRecord(L"Wall"));
  EXPECT_STREQ(database.m_layerTable.getCurrentRecord()->getName(), L"0");
  EXPECT_EQ(database.m_currentLayerId, database.m_layerTable.getCurrentRecord());
  EXPECT_EQ(database.m_colorTable.getCurrentRecord()->getNumLayer(), 0u);
}

TEST_F(RecordTables, ReplacedRecordsHandTheirUsersOver) {
  CQdrDbLine* line = addLine();
  auto* layer = added<CQdrDbLayerTableRecord>(database.m_layerTable, L"Wall");
  layer->setColorId(database.m_currentColorId);
  ASSERT_TRUE(line->setLayer(L"Wall"));
  ASSERT_TRUE(line->setColor(99));
  layer->setColorId(line->ColorId());
  auto* color = added<CQdrDbColorTableRecord>(database.m_colorTable, L"99");
  EXPECT_EQ(line->ColorId(), color);
  EXPECT_EQ(layer->getColorId(), color);
  EXPECT_EQ(color->getNumEntity(), 1u);
  EXPECT_EQ(color->getNumLayer(), 1u);
  auto* wall = added<CQdrDbLayerTableRecord>(database.m_layerTable, L"Wall");
  EXPECT_EQ(line->LayerId(), wall);
  EXPECT_EQ(wall->getNumEntity(), 1u);
  EXPECT_EQ(color->getNumLayer(), 0u);
}

TEST_F(RecordTables, EntitiesOfAColorThroughItsLayers) {
  auto* layer = added<CQdrDbLayerTableRecord>(database.m_layerTable, L"Wall");
  auto* color = added<CQdrDbColorTableRecord>(database.m_colorTable, L"99");
  layer->setColorId(color);
  ASSERT_TRUE(addLine()->setLayer(L"Wall"));
  std::set<CQdrDbObjectId> ids;
  EXPECT_EQ(color->getEntitySet(ids, false), 0u);
  EXPECT_EQ(color->getEntitySet(ids, true), 1u);
}

TEST_F(RecordTables, LayerZeroKeepsItsName) {
  CQdrDbLayerTableRecord* layer = database.m_layerTable.getCurrentRecord();
  layer->setName(L"other");
  EXPECT_STREQ(layer->getName(), L"0");
}

TEST_F(RecordTables, LayerStatusBits) {
  CQdrDbLayerTableRecord layer(&database);
  layer.setIsOff(true);
  EXPECT_EQ(layer.status(), 0x01);
  layer.setIsLocked(true);
  EXPECT_EQ(layer.status(), 0x03);
  layer.setIsOff(false);
  EXPECT_EQ(layer.status(), 0x02);
  layer.setStatus(0xFF);
  EXPECT_TRUE(layer.isOff());
  layer.resetStatus();
  EXPECT_EQ(layer.status(), 0);
}

TEST_F(RecordTables, PatternsOfLinetypes) {
  CQdrDbLTypeTableRecord record(&database);
  record.setDashes({2.0});
  EXPECT_EQ(record.getDevicePattern(10.0), nullptr) << "one dash draws solid";
  record.setDashes({1.26, -0.5, 0.0});
  EXPECT_DOUBLE_EQ(record.getPatternLength(), 1.76);
  database.m_vars.linetypeScale = 2.0;
  const std::uint32_t* pattern = record.getDevicePattern(10.0);
  ASSERT_NE(pattern, nullptr);
  EXPECT_EQ(pattern[0], 25u);  // 1.26 * 2 * 10 = 25.2
  EXPECT_EQ(pattern[1], 10u);
  EXPECT_EQ(pattern[2], 0u);
  EXPECT_EQ(record.getDevicePattern(20.0)[0], 25u) << "computed once";
}

TEST_F(RecordTables, SymbolNamesRunWithTheTable) {
  wchar_t name[CQdrDbTableRecord::kNameSize] = {};
  EXPECT_TRUE(database.m_symbolTable.GetLastName(name).isNull());
  EXPECT_STREQ(name, L"*S4294967295");
  auto* first = new CQdrDbSymbolTableRecord(&database);
  first->SetAutoName(name);
  EXPECT_STREQ(name, L"*S0");
  EXPECT_TRUE(database.m_symbolTable.add(first));
  auto* second = new CQdrDbSymbolTableRecord(&database);
  second->SetAutoName(name);
  EXPECT_STREQ(second->getName(), L"*S1");
  EXPECT_TRUE(database.m_symbolTable.add(second));
  EXPECT_EQ(database.m_symbolTable.getCurrentRecord(), second);
  EXPECT_TRUE(database.m_symbolTable.addRefEntity(first->objectId()));
  EXPECT_EQ(first->getNumEntity(), 1u);
  EXPECT_FALSE(database.m_symbolTable.addRefEntity(addLine()->objectId()));
  EXPECT_FALSE(database.m_symbolTable.addRefEntity(CQdrDbObjectId::kNULL));
  EXPECT_TRUE(database.m_symbolTable.removeRecord(L"*S1"));
  EXPECT_EQ(database.m_symbolTable.getCurrentRecord(), nullptr);
  database.m_symbolTable.initSymbolTable();
  EXPECT_EQ(database.m_symbolTable.size(), 0u);
  EXPECT_EQ(database.m_symbolTable.GetNextName(), 2u);
  EXPECT_STREQ(first->getName(), L"*S0") << "symbols may still point at it";
}

}  // namespace
