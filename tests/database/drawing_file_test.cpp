#include <gtest/gtest.h>

#include "database/ent_set_iterator.h"
#include "database/entity_access.h"
#include "database/fixed_text.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"
#include "platform/platform_context.h"
#include "tests/support/drawing_bytes.h"

namespace {

using namespace qdr_test;

CQdrDbLine* addLine(CQdrDbDatabase& database, double x1, double y1, double x2, double y2) {
  auto* line = new CQdrDbLine(&database);
  line->setStartPoint({x1, y1});
  line->setEndPoint({x2, y2});
  CQdrDbObjectId id;
  database.addEntity(line, id);
  return line;
}

std::vector<CQdrDbEntity*> modelSpace(CQdrDbDatabase& database) {
  CQdrDbBlockTableRecord* space = nullptr;
  std::vector<CQdrDbEntity*> entities;
  if (!database.m_blockTable.getRecord(L"MODEL_SPACE", space)) return entities;
  for (const CQdrDbObjectId& id : space->getEntitySet())
    entities.push_back(qdr::asEntity(id));
  return entities;
}

template <class Number>
struct Expected {
  const char* name;
  std::size_t offset;
  Number value;
};

template <class Number, std::size_t N>
void expectNumbers(const std::string& bytes, const Expected<Number> (&rows)[N]) {
  for (const Expected<Number>& row : rows) {
    EXPECT_EQ(numberAt<Number>(bytes, row.offset), row.value) << row.name;
  }
}

TEST(DrawingFile, FixedBlocksOfANewDrawing) {
  CQdrDbDatabase database(false);
  const std::string bytes = savedBytes(database);
  ASSERT_EQ(bytes.size(), kEmptyDrawing);
  EXPECT_EQ(bytes.substr(0, 12), std::string("K\0-\0O\0v\0a\0\0\0", 12));
  EXPECT_EQ(bytes.substr(222, 14), std::string("1\0.\0"
                                               "0\0"
                                               "0\0"
                                               "1\0a\0\0\0",
                                               14));
  constexpr std::size_t kVars = 21566;
  constexpr std::size_t kDimVars = kVars + 1200;
  expectNumbers<std::uint8_t>(bytes, {{"grid divisions", kVars + 1, 1},
                                      {"reserved 7", kVars + 7, 4},
                                      {"point mode", kVars + 9, 3},
                                      {"point size", kVars + 10, 5},
                                      {"pick box size", kVars + 11, 5}});
  expectNumbers<double>(bytes, {{"linetype scale", kVars + 24, 1.0},
                                {"text height", kVars + 32, 2.0},
                                {"grid spacing", kVars + 40, 1.0},
                                {"reserved 56", kVars + 56, 1.0},
                                {"zoom step", kVars + 64, 0.2},
                                {"drag scale unit", kVars + 72, 100.0},
                                {"limits max x", kVars + 112, 420.0},
                                {"limits max y", kVars + 120, 297.0},
                                {"paper max x", kVars + 704, 420.0},
                                {"paper max y", kVars + 712, 297.0},
                                {"arrow size", kDimVars + 152, 2.0},
                                {"reserved 176", kDimVars + 176, 7.0},
                                {"reserved 208", kDimVars + 208, 0.005},
                                {"dimension text height", kDimVars + 224, 1.6},
                                {"plane c", kDimVars + 232 + 16, 1.0},
                                {"plane d", kDimVars + 232 + 24, 0.0}});
  EXPECT_EQ(numberAt<std::int16_t>(bytes, kVars + 192), 256);
  EXPECT_EQ(numberAt<std::int32_t>(bytes, kVars + 196), -1);
  EXPECT_EQ(textAt(bytes, kVars + 200), L"0");
  EXPECT_EQ(textAt(bytes, kVars + 362), L"ByLayer");
  EXPECT_EQ(textAt(bytes, kVars + 524), L"STANDARD");  // refreshed from "standard"
  EXPECT_EQ(textAt(bytes, kDimVars), L"arrow");
  EXPECT_EQ(textAt(bytes, kDimVars + 64), L"standard");
  EXPECT_EQ(numberAt<std::uint16_t>(bytes, kDimVars + 132), 256);
}

TEST(DrawingFile, TablesOfANewDrawing) {
  CQdrDbDatabase database(false);
  const std::string bytes = savedBytes(database);
  expectNumbers<std::uint16_t>(bytes, {{"colours", kColorTable, 9},
                                       {"linetypes", kLinetypeTable, 4},
                                       {"layers", kLayerTable, 4},
                                       {"text styles", kTextStyleTable, 1},
                                       {"symbols", kSymbolTable, 0},
                                       {"project info", kProjectInfoTable + 324, 0},
                                       {"revisions", kRevisionTable, 0},
                                       {"blocks", kBlockTable, 1},
                                       {"end of blocks", kEmptyDrawing - 2, 0}});
  // Map order is by code point: "1" is the second colour, "256" the fourth.
  constexpr std::size_t kRed = kColorTable + 2 + 200;
  EXPECT_EQ(numberAt<std::int32_t>(bytes, kRed + 8), 45);
  EXPECT_EQ(textAt(bytes, kRed + 13), L"1");
  EXPECT_EQ(numberAt<std::uint32_t>(bytes, kRed + 195), 0x0000FFu);
  EXPECT_EQ(textAt(bytes, kColorTable + 2 + 3 * 200 + 13), L"256");
  // "ByBlock", "ByLayer", "CONTINUOUS", "Hidden".
  constexpr std::size_t kHidden = kLinetypeTable + 2 + 3 * 357;
  EXPECT_EQ(textAt(bytes, kHidden + 13), L"Hidden");
  EXPECT_EQ(numberAt<std::int32_t>(bytes, kHidden + 175), 2);
  EXPECT_EQ(numberAt<double>(bytes, kHidden + 179), 1.0);
  EXPECT_EQ(numberAt<double>(bytes, kHidden + 187), -0.5);
  EXPECT_EQ(numberAt<double>(bytes, kHidden + 195), 1.5);
  EXPECT_EQ(textAt(bytes, kHidden + 203), L"- - - - - - - -");
  // "0", "Dimension", "PipeLine", "WeldNum": layer "PipeLine" is red and continuous.
  constexpr std::size_t kPipeLine = kLayerTable + 2 + 2 * 197;
  EXPECT_EQ(textAt(bytes, kPipeLine + 13), L"PipeLine");
  EXPECT_EQ(numberAt<std::uint64_t>(bytes, kPipeLine + 177), numberAt<std::uint64_t>(bytes, kRed));
  EXPECT_EQ(numberAt<std::uint64_t>(bytes, kPipeLine + 185),
            numberAt<std::uint64_t>(bytes, kLinetypeTable + 2 + 2 * 357));
  EXPECT_EQ(textAt(bytes, kTextStyleTable + 2 + 208), L"KOSDICES");
  EXPECT_EQ(textAt(bytes, kTextStyleTable + 2 + 370), L"KOSDICHS");
  EXPECT_EQ(numberAt<std::uint8_t>(bytes, kBlockTable + 2 + 12), 0x01);
}

TEST(DrawingFile, BytesOfALine) {
  CQdrDbDatabase database(false);
  CQdrDbLine* line = addLine(database, 1.0, 2.0, 3.0, -4.0);
  const std::string bytes = savedBytes(database);
  ASSERT_EQ(bytes.size(), kEmptyDrawing + 4 + 79);
  const std::size_t at = kFirstEntity;
  EXPECT_EQ(numberAt<std::uint32_t>(bytes, at - 4), 1u);
  EXPECT_EQ(numberAt<std::int32_t>(bytes, at), 6);
  EXPECT_EQ(numberAt<std::uint64_t>(bytes, at + 4), line->hardObjectId());
  EXPECT_EQ(numberAt<std::int32_t>(bytes, at + 12), 6);
  EXPECT_EQ(numberAt<std::uint8_t>(bytes, at + 16), 0x04);
  EXPECT_EQ(numberAt<std::uint64_t>(bytes, at + 17), line->LayerId().hardId());
  EXPECT_EQ(numberAt<std::uint64_t>(bytes, at + 25), line->LineTypeId().hardId());
  EXPECT_EQ(numberAt<std::int32_t>(bytes, at + 33), 256);
  EXPECT_EQ(numberAt<std::int32_t>(bytes, at + 37), -1);
  EXPECT_EQ(numberAt<std::uint16_t>(bytes, at + 41), 0);
  EXPECT_EQ(numberAt<double>(bytes, at + 43), 1.0);
  EXPECT_EQ(numberAt<double>(bytes, at + 51), 2.0);
  EXPECT_EQ(numberAt<double>(bytes, at + 63), 3.0);
  EXPECT_EQ(numberAt<double>(bytes, at + 71), -4.0);
}

TEST(DrawingFile, ASecondSaveIsEqualButForTheDate) {
  CQdrDbDatabase database(true);
  addLine(database, 0.0, 0.0, 1.0, 1.0);
  addLine(database, 5.0, 0.0, 1.0, 7.0)->setLayer(L"Dimension");
  database.m_header.computerName = L"first machine";
  database.m_header.userName = L"first user";
  database.setDate(L"1999-12-31");
  database.m_vars.reserved720[479] = 0x5A;
  std::string first = savedBytes(database);
  const auto loaded = drawingOf(first);
  std::string second = savedBytes(*loaded);
  putText(first, 238, L"2000-01-01");
  putText(second, 238, L"2000-01-01");
  EXPECT_EQ(first, second);
  EXPECT_EQ(textAt(second, 24), L"first machine");
  EXPECT_EQ(textAt(second, 90), L"first user");
}

TEST(DrawingFile, HeaderNamesThePlaceOfTheSave) {
  struct Row {
    const wchar_t* path;
    const wchar_t* folder;
    const wchar_t* title;
  };
  const Row rows[] = {{L"/drawings/plan.v2.kov", L"/drawings", L"plan.v2"},
                      {L"/drawings/plan", L"/drawings", L""}};
  qdr::MemoryFiles files;
  PlatformContext context;
  context.files = &files;
  qdr::ScopedPlatform scope(context);
  for (const Row& row : rows) {
    CQdrDbDatabase database(false);
    database.SaveAs(row.path);
    EXPECT_EQ(database.m_pFile, nullptr);
    EXPECT_EQ(database.FilePath(), row.folder);
    EXPECT_EQ(database.m_header.title.text(), row.title);
    ASSERT_NE(files.content(row.path), nullptr);
    EXPECT_EQ(files.content(row.path)->size(), kEmptyDrawing);
    EXPECT_EQ(files.count(), 1u) << "no backup is made";
    CFile file;
    EXPECT_TRUE(file.Open(row.path, CFile::modeRead));
    files.remove(row.path);
  }
}

TEST(DrawingFile, ErasedObjectsStayOut) {
  CQdrDbDatabase database(false);
  addLine(database, 0.0, 0.0, 1.0, 1.0)->setErased();
  CQdrDbLayerTableRecord* layer = nullptr;
  ASSERT_TRUE(database.m_layerTable.getRecord(L"WeldNum", layer));
  layer->setErased();
  const std::string bytes = savedBytes(database);
  EXPECT_EQ(bytes.size(), kEmptyDrawing - 197);
  EXPECT_EQ(numberAt<std::uint16_t>(bytes, kLayerTable), 3);
  EXPECT_EQ(numberAt<std::uint32_t>(bytes, kFirstEntity - 197 - 4), 0u);
}

TEST(DrawingFile, NumbersBindToRecordsOfTheFileFirst) {
  CQdrDbDatabase database(false);
  CQdrDbLine* line = addLine(database, 0.0, 0.0, 1.0, 1.0);
  ASSERT_TRUE(line->setLayer(L"WeldNum"));
  std::string bytes = savedBytes(database);
  // The layer comes back under a name that no default has, and under the number of the default
  // layer "PipeLine" of the drawing that reads it, which also stays as the file leaves it out.
  auto target = std::make_unique<CQdrDbDatabase>(false);
  CQdrDbObjectId pipeLine;
  ASSERT_TRUE(target->m_layerTable.getAt(L"PipeLine", pipeLine));
  const std::uint64_t number = pipeLine.hardId();
  const std::size_t weldNum = kLayerTable + 2 + 3 * 197;
  putNumber(bytes, weldNum, number);
  putText(bytes, weldNum + 13, L"Z");
  putText(bytes, kLayerTable + 2 + 2 * 197 + 13, L"Y");
  putNumber(bytes, kFirstEntity + 17, number);
  readBytes(*target, bytes);
  ASSERT_EQ(modelSpace(*target).size(), 1u);
  EXPECT_EQ(modelSpace(*target)[0]->Layer(), L"Z");
}

TEST(DrawingFile, MissesFallBack) {
  CQdrDbDatabase database(false);
  addLine(database, 0.0, 0.0, 1.0, 1.0)->setLayer(L"WeldNum");
  std::string bytes = savedBytes(database);
  constexpr std::size_t kVars = 21566;
  const std::uint64_t nobody = 0x7777777777777777;
  putNumber(bytes, kFirstEntity + 17, nobody);
  putNumber(bytes, kFirstEntity + 25, nobody);
  putNumber(bytes, kFirstEntity + 33, std::int32_t{77});
  putNumber(bytes, kLayerTable + 2 + 2 * 197 + 177, nobody);
  putNumber(bytes, kVars + 20, std::int16_t{7});
  putNumber(bytes, kVars + 192, std::int16_t{78});
  putText(bytes, kVars + 200, L"nowhere");
  putText(bytes, kVars + 362, L"nowhere");
  putText(bytes, kVars + 524, L"nowhere");
  const auto loaded = drawingOf(bytes);
  const std::vector<CQdrDbEntity*> entities = modelSpace(*loaded);
  ASSERT_EQ(entities.size(), 1u);
  EXPECT_EQ(entities[0]->Layer(), L"0");
  EXPECT_STREQ(loaded->m_linetypeTable.getCurrentRecord()->getName(), L"ByLayer");
  EXPECT_EQ(entities[0]->LineTypeId(), loaded->m_currentLinetypeId);
  EXPECT_EQ(entities[0]->ColorId(), loaded->m_currentColorId);
  EXPECT_STREQ(loaded->m_colorTable.getCurrentRecord()->getName(), L"256");
  EXPECT_STREQ(loaded->m_layerTable.getCurrentRecord()->getName(), L"0");
  EXPECT_STREQ(loaded->m_textStyleTable.getCurrentRecord()->getName(), L"STANDARD");
  EXPECT_STREQ(loaded->m_blockTable.getCurrentRecord()->getName(), L"MODEL_SPACE");
  EXPECT_FALSE(loaded->m_colorTable.has(L"77"));
  CQdrDbLayerTableRecord* pipeLine = nullptr;
  ASSERT_TRUE(loaded->m_layerTable.getRecord(L"PipeLine", pipeLine));
  EXPECT_TRUE(pipeLine->getColorId().isNull());
}

TEST(DrawingFile, WhatAReaderDoesNotCompare) {
  CQdrDbDatabase database(false);
  addLine(database, 0.0, 0.0, 1.0, 1.0);
  std::string bytes = savedBytes(database);
  putText(bytes, 0, L"Other");
  putText(bytes, 222, L"9");
  putNumber(bytes, kLinetypeTable - 2, std::uint16_t{1234});
  putNumber(bytes, bytes.size() - 2, std::uint16_t{1234});
  const auto loaded = drawingOf(bytes);
  EXPECT_EQ(modelSpace(*loaded).size(), 1u);
  EXPECT_EQ(loaded->m_layerTable.size(), 4u);
}

TEST(DrawingFile, ProjectAndRevisionRecordsAreDropped) {
  CQdrDbDatabase database(false);
  wchar_t name[CQdrDbTableRecord::kNameSize];
  for (int i = 0; i < 2; ++i) {
    auto* info = new CQdrDbProjectInfoTableRecord(&database);
    info->SetAutoName(name);
    database.m_projectInfoTable.add(info);
    auto* revision = new CQdrDbRevisionTableRecord(&database);
    revision->SetAutoName(name);
    database.m_revisionTable.add(revision);
  }
  EXPECT_STREQ(name, L"*S2");  // revisions number from the project info table
  qdr::copyText(database.m_projectInfoTable.m_secondText, L"customer");
  const std::string bytes = savedBytes(database);
  EXPECT_EQ(bytes.size(), kEmptyDrawing + 2 * 345 + 2 * 1367);
  const auto loaded = drawingOf(bytes);
  EXPECT_EQ(loaded->m_projectInfoTable.size(), 0u);
  EXPECT_EQ(loaded->m_revisionTable.size(), 0u);
  EXPECT_EQ(loaded->m_projectInfoTable.GetNextName(), 2u);
  EXPECT_STREQ(loaded->m_projectInfoTable.m_secondText, L"customer");
  EXPECT_EQ(savedBytes(*loaded).size(), kEmptyDrawing);
}

// The number of each table stands in front of its closing 0.
TEST(DrawingFile, NumbersOfAutomaticNamesComeBack) {
  std::string bytes = savedBytes(*std::make_unique<CQdrDbDatabase>(false));
  putNumber(bytes, kSymbolTable + 2, std::uint32_t{0x01020304});
  putNumber(bytes, kRevisionTable - 6, std::uint32_t{5});
  putNumber(bytes, kBlockTable - 6, std::uint32_t{6});
  const auto loaded = drawingOf(bytes);
  EXPECT_EQ(loaded->m_symbolTable.GetNextName(), 0x01020304u);
  EXPECT_EQ(loaded->m_projectInfoTable.GetNextName(), 5u);
  EXPECT_EQ(loaded->m_revisionTable.GetNextName(), 6u);
  EXPECT_EQ(savedBytes(*loaded), bytes);
}

TEST(DrawingFile, SymbolRecordsComeBack) {
  CQdrDbDatabase database(false);
  wchar_t name[CQdrDbTableRecord::kNameSize];
  auto* symbol = new CQdrDbSymbolTableRecord(&database);
  symbol->SetAutoName(name);
  symbol->SetBase(CQdrGePoint2d(3.0, 4.0));
  symbol->AddPoint(CQdrDbSymPoint(CQdrGePoint2d(1.0, 2.0), 0));
  symbol->AddPoint(CQdrDbSymPoint(CQdrGePoint2d(5.0, 6.0), 1));
  database.m_symbolTable.add(symbol);
  EXPECT_EQ(database.m_symbolTable.GetLastName(name).getPObject(), symbol);
  const std::string bytes = savedBytes(database);
  EXPECT_EQ(bytes.size(), kEmptyDrawing + 203 + 2 * 21);
  EXPECT_EQ(numberAt<std::uint8_t>(bytes, kSymbolTable + 2 + 203 + 20), 0);
  const auto loaded = drawingOf(bytes);
  CQdrDbSymbolTableRecord* back = nullptr;
  ASSERT_TRUE(loaded->m_symbolTable.getRecord(L"*S0", back));
  EXPECT_EQ(back->NumPoints(), 2u);
  EXPECT_EQ(back->GetEndPoint().x, 5.0);
  EXPECT_FALSE(back->GetStartPoint().GetPenMode());
  EXPECT_EQ(back->GetBase3().y, 4.0);
  EXPECT_EQ(back->GetBase3().z, 0.0);
  EXPECT_EQ(loaded->m_symbolTable.GetNextName(), 1u);
}

TEST(DrawingFile, RecordsWithoutANameAreDropped) {
  CQdrDbDatabase database(false);
  addLine(database, 0.0, 0.0, 1.0, 1.0);
  std::string bytes = savedBytes(database);
  putText(bytes, kLayerTable + 2 + 3 * 197 + 13, L"");
  putText(bytes, kBlockTable + 2 + 13, L"");
  const auto loaded = drawingOf(bytes);
  EXPECT_TRUE(modelSpace(*loaded).empty());
  EXPECT_STREQ(loaded->m_blockTable.getCurrentRecord()->getName(), L"MODEL_SPACE");
  EXPECT_EQ(loaded->m_lastEntity, nullptr);
}

TEST(DrawingFile, SelectionsBecomeDrawingsAndDrawingsBlocks) {
  qdr::HeadlessPlatform headless;
  qdr::MemoryFiles files;
  PlatformContext context = headless.context();
  context.files = &files;
  qdr::ScopedPlatform scope(context);
  CQdrDbDatabase source(false);
  CQdrDbLine* line = addLine(source, 10.0, 10.0, 12.0, 10.0);
  auto* layer = new CQdrDbLayerTableRecord(&source);
  layer->setName(L"Own");
  layer->setColorId(source.m_currentColorId);
  layer->setLinetypeId(source.m_currentLinetypeId);
  source.m_layerTable.add(layer);
  ASSERT_TRUE(line->setLayer(L"Own"));

  std::vector<CQdrDbEntity*> nothing;
  source.WriteAsBlock(L"/none.kov", {0.0, 0.0}, &nothing, L"");
  EXPECT_EQ(files.count(), 0u);
  EXPECT_TRUE(headless.ui.boxes().empty());

  std::vector<CQdrDbEntity*> selection{line};
  source.WriteAsBlock(L"/part.kov", {10.0, 10.0}, &selection, L"a part");
  ASSERT_EQ(headless.ui.boxes().size(), 1u);
  EXPECT_EQ(headless.ui.boxes()[0].text, L"Block Saved as '/part.kov'");
  EXPECT_EQ(line->LayerId().getPObject(), layer);
  ASSERT_NE(files.content(L"/part.kov"), nullptr);
  EXPECT_EQ(textAt(*files.content(L"/part.kov"), 774), L"a part");

  CQdrDbDatabase target(false);
  EXPECT_EQ(target.ReadAsBlock(L"/missing.kov"), nullptr);
  CQdrDbBlockTableRecord* block = target.ReadAsBlock(L"/part.kov");
  ASSERT_NE(block, nullptr);
  EXPECT_STREQ(block->getName(), L"part");
  ASSERT_EQ(block->getNumEntity(), 1u);
  auto* copy = static_cast<CQdrDbLine*>(qdr::asEntity(*block->getEntitySet().begin()));
  EXPECT_EQ(copy->StartPoint().x, 0.0);
  EXPECT_EQ(copy->EndPoint().x, 2.0);
  EXPECT_EQ(copy->Layer(), L"Own");
  EXPECT_EQ(copy->LayerId().database(), &target);
  EXPECT_TRUE(modelSpace(target).empty());
}

}  // namespace
