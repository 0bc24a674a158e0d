#include "database/file/drawing_scanner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "database/entity_classes.h"
#include "database/fixed_text.h"
#include "entities/line.h"
#include "tests/support/drawing_bytes.h"

namespace {

using namespace qdr_test;
using qdr::FaultKind;

constexpr std::size_t kLineStream = 4 + 79;

struct Collector : qdr::DrawingVisitor {
  void onEntity(const qdr::ScannedObject& entity) override {
    numbers.push_back(entity.number);
    sizes.push_back(entity.size);
  }
  void onFault(const qdr::ScanFault& fault) override {
    kinds.push_back(fault.kind);
    text += fault.object + ": " + fault.detail + "\n";
  }
  std::vector<std::uint64_t> numbers;
  std::vector<std::uint64_t> sizes;
  std::vector<FaultKind> kinds;
  std::string text;
};

// A drawing of three lines.
std::string threeLines() {
  CQdrDbDatabase database(false);
  for (int i = 0; i < 3; ++i) {
    auto* line = new CQdrDbLine(&database);
    line->setStartPoint({1.0 * i, 0.0});
    line->setEndPoint({1.0 * i, 5.0});
    CQdrDbObjectId id;
    database.addEntity(line, id);
  }
  return savedBytes(database);
}

TEST(DrawingScanner, ASoundDrawing) {
  const std::string bytes = threeLines();
  Collector found;
  const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, found);
  EXPECT_EQ(found.text, "");
  EXPECT_EQ(drawing.faults, 0u);
  EXPECT_EQ(drawing.entities, 3u);
  EXPECT_EQ(drawing.records, (std::array<std::uint64_t, 8>{9, 4, 4, 1, 0, 0, 0, 1}));
  EXPECT_EQ(drawing.header.version.text(), L"1.001a");
  EXPECT_EQ(drawing.vars.limitsMax.x, 420.0);
  EXPECT_EQ(found.sizes, (std::vector<std::uint64_t>{79, 79, 79}));
  const auto last = numberAt<std::uint64_t>(bytes, kFirstEntity + 2 * kLineStream + 4);
  EXPECT_EQ(found.numbers[2], last);
  EXPECT_EQ(drawing.largestNumber, last);
}

TEST(DrawingScanner, EachFaultIsToldAndPassed) {
  struct Row {
    const char* name;
    std::function<void(std::string&)> damage;
    std::vector<FaultKind> faults;
    std::uint64_t entities;
  };
  const std::size_t second = kFirstEntity + kLineStream;
  const Row rows[] = {
      {"another application", [](auto& b) { putText(b, 0, L"Other"); }, {FaultKind::foreign}, 3},
      {"plane without end",
       [](auto& b) { putNumber(b, kFixedBytes - 8, std::numeric_limits<double>::infinity()); },
       {FaultKind::notFinite},
       3},
      {"class type of an entity",
       [=](auto& b) { putNumber(b, second, std::int32_t{40}); },
       {FaultKind::unknownClass, FaultKind::skipped},
       2},
      {"class that no entity bears",
       [=](auto& b) { putNumber(b, second, std::int32_t{17}); },
       {FaultKind::unknownClass, FaultKind::skipped},
       2},
      {"repeated class of an entity",
       [=](auto& b) { putNumber(b, second + 12, std::int32_t{2}); },
       {FaultKind::wrongClass, FaultKind::skipped},
       2},
      {"data nodes beyond the entity",
       [=](auto& b) { putNumber(b, second + 41, std::uint16_t{1}); },
       {FaultKind::badCount, FaultKind::skipped},
       2},
      {"data nodes beyond the file",
       [=](auto& b) { putNumber(b, second + 41, std::uint16_t{0xFFFF}); },
       {FaultKind::cut, FaultKind::skipped},
       2},
      {"a coordinate",
       [=](auto& b) { putNumber(b, second + 43, std::nan("")); },
       {FaultKind::notFinite},
       3},
      {"layer that is not there",
       [=](auto& b) { putNumber(b, second + 17, std::uint64_t{1} << 60); },
       {FaultKind::missingReference},
       3},
      {"no layer at all", [=](auto& b) { putNumber(b, second + 17, std::uint64_t{0}); }, {}, 3},
      {"colour without a record",
       [=](auto& b) { putNumber(b, second + 33, std::int32_t{99}); },
       {FaultKind::missingReference},
       3},
      {"two entities of one number",
       [=](auto& b) { putNumber(b, second + 4, numberAt<std::uint64_t>(b, kFirstEntity + 4)); },
       {FaultKind::sameNumber},
       3},
      {"too many entities",
       [](auto& b) { putNumber(b, kFirstEntity - 4, std::uint32_t{0xFFFFFFFF}); },
       {FaultKind::badCount, FaultKind::unknownClass, FaultKind::skipped},
       3},
      {"class of a layer",
       [](auto& b) { putNumber(b, kLayerTable + 2 + 197 + 8, std::int32_t{42}); },
       {FaultKind::wrongClass, FaultKind::skipped},
       3},
      {"dashes beyond the file",
       [](auto& b) { putNumber(b, kLinetypeTable + 2 + 175, std::int32_t{1 << 30}); },
       {FaultKind::badCount, FaultKind::skipped},
       3},
      {"a layer without a name",
       [](auto& b) { putText(b, kLayerTable + 2 + 197 + 13, L""); },
       {FaultKind::noName},
       3},
      {"two layers of one name",
       [](auto& b) { putText(b, kLayerTable + 2 + 197 + 13, L"0"); },
       {FaultKind::sameName},
       3},
      {"closing number of the colours",
       [](auto& b) { putNumber(b, kLinetypeTable - 2, std::uint16_t{5}); },
       {FaultKind::badEnd},
       3},
      {"bytes behind the end", [](auto& b) { b += "xyz"; }, {FaultKind::trailing}, 3},
      {"cut in the last line",
       [](auto& b) { b.resize(b.size() - 4 - 2 - 10); },
       {FaultKind::cut},
       2},
      {"cut in the settings", [](auto& b) { b.resize(22000); }, {FaultKind::cut}, 0},
      {"nothing", [](auto& b) { b.clear(); }, {FaultKind::cut}, 0},
  };
  for (const Row& row : rows) {
    std::string bytes = threeLines();
    row.damage(bytes);
    Collector found;
    const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, found);
    EXPECT_EQ(found.kinds, row.faults) << row.name << "\n" << found.text;
    EXPECT_EQ(drawing.entities, row.entities) << row.name << "\n" << found.text;
  }
}

// One entity of zeros, but for its class, status and what `fill` puts into its own fields, in the
// place of the second line.
std::string withEntity(std::int32_t type, std::uint8_t status, std::size_t ownBytes,
                       const std::function<void(std::string&)>& fill) {
  std::string stream(43 + ownBytes, '\0');
  putNumber(stream, 0, type);
  putNumber(stream, 4, std::uint64_t{987654321});
  putNumber(stream, 12, type);
  putNumber(stream, 16, status);
  putNumber(stream, 33, std::int32_t{256});
  if (fill) fill(stream);
  std::string bytes = threeLines();
  return bytes.replace(kFirstEntity + kLineStream, kLineStream, stream);
}

// Head and colour of a part with a head of its own inside an entity.
void putPart(std::string& stream, std::size_t at, std::int32_t type) {
  putNumber(stream, at + 8, type);
  putNumber(stream, at + 29, std::int32_t{256});
}

TEST(DrawingScanner, EveryClassHasItsSize) {
  struct Row {
    std::int32_t type;
    std::uint8_t status;
    std::size_t own;
    std::function<void(std::string&)> fill = {};
  };
  const Row rows[] = {
      {2, 0x04, 44},
      {3, 0x04, 44},
      {4, 0x04, 85},
      {5, 0x04, 85},
      {6, 0x04, 40},
      {7, 0x14, 10},
      {7, 0x14, 10 + 2 * 44, [](auto& s) { putNumber(s, 43, std::uint32_t{2}); }},
      {8, 0x14, 17},
      {8, 0x14, 17 + 3 * 20 + 2 * 44,
       [](auto& s) {
         putNumber(s, 43 + 8, std::uint32_t{3});
         putNumber(s, 43 + 12 + 60, std::uint32_t{2});
       }},
      {9, 0x14, 5},
      {9, 0x14, 5 + 4 * 21, [](auto& s) { putNumber(s, 43 + 1, std::uint32_t{4}); }},
      {10, 0x14, 61},
      {10, 0x14, 61 + 44, [](auto& s) { putNumber(s, 43 + 56, std::uint32_t{1}); }},
      {12, 0x14, 214},
      {13, 0x04, 102},
      {14, 0x04, 30},
      {15, 0x04, 598},
      {16, 0x04, 32},
      {18, 0x94, 684},
      {19, 0x94, 644},
      {20, 0x94, 632},
      {21, 0x94, 612},
      {22, 0x94, 564 + 671, [](auto& s) { putPart(s, 43 + 564, 22); }},
      {23, 0x94, 623},
      {24, 0x94, 612},
      {25, 0x94, 564 + 671, [](auto& s) { putPart(s, 43 + 564, 25); }},
      {26, 0x04, 44},
      {28, 0x14, 267},
      {31, 0x05, 166},
      {31, 0x05, 166 + 2 * 637,
       [](auto& s) {
         putNumber(s, 43, std::uint16_t{2});
         putPart(s, 45, 15);
         putPart(s, 45 + 637, 15);
       }},
  };
  for (const Row& row : rows) {
    const std::string bytes = withEntity(row.type, row.status, row.own, row.fill);
    Collector found;
    const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, found);
    EXPECT_EQ(found.text, "") << "class " << row.type << " of " << row.own;
    ASSERT_EQ(drawing.entities, 3u) << "class " << row.type;
    EXPECT_EQ(found.sizes[1], 39 + row.own) << "class " << row.type;
  }
}

// What a class writes has the shape told for it, and comes back as it was.
TEST(DrawingScanner, ClassesWriteTheirShapes) {
  int classes = 0;
  for (std::int32_t type = QdrDb::eClassArc; type <= QdrDb::eClassTextTable; ++type) {
    const qdr::EntityClass* row = qdr::entityClass(static_cast<QdrDb::ClassType>(type));
    if (!row || !row->make) continue;
    ++classes;
    CQdrDbDatabase database(false);
    CQdrDbObjectId id;
    database.addEntity(row->make(&database), id);
    const std::string bytes = savedBytes(database);
    Collector found;
    const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, found);
    EXPECT_EQ(found.text, "") << "class " << type;
    EXPECT_EQ(drawing.entities, 1u) << "class " << type;
    EXPECT_EQ(savedBytes(*drawingOf(bytes)), bytes) << "class " << type;
  }
  EXPECT_GE(classes, 5);
}

TEST(DrawingScanner, CobwebsAndBoundaries) {
  Collector cobweb;
  qdr::scanDrawing(withEntity(11, 0x04, 44, {}), cobweb);
  EXPECT_EQ(cobweb.kinds, std::vector<FaultKind>{FaultKind::unreadable}) << cobweb.text;

  const auto hatch = [](std::uint64_t boundary) {
    return withEntity(13, 0x04, 102 + 8, [=](std::string& stream) {
      putNumber(stream, 43 + 100, std::uint16_t{1});
      putNumber(stream, 43 + 102, boundary);
    });
  };
  const auto first = numberAt<std::uint64_t>(hatch(0), kFirstEntity + 4);
  Collector there;
  std::string bytes = hatch(1);
  putNumber(bytes, kFirstEntity + 4, std::uint64_t{1});
  qdr::scanDrawing(bytes, there);
  EXPECT_EQ(there.text, "");
  Collector missing;
  putNumber(bytes, kFirstEntity + 4, first + 1000);
  qdr::scanDrawing(bytes, missing);
  EXPECT_EQ(missing.kinds, std::vector<FaultKind>{FaultKind::missingReference}) << missing.text;
}

TEST(DrawingScanner, RowsThatAReaderDrops) {
  CQdrDbDatabase database(false);
  wchar_t name[CQdrDbTableRecord::kNameSize];
  auto* info = new CQdrDbProjectInfoTableRecord(&database);
  info->SetAutoName(name);
  info->m_first = -7;
  info->m_second = 8;
  qdr::copyText(info->m_text, L"pipes");
  database.m_projectInfoTable.add(info);
  auto* revision = new CQdrDbRevisionTableRecord(&database);
  revision->setName(L"B");
  revision->m_number = 3;
  qdr::copyText(revision->m_firstText, L"who");
  qdr::copyText(revision->m_secondText, L"what");
  qdr::copyText(revision->m_thirdText, L"why");
  database.m_revisionTable.add(revision);
  const qdr::DroppedRows rows = qdr::scanDroppedRows(savedBytes(database));
  ASSERT_EQ(rows.projectInfo.size(), 1u);
  EXPECT_EQ(rows.projectInfo[0].name, L"*S0");
  EXPECT_EQ(rows.projectInfo[0].first, -7);
  EXPECT_EQ(rows.projectInfo[0].second, 8);
  EXPECT_EQ(rows.projectInfo[0].text, L"pipes");
  ASSERT_EQ(rows.revisions.size(), 1u);
  EXPECT_EQ(rows.revisions[0].name, L"B");
  EXPECT_EQ(rows.revisions[0].number, 3);
  EXPECT_EQ(rows.revisions[0].texts[0], L"who");
  EXPECT_EQ(rows.revisions[0].texts[2], L"why");
}

}  // namespace
