// What every entity class keeps. A class joins by one row; a law that it does not keep stands in
// its row with the reason.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <ostream>

#include "database/entity_classes.h"
#include "database/undo/undo_operations.h"
#include "entities/cobweb.h"
#include "entities/curve.h"
#include "entities/display_units.h"
#include "entities/drawn_box.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "geometry/line2d.h"
#include "tests/support/entity_text.h"
#include "tests/support/sketch.h"

namespace {

using qdr::test::addFromText;
using qdr::test::bytesOf;
using qdr::test::entityFromText;

// The number at the head of the bytes of an entity.
constexpr std::size_t kNumberBytes = 8;

struct EntityRow {
  const char* text;
  QdrDb::ClassType type;
  /// Bytes that counted fields add to the body of the class.
  std::size_t countedBytes = 0;
  /// All grips, in order.
  std::vector<CQdrGePoint2d> grips = {};
  /// Rows of group "Shape" with their values; none for a class without the group.
  std::vector<std::pair<const wchar_t*, const wchar_t*>> shape = {};
  /// The entity after a move by (3, -2), a quarter turn about the origin, a scaling by 2 about
  /// (1, 1) and a mirroring in the x axis; null where it stays as it is.
  const char* moved;
  const char* turned;
  const char* scaled;
  const char* mirrored;
  /// GetOutRect: left, bottom, right, top.
  std::array<double, 4> box;
  bool drawsOnItself = true;  ///< what it draws lies on it; not so for markers
  bool recordsUndo = true;
  bool takenByGrips = false;  ///< a window takes hold of it by grips that lie off it, as told
  bool bowsOut = false;       ///< all grips inside are taken for the whole of it, which may be more
  bool movesByMatrix = true;  ///< a matrix that only moves does what moving does
  bool inFiles = true;        ///< a file brings it, and it can be copied
};

void PrintTo(const EntityRow& row, std::ostream* out) {
  *out << row.text;
}

const EntityRow kRows[] = {
    {.text = "line -3 1 5 7",
     .type = QdrDb::eClassLine,
     .grips = {{1, 4}, {-3, 1}, {5, 7}},
     .shape = {{L"X Start", L"-3.000000"},
               {L"Y Start", L"1.000000"},
               {L"X End", L"5.000000"},
               {L"Y End", L"7.000000"}},
     .moved = "line 0 -1 8 5",
     .turned = "line -1 -3 -7 5",
     .scaled = "line -7 1 9 13",
     .mirrored = "line -3 -1 5 -7",
     .box = {-3, 1, 5, 7}},
    {.text = "arc 1 2 5 0 90",
     .type = QdrDb::eClassArc,
     // The middle lies at 45 degrees: 5 / sqrt 2 = 3.5355339059327378 from the centre.
     .grips = {{1, 2}, {6, 2}, {4.5355339059327378, 5.5355339059327378}, {1, 7}},
     .shape = {{L"X Center", L"1.000000"},
               {L"Y Center", L"2.000000"},
               {L"Radius", L"5.000000"},
               {L"Start Angle", L"0.000000"},
               {L"End Angle", L"1.570796"}},
     .moved = "arc 4 0 5 0 90",
     .turned = "arc -2 1 5 90 180",
     .scaled = "arc 1 3 10 0 90",
     .mirrored = "arc 1 -2 5 270 360",
     .box = {1, 2, 6, 7}},
    {.text = "circle 2 -1 4",
     .type = QdrDb::eClassCircle,
     .grips = {{2, -1}, {6, -1}, {2, 3}, {-2, -1}, {2, -5}},
     .shape = {{L"X Center", L"2.000000"}, {L"Y Center", L"-1.000000"}, {L"Radius", L"4.000000"}},
     .moved = "circle 5 -3 4",
     .turned = "circle 1 2 4",
     .scaled = "circle 3 -3 8",
     .mirrored = "circle 2 1 4",
     .box = {-2, -5, 6, 3},
     .takenByGrips = true},  // the centre
    {.text = "ellipse 1 2 3 4 0.5",
     .type = QdrDb::eClassEllipse,
     // The minor vector is (-4, 3) / 2.
     .grips = {{1, 2}, {4, 6}, {-1, 3.5}, {-2, -2}, {3, 0.5}},
     .shape = {{L"X Center", L"1.000000"},
               {L"Y Center", L"2.000000"},
               {L"Major Radius", L"5.000000"},
               {L"Minor Radius", L"2.500000"},
               {L"Start Angle", L"0.000000"},
               {L"End Angle", L"6.283185"}},
     .moved = "ellipse 4 0 3 4 0.5",
     .turned = "ellipse -2 1 -4 3 0.5",
     .scaled = "ellipse 1 3 6 8 0.5",
     .mirrored = "ellipse 1 -2 3 -4 0.5",
     // Reaches sqrt(3 * 3 + 2 * 2) in x and sqrt(4 * 4 + 1.5 * 1.5) in y.
     .box = {-2.6055, -2.272, 4.6055, 6.272},
     .movesByMatrix = false},  // a matrix moves the axes like points, which turns them
    {.text = "ellipsearc 1 2 3 4 0.5 0 90",
     .type = QdrDb::eClassEllipseArc,
     .grips = {{1, 2}, {4, 6}, {-1, 3.5}, {-2, -2}, {3, 0.5}, {4, 6}, {-1, 3.5}},
     .shape = {{L"X Center", L"1.000000"},
               {L"Y Center", L"2.000000"},
               {L"Major Radius", L"5.000000"},
               {L"Minor Radius", L"2.500000"},
               {L"Start Angle", L"0.000000"},
               {L"End Angle", L"1.570796"}},
     .moved = "ellipsearc 4 0 3 4 0.5 0 90",
     .turned = "ellipsearc -2 1 -4 3 0.5 0 90",
     .scaled = "ellipsearc 1 3 6 8 0.5 0 90",
     .mirrored = "ellipsearc 1 -2 3 -4 0.5 270 360",
     // Start and end bound it but for the highest place of the whole ellipse.
     .box = {-1, 3.5, 4, 6.272},
     .movesByMatrix = false},  // as the ellipse
    {.text = "box 1 2 6 4 90",
     .type = QdrDb::eClassBox,
     .grips = {{1, 2}, {1, 5}, {1, 8}, {-1, 8}, {-3, 8}, {-3, 5}, {-3, 2}, {-1, 2}},
     .shape = {{L"X Base", L"1.000000"},
               {L"Y Base", L"2.000000"},
               {L"Width", L"6.000000"},
               {L"Height", L"4.000000"},
               {L"Rotation", L"1.570796"}},
     .moved = "box 4 0 6 4 90",
     .turned = "box -2 1 6 4 180",
     .scaled = "box 1 3 12 8 90",
     .mirrored = "box 1 -2 6 -4 270",
     .box = {-3, 2, 1, 8}},
    // Half a unit of radius a chord: from radius 1 to radius 4 in six chords, one and a half turns.
    {.text = "spiral 4 1 2 4.25 0.75 2 0",
     .type = QdrDb::eClassSpiral,
     .countedBytes = 7 * 44,
     .grips = {{1, 2}, {2, 2}, {4, 2}, {-3, 2}},
     .shape = {{L"Max Radius", L"4.250000"},
               {L"Min Radius", L"0.750000"},
               {L"Offset Dist", L"2.000000"},
               {L"Start Angle", L"0.000000"},
               {L"Div Num", L"4.000000"},
               {L"X Center", L"1.000000"},
               {L"Y Center", L"2.000000"},
               {L"Raito", L"1.000000"}},
     .moved = "spiral 4 4 0 4.25 0.75 2 0",
     .turned = "spiral 4 -2 1 4.25 0.75 2 90",
     .scaled = "spiral 4 1 3 8.5 1.5 4 0",
     .mirrored = "spiral 4 1 -2 4.25 0.75 2 0",  // all grips lie on the mirrored x axis
     // Radii 1, 1.5, 2, 2.5, 3, 3.5, 4 at each quarter turn from +x on.
     .box = {-3, -0.5, 4, 5.5},
     .takenByGrips = true,  // the centre
     .bowsOut = true},      // grips show its ends and one turn
    {.text = "loop -4 -2 0 6 -2 1 6 4 0 -4 4 0",
     .type = QdrDb::eClassPolyline,
     .countedBytes = 4 * 44,
     // The half circle of chord 6 bows to the right of the way up.
     .grips = {{-4, -2}, {6, -2}, {9, 1}, {6, 4}, {-4, 4}},
     .shape = {{L"Point Count", L"4"},
               {L"Bulge", L"0.000000"},
               {L"Point X", L"-4.000000"},
               {L"Point Y", L"-2.000000"},
               {L"Start Width", L"-1.000000"},
               {L"End Width", L"-1.000000"}},
     .moved = "loop -1 -4 0 9 -4 1 9 2 0 -1 2 0",
     .turned = "loop 2 -4 0 2 6 1 -4 6 0 -4 -4 0",
     .scaled = "loop -9 -5 0 11 -5 1 11 7 0 -9 7 0",
     .mirrored = "loop -4 2 0 6 2 -1 6 -4 0 -4 -4 0",
     .box = {-4, -2, 9, 4}},
    // The corner is rounded over half of either side: line, arc, line.
    {.text = "spline 0.5 1 2 9 2 9 10",
     .type = QdrDb::eClassSpline,
     .countedBytes = 3 * 20 + 4 * 44,
     .grips = {{1, 2}, {9, 2}, {9, 10}},
     .shape = {{L"Control Point Count", L"3"},
               {L"Control Point X", L"1.000000"},
               {L"Control Point Y", L"2.000000"},
               {L"Fit Param", L"0.500000"}},
     .moved = "spline 0.5 4 0 12 0 12 8",
     .turned = "spline 0.5 -2 1 -2 9 -10 9",
     .scaled = "spline 0.5 1 3 17 3 17 19",
     .mirrored = "spline 0.5 1 -2 9 -2 9 -10",
     .box = {1, 2, 9, 10},
     .takenByGrips = true},  // control vertices
    {.text = "cspline 1 2 0 5 4 1 9 2 0",
     .type = QdrDb::eClassCSpline,
     .countedBytes = 3 * 21,
     .grips = {{1, 2}, {5, 4}, {9, 2}},
     .moved = "cspline 4 0 0 8 2 1 12 0 0",
     .turned = "cspline -2 1 0 -4 5 1 -2 9 0",
     .scaled = "cspline 1 3 0 9 7 1 17 3 0",
     .mirrored = "cspline 1 -2 0 5 -4 1 9 -2 0",
     .box = {1, 2, 9, 4}},
    {.text = "rect -4 6 2 3",
     .type = QdrDb::eClassRect,
     .grips = {{-1, 4.5}, {-1, 3}, {2, 4.5}, {-1, 6}, {-4, 4.5}, {-4, 3}, {2, 3}, {2, 6}, {-4, 6}},
     .shape = {{L"Top", L"6.000000"},
               {L"Bottom", L"3.000000"},
               {L"Left", L"-4.000000"},
               {L"Right", L"2.000000"}},
     .moved = "rect -1 4 5 1",
     // Both corners turn; left lies right of right afterwards no more than they did before.
     .turned = "rect -6 -4 -3 2",
     .scaled = "rect -9 11 3 5",
     .mirrored = "rect -4 -6 2 -3",
     .box = {-4, 3, 2, 6},
     .takenByGrips = true},  // the centre
    {.text = "cobweb 1 2 3 5 4 0",
     .type = QdrDb::eClassCobweb,
     .grips = {{1, 2}, {4, 2}, {6, 2}, {1, 5}, {1, 7}, {-2, 2}, {-4, 2}, {1, -1}, {1, -3}, {7, 2}},
     .shape = {{L"Wings", L"4"},
               {L"X Center", L"1.000000"},
               {L"Y Center", L"2.000000"},
               {L"InnerRadius", L"3.000000"},
               {L"OuterRadius", L"5.000000"},
               {L"Rotation", L"0.000000"}},
     // The virtual transforms leave it alone; its own have a test beside it.
     .moved = nullptr,
     .turned = nullptr,
     .scaled = nullptr,
     .mirrored = nullptr,
     .box = {-4, -3, 7, 7},
     .takenByGrips = true,  // the handle
     .inFiles = false},
    {.text = "point 3 4 0.5",
     .type = QdrDb::eClassPoint,
     .grips = {{3, 4}},
     .moved = "point 6 2 0.5",
     .turned = "point -4 3 0.5",
     .scaled = nullptr,  // scaling leaves points alone
     .mirrored = "point 3 -4 0.5",
     .box = {3, 4, 3, 4},
     .drawsOnItself = false,
     .recordsUndo = false},
};

// Grips of two entities within a billionth.
void expectSameGrips(CQdrDbEntity& actual, CQdrDbEntity& expected, const char* row) {
  std::vector<CQdrGePoint2d>* actualGrips = nullptr;
  std::vector<CQdrGePoint2d>* expectedGrips = nullptr;
  actual.getGripPointVec(actualGrips);
  expected.getGripPointVec(expectedGrips);
  ASSERT_EQ(actualGrips->size(), expectedGrips->size()) << row;
  for (std::size_t i = 0; i < actualGrips->size(); ++i)
    EXPECT_LT((*actualGrips)[i].distanceTo((*expectedGrips)[i]), 1e-9) << row << ", grip " << i;
}

// Grips, and of a curve places all along it.
std::vector<CQdrGePoint2d> placesOf(CQdrDbEntity& entity) {
  std::vector<CQdrGePoint2d>* grips = nullptr;
  entity.getGripPointVec(grips);
  std::vector<CQdrGePoint2d> places(*grips);
  for (int i = 0; entity.IsCurveEntity() && i <= 16; ++i)
    places.push_back(static_cast<CQdrDbCurve&>(entity).pointAtParam(i / 16.0));
  return places;
}

// Within a billionth of the size of the coordinates.
void expectSamePlaces(const std::vector<CQdrGePoint2d>& actual,
                      const std::vector<CQdrGePoint2d>& expected, double size) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i)
    EXPECT_LT(actual[i].distanceTo(expected[i]), 1e-9 * size) << "place " << i;
}

class EntityContract : public testing::TestWithParam<EntityRow> {
 protected:
  const EntityRow& row() const { return GetParam(); }
  const qdr::EntityClass& entityClass() const { return *qdr::entityClass(row().type); }

  // A new entity of the class.
  std::unique_ptr<CQdrDbEntity> fresh() {
    EXPECT_EQ(entityClass().make != nullptr, row().inFiles);
    if (!row().inFiles) return std::make_unique<CQdrDbCobweb>(&m_database);
    return std::unique_ptr<CQdrDbEntity>(entityClass().make(&m_database));
  }

  CQdrDbDatabase m_database{true};
};

TEST_P(EntityContract, BytesSurviveARoundTrip) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  ASSERT_EQ(entity->classType(), row().type);
  const std::string bytes = bytesOf(*entity);
  EXPECT_EQ(bytes.size(), entityClass().bodyBytes + row().countedBytes);
  EXPECT_EQ(static_cast<std::uint8_t>(bytes[12]), entityClass().status);

  const std::unique_ptr<CQdrDbEntity> again = fresh();
  qdr::test::readFrom(*again, bytes);
  EXPECT_EQ(bytesOf(*again), bytes);
}

TEST_P(EntityContract, ReadsAnyShortFile) {
  const std::string bytes = bytesOf(*entityFromText(m_database, row().text));
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    const std::unique_ptr<CQdrDbEntity> entity = fresh();
    qdr::test::readFrom(*entity, bytes.substr(0, length));
    EXPECT_EQ(entity->classType(), row().type);
  }
}

TEST_P(EntityContract, CopyIsEqualButItsOwn) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  entity->setColor(3);
  entity->setLayer(L"PipeLine");
  entity->setLineType(L"Hidden");
  entity->setLineWeight(static_cast<QdrDb::LineWeight>(35));
  entity->SetBoundary(1);

  const std::unique_ptr<CQdrDbEntity> copy(entity->CopyEntity(true));
  ASSERT_EQ(copy != nullptr, row().inFiles);
  if (!copy) return;
  EXPECT_EQ(bytesOf(*copy).substr(kNumberBytes), bytesOf(*entity).substr(kNumberBytes));
  EXPECT_NE(copy->getCreatedTime(), entity->getCreatedTime());
  EXPECT_FALSE(copy->IsDbEntity());
  EXPECT_TRUE(copy->objectId() == copy.get());
  EXPECT_EQ(copy->database(), &m_database);
  EXPECT_EQ(copy->IsBoundary(), entity->IsBoundary());
  expectSameGrips(*copy, *entity, row().text);
}

TEST_P(EntityContract, AssignmentTakesGeometryAndLooks) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  entity->setColor(5);
  const std::unique_ptr<CQdrDbEntity> other = fresh();
  *other = *entity;
  EXPECT_EQ(bytesOf(*other).substr(kNumberBytes), bytesOf(*entity).substr(kNumberBytes));
  expectSameGrips(*other, *entity, row().text);
}

TEST_P(EntityContract, ShowsItsProperties) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  PropertyGroups groups = entity->getProperty()[row().type];
  std::vector<Property>& general = groups[L"General"];
  ASSERT_EQ(general.size(), 4u);
  EXPECT_EQ(general[0].m_value, L"0");
  EXPECT_EQ(general[1].m_value, L"256");
  EXPECT_EQ(general[2].m_value, L"CONTINUOUS");
  EXPECT_EQ(general[3].m_value, L"-1");
  EXPECT_EQ(groups.contains(L"Shape"), !row().shape.empty());

  const std::vector<Property>& shape = groups[L"Shape"];
  ASSERT_EQ(shape.size(), row().shape.size());
  for (std::size_t i = 0; i < shape.size(); ++i) {
    EXPECT_EQ(shape[i].m_name, row().shape[i].first);
    EXPECT_EQ(shape[i].m_value, row().shape[i].second);
    EXPECT_EQ(shape[i].m_caption, CString(L"Change ") + row().shape[i].first);
  }
}

TEST_P(EntityContract, PutsItsGripsInOrder) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  std::vector<CQdrGePoint2d>* grips = nullptr;
  ASSERT_TRUE(entity->getGripPointVec(grips));
  ASSERT_EQ(grips->size(), row().grips.size());
  for (std::size_t i = 0; i < grips->size(); ++i)
    EXPECT_LT((*grips)[i].distanceTo(row().grips[i]), 1e-12) << "grip " << i;
}

TEST_P(EntityContract, TransformsAsTold) {
  const CQdrGePoint2d origin;
  const auto expectAfter = [&](const char* expected, auto&& transform) {
    CQdrDbEntity* entity = addFromText(m_database, row().text);
    EXPECT_EQ(&transform(*entity), entity);
    entity->setGripPoints();
    const auto wanted = entityFromText(m_database, expected ? expected : row().text);
    expectSameGrips(*entity, *wanted, expected ? expected : row().text);
  };
  expectAfter(row().moved, [](CQdrDbEntity& e) -> CQdrDbEntity& {
    return e.TranslateBy(CQdrGeVector2d(3, -2));
  });
  if (row().movesByMatrix)
    expectAfter(row().moved, [](CQdrDbEntity& e) -> CQdrDbEntity& {
      return e.TransformBy(CQdrGeMatrix2d::translation(CQdrGeVector2d(3, -2)));
    });
  expectAfter(row().turned,
              [&](CQdrDbEntity& e) -> CQdrDbEntity& { return e.RotateBy(qdr::kHalfPi, origin); });
  expectAfter(row().scaled, [](CQdrDbEntity& e) -> CQdrDbEntity& {
    return e.ScaleBy(2.0, {1, 1});
  });
  expectAfter(row().scaled, [](CQdrDbEntity& e) -> CQdrDbEntity& {
    return e.ScaleBy(2.0, 2.0, {1, 1});
  });
  expectAfter(row().mirrored,
              [](CQdrDbEntity& e) -> CQdrDbEntity& { return e.Mirror(CQdrGeLine2d::kXAxis); });
}

TEST_P(EntityContract, AnswersItsBox) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  const CQdrDbRect box = entity->GetOutRect();
  // Some are boxes of drawn polygons, in whole logical units.
  const double unit = 1.5 / _dDispScale;
  const double sides[] = {box.LeftTop().x, box.RightBottom().y, box.RightBottom().x,
                          box.LeftTop().y};
  for (std::size_t i = 0; i < row().box.size(); ++i)
    EXPECT_NEAR(sides[i], row().box[i], unit) << "side " << i;
  // The rectangle for quick rejection is the same box in logical units.
  const CRect quick = *entity->GetEntityRect();
  EXPECT_EQ(quick.left, CRect(box).left);
  EXPECT_EQ(quick.top, CRect(box).top);
}

TEST_P(EntityContract, DrawsInItsBoxAndOnItself) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  for (const std::int32_t weight : {0, 300}) {
    entity->setLineWeight(static_cast<QdrDb::LineWeight>(weight));
    const std::vector<CQdrGePoint2d> drawn = qdr::test::drawnPoints(*entity);
    ASSERT_FALSE(drawn.empty());
    const qdr::DrawnBox box = qdr::drawnBox(*entity);
    ASSERT_TRUE(box.known);
    const double margin = box.pixels * qdr::test::kSketchPixel;
    for (const CQdrGePoint2d& point : drawn) {
      EXPECT_GE(point.x, box.minX - margin) << weight;
      EXPECT_LE(point.x, box.maxX + margin) << weight;
      EXPECT_GE(point.y, box.minY - margin) << weight;
      EXPECT_LE(point.y, box.maxY + margin) << weight;
      if (row().drawsOnItself && weight == 0) {
        EXPECT_EQ(entity->isOn(point, 2 * qdr::test::kSketchPixel), 1);
      }
    }
  }
  EXPECT_EQ(entity->isOn({-19, 19}, qdr::test::kSketchPixel), 0);
}

// A window of two opposite corners.
struct Window {
  CQdrGePoint2d corner1;
  CQdrGePoint2d corner2;

  Window grownBy(double margin) const {
    const CQdrGeVector2d way(margin, margin);
    return {corner1 - way, corner2 + way};
  }
  bool holds(const CQdrGePoint2d& point) const {
    return point.x > corner1.x && point.x < corner2.x && point.y > corner1.y && point.y < corner2.y;
  }
  bool holdsAny(const std::vector<CQdrGePoint2d>& points) const {
    return std::ranges::any_of(points, [&](const CQdrGePoint2d& point) { return holds(point); });
  }
  bool holdsAll(const std::vector<CQdrGePoint2d>& points) const {
    return std::ranges::all_of(points, [&](const CQdrGePoint2d& point) { return holds(point); });
  }
};

// Held against what is drawn: a window answers for sure when that is clearly in it or out of it.
TEST_P(EntityContract, WindowsTakeWhatTheyShow) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  std::vector<CQdrGePoint2d>* grips = nullptr;
  entity->getGripPointVec(grips);
  const std::vector<CQdrGePoint2d> shown =
      row().drawsOnItself ? qdr::test::drawnPoints(*entity) : *grips;
  const double margin = 3 * qdr::test::kSketchPixel;
  for (const double side : {1.3, 5.1, 17.7}) {
    for (double x = -16.2; x < 12; x += 1.05) {
      for (double y = -14.1; y < 12; y += 1.25) {
        const Window window{{x, y}, {x + side, y + side}};
        const Window certain = window.grownBy(-margin);
        const Window possible = window.grownBy(margin);
        SCOPED_TRACE(testing::Message() << x << ", " << y << ", side " << side);
        const bool crosses = entity->checkInsideOrCross(window.corner1, window.corner2);
        const bool inside = entity->checkInside(window.corner1, window.corner2);
        const bool byGrip = row().takenByGrips && possible.holdsAny(*grips);
        EXPECT_TRUE(crosses || !certain.holdsAny(shown));
        EXPECT_TRUE(!crosses || possible.holdsAny(shown) || byGrip);
        EXPECT_TRUE(inside || !certain.holdsAll(shown) || (byGrip && !certain.holdsAll(*grips)));
        EXPECT_TRUE(!inside || possible.holdsAll(shown) || row().bowsOut);
      }
    }
  }
}

TEST_P(EntityContract, ErasureHides) {
  CQdrDbEntity* entity = addFromText(m_database, row().text);
  const CQdrDbObjectId id = entity->objectId();
  EXPECT_TRUE(entity->isVisiable());
  EXPECT_TRUE(m_database.m_layerTable.getCurrentRecord()->getEntitySet().contains(id));

  entity->Erase();
  EXPECT_TRUE(entity->isErased());
  EXPECT_FALSE(entity->isVisiable());
  EXPECT_FALSE(entity->IsDbEntity());
  EXPECT_TRUE(qdr::test::drawnPoints(*entity).empty());
  EXPECT_FALSE(m_database.m_layerTable.getCurrentRecord()->getEntitySet().contains(id));
  EXPECT_FALSE(m_database.m_blockTable.getCurrentRecord()->getEntitySet().contains(id));
  delete entity;
}

// Object head and common block: everything but the geometry.
constexpr std::size_t kHeadBytes = 39;

tagUndoEditEntity step(CQdrDbEntity& entity, qdr::UndoCode code) {
  tagUndoEditEntity record;
  record.continued = 0;
  record.operation = code;
  record.entityId = entity.objectId();
  return record;
}

// Does something to the entity and fills the record of it.
struct Deed {
  qdr::UndoCode code;
  void (*perform)(CQdrDbEntity& entity, tagUndoEditEntity& record);
};

const Deed kDeeds[] = {
    {qdr::kUndoMoved,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.vector = CQdrGeVector2d(2.3, 0.7);
       entity.TranslateBy(CQdrGeVector2d(2.3, 0.7));
     }},
    {qdr::kUndoMirrored,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {1.1, 0.3};
       record.vector = CQdrGeVector2d(3, 4);
       entity.Mirror(CQdrGeLine2d(record.point, CQdrGeVector2d(3, 4)));
     }},
    {qdr::kUndoRotated,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {1.1, 0.3};
       record.vector = CQdrGeVector2d(0.7);
       entity.RotateBy(0.7, record.point);
     }},
    {qdr::kUndoScaled,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {1.1, 0.3};
       record.vector = QdrXY(3, 3);
       entity.ScaleBy(3, record.point);
     }},
    {qdr::kUndoScaled,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.point = {1.1, 0.3};
       record.vector = QdrXY(3, 0.7);
       entity.ScaleBy(3, 0.7, record.point);
     }},
    {qdr::kUndoErased, [](CQdrDbEntity& entity, tagUndoEditEntity&) { entity.setErased(); }},
    {qdr::kUndoLayer,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.oldId = entity.LayerId();
       entity.setLayer(L"WeldNum");
     }},
    {qdr::kUndoLineType,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.oldId = entity.LineTypeId();
       entity.setLineType(L"Hidden");
     }},
    {qdr::kUndoColor,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.oldId = entity.ColorId();
       entity.setColor(1);
     }},
    {qdr::kUndoLineWeight,
     [](CQdrDbEntity& entity, tagUndoEditEntity& record) {
       record.value = entity.LineWeight();
       entity.setLineWeight(static_cast<QdrDb::LineWeight>(50));
     }},
};

// Geometry comes back to rounding, everything else to the last byte.
TEST_P(EntityContract, UndoAndRedoGoBackAndForth) {
  for (const double far : {0.0, 1e6}) {
    for (const Deed& deed : kDeeds) {
      SCOPED_TRACE(testing::Message() << "code " << deed.code << ", moved by " << far);
      const bool moves = deed.code >= qdr::kUndoMoved && deed.code <= qdr::kUndoScaled;
      // The log goes by the own transforms of a cobweb.
      if (moves && row().type == QdrDb::eClassCobweb) continue;
      CQdrDbEntity* entity = addFromText(m_database, row().text);
      entity->TranslateBy(CQdrGeVector2d(far, -far));
      entity->setGripPoints();
      const std::vector<CQdrGePoint2d> before = placesOf(*entity);
      const std::string bytesBefore = bytesOf(*entity);
      tagUndoEditEntity record = step(*entity, deed.code);
      deed.perform(*entity, record);
      entity->setGripPoints();
      const std::vector<CQdrGePoint2d> after = placesOf(*entity);
      const std::string bytesAfter = bytesOf(*entity);

      const std::size_t length = m_database.m_undoHandler.m_undoList.size();
      EXPECT_EQ(m_database.m_undoHandler.AddUndo(record), length + (row().recordsUndo ? 1 : 0));
      if (!row().recordsUndo) continue;
      const std::size_t compared = moves ? kHeadBytes : std::string::npos;
      for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(m_database.m_undoHandler.Undo());
        expectSamePlaces(placesOf(*entity), before, 1 + far);
        EXPECT_EQ(bytesOf(*entity).substr(0, compared), bytesBefore.substr(0, compared));
        EXPECT_TRUE(m_database.m_undoHandler.Redo());
        expectSamePlaces(placesOf(*entity), after, 1 + far);
        EXPECT_EQ(bytesOf(*entity).substr(0, compared), bytesAfter.substr(0, compared));
      }
    }
  }
}

std::string rowName(const testing::TestParamInfo<EntityRow>& info) {
  const std::string text = info.param.text;
  return text.substr(0, text.find(' '));
}

INSTANTIATE_TEST_SUITE_P(Classes, EntityContract, testing::ValuesIn(kRows), rowName);

}  // namespace
