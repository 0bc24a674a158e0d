// Random input against random commands: whatever is done, an input leaves the desk as it found it.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <iterator>
#include <new>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "database/undo/undo_operations.h"
#include "interaction/trackers/display_trecker.h"
#include "interaction/trackers/entity_tracker.h"
#include "interaction/trackers/grip_menu.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;
using qdr::test::Desk;

constexpr unsigned kDefaultSeed = 20260104;
constexpr int kDesks = 60;
constexpr int kActionsOfADesk = 25;

// One seed a run; the environment overrides it to play a failure again.
unsigned testSeed() {
  const char* const given = std::getenv("QDR_TEST_SEED");
  return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : kDefaultSeed;
}

// A list owns the buffers of its records.
void dropSteps(std::deque<tagUndoEditEntity>& list) {
  for (const tagUndoEditEntity& record : list)
    ::operator delete(record.buffer);
  list.clear();
}

// A desk and somebody who hits keys and buttons without looking.
class Monkey {
 public:
  explicit Monkey(unsigned seed) : m_random(seed) {
    const char* const entities[] = {"line 20 20 80 60",
                                    "line 10 90 190 10",
                                    "circle 100 50 30",
                                    "arc 60 50 25 0 90",
                                    "rect 20 80 60 40",
                                    "point 5 5 2",
                                    "box 120 20 50 30 20",
                                    "ellipse 150 60 30 10 0.5",
                                    "ellipsearc 40 30 25 0 0.6 30 300",
                                    "polyline 10 10 0 60 10 1 60 30 0 10 30 0",
                                    "loop 150 10 0.3 190 10 0 190 40 -0.5",
                                    "spline 0.4 20 70 60 95 100 70 140 95",
                                    "cspline 20 60 0 60 80 1 100 60 0 140 80 0",
                                    "spiral 8 170 70 25 5 6 30",
                                    "cobweb 90 60 8 20 5 15"};
    for (const char* text : entities)
      addFromText(*desk.drawing, text);
    handler().SetCrossCursor(LoadCursor(nullptr, IDC_SIZEALL));
    handler().SetSelCursor(LoadCursor(nullptr, IDC_SIZENESW));
    desk.paint();
  }

  // Starts something that may wait for input, plays random input, and ends it with Esc.
  void act() {
    for (int i = below(25); i > 0; --i)
      addInput();
    for (int i = 0; i < 12; ++i)
      desk.script().key(VK_ESCAPE);
    start();
    MSG message;
    while (desk.script().stepsLeft() > 0 && desk.script().getMessage(message) > 0)
      desk.script().dispatch(message);
  }

  Desk desk;

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
  bool oneIn(int count) { return below(count) == 0; }
  CPoint position() { return {below(240) - 20, below(140) - 20}; }
  CQdrCommandHandler& handler() { return desk.handler(); }
  CDC* dc() { return desk.drawing->m_pDC; }

  // A place on an entity or on a grip, to hit something now and then.
  CPoint target() {
    CQdrDbEntity* const entity = anyEntity();
    std::vector<CQdrGePoint2d>* grips = nullptr;
    if (!entity || oneIn(3) || !entity->getGripPointVec(grips) || grips->empty()) return position();
    const int grip = below(static_cast<int>(grips->size()));
    return desk.record().GetDecivePoint(grips->at(static_cast<std::size_t>(grip)));
  }

  CQdrDbEntity* anyEntity() {
    const auto& ids = desk.drawing->m_blockTable.getCurrentRecord()->getEntitySet();
    if (ids.empty()) return nullptr;
    return qdr::asEntity(*std::next(ids.begin(), below(static_cast<int>(ids.size()))));
  }

  void start() {
    CWnd* const window = handler().GetDispWindow();
    const CPoint at = target();
    switch (below(10)) {
      case 0:
        handler().TrackTracker(window, at);
        break;
      case 1:
        trackMenu(*window, at);
        break;
      case 2:
        CQdrDbDisplayTrecker(window, desk.drawing.get(), L"PRW"[below(3)]).Track(window, at);
        break;
      case 3:
        readValue();
        break;
      case 4:
        if (CQdrDbEntity* const entity = anyEntity(); entity && !entity->isErased())
          handler().DoDragEntity(entity, at);
        break;
      case 5:
        oneIn(2) ? desk.drawing->m_undoHandler.Undo() : desk.drawing->m_undoHandler.Redo();
        handler().ClearTracker(oneIn(2));
        desk.paint();
        break;
      default: {
        constexpr int kCommands[] = {1, 2, 3, 17, 24};
        constexpr unsigned long kOptions[] = {0, 0, 1, 100, 200, 300, 400};
        const int id = oneIn(8) ? below(40) : kCommands[below(std::size(kCommands))];
        desk.run(static_cast<QdrDb::CommandID>(id), kOptions[below(std::size(kOptions))]);
      }
    }
  }

  void trackMenu(CWnd& window, CPoint at) {
    if (handler().trackers().empty()) return;
    const int index = below(static_cast<int>(handler().trackers().size()));
    desk.ui().choose(static_cast<unsigned>(qdr::kGripUnSelect + below(20)));
    handler().trackers()[static_cast<std::size_t>(index)]->TrackMenu(&window, at);
  }

  void readValue() {
    CQdrGePoint2d point;
    CQdrGePoint2d other;
    CString text;
    double value = 0.0;
    wchar_t key = 0;
    CQdrDbEntity* entity = nullptr;
    switch (below(7)) {
      case 0:
        handler().GetGePoint(point, other);
        break;
      case 1:
        handler().GetDistance(0, nullptr);
        break;
      case 2:
        handler().GetAngle(7, &point);
        break;
      case 3:
        handler().GetReal(9, L'E', value);
        break;
      case 4:
        handler().GetString(29, text);
        break;
      case 5:
        handler().GetKeyWord(47, L"YN", key);
        break;
      default:
        handler().GetEntity(35, entity, &point);
    }
  }

  void addInput() {
    qdr::ScriptedInput& script = desk.script();
    const CPoint at = target();
    switch (below(16)) {
      case 0:
      case 1:
      case 2:
        script.move(at.x, at.y);
        break;
      case 3:
      case 4:
      case 5:
        script.click(at.x, at.y);
        break;
      case 6:
        script.up();
        break;
      case 7:
        script.rclick();
        break;
      case 8:
        addKey();
        break;
      case 9:
      case 10:
      case 11:
        addText();
        break;
      case 12:
        if (oneIn(3)) script.loseCapture();
        break;
      case 13:
        script.mods(oneIn(2), oneIn(2), oneIn(2));
        break;
      default:
        script.call([this] { disturb(); });
    }
  }

  void addKey() {
    constexpr int kKeys[] = {3,       VK_BACK, VK_RETURN, VK_SPACE, VK_F4,
                             VK_LEFT, VK_UP,   VK_RIGHT,  VK_DOWN,  'L'};
    desk.script().arrow(kKeys[below(std::size(kKeys))]);
  }

  void addText() {
    const wchar_t* const texts[] = {L"10,20\r", L"5<30\r", L"-3\r", L"12.5 ",      L"icn", L"wc",
                                    L"fp",      L"abc\r",  L",\r",  L"1e9,-1e9\r", L"0\r", L"\b\b"};
    desk.script().type(texts[below(std::size(texts))]);
  }

  // What a host, a timer or a resize may do while an input waits.
  void disturb() {
    QdrDbDrawingVars_tag& vars = desk.drawing->m_vars;
    switch (below(12)) {
      case 0:
        desk.paint();
        break;
      case 1:
        desk.record().ScaleUpDown(dc(), position(), oneIn(2) ? 0.8 : 1.25);
        break;
      case 2:
        desk.record().PanWindow(dc(), below(4000) - 2000, below(4000) - 2000);
        break;
      case 3:
        resize(oneIn(3) ? 0 : 150 + below(100), oneIn(3) ? 0 : 80 + below(60));
        break;
      case 4:
        if (oneIn(2)) handler().RequestCancel();
        break;
      case 5:
        deleteOne();
        break;
      case 6:
        vars.snapGrid = oneIn(2);
        vars.gridSpacing = oneIn(4) ? 0.0 : below(300) / 10.0;
        break;
      case 7:
        vars.snapOrtho = oneIn(2);
        vars.snapGrip = oneIn(2);
        break;
      case 8:
        vars.gridVisible = oneIn(2);
        vars.snapGridPoint = oneIn(2);
        break;
      case 9:
        if (oneIn(8)) clearDrawing();
        break;
      case 10:
        // Keys that a host hands over though a command runs.
        handler().onKeyDown(VK_RETURN, 1, 0);
        break;
      default:
        handler().TrackerDraw(dc());
    }
  }

  void resize(int width, int height) {
    desk.resize(width, height);
    desk.record().MakeUpDisplayWindow(dc());
  }

  // Erased entities live on beside the drawing, so the log of a drawing that is emptied goes too.
  void clearDrawing() {
    desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity();
    CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
    dropSteps(undo.m_undoList);
    dropSteps(undo.m_redoList);
  }

  void deleteOne() {
    CQdrDbEntity* const entity = anyEntity();
    if (!entity) return;
    desk.drawing->forgetEntities({entity});
    delete entity;
  }

  std::mt19937 m_random;
};

// What an input borrows, and has to give back.
struct Borrowed {
  explicit Borrowed(Desk& desk)
      : rasterOperation(desk.drawing->m_pDC->GetROP2()),
        pen(desk.drawing->m_pDC->GetCurrentPen()),
        cursor(desk.input().cursor()) {}

  bool operator==(const Borrowed&) const = default;

  int rasterOperation;
  CPen* pen;
  HCURSOR cursor;
};

void expectIdle(Desk& desk) {
  EXPECT_EQ(desk.handler().depth(), 0);
  EXPECT_EQ(CWnd::GetCapture(), nullptr);
  EXPECT_FALSE(desk.input().clip().has_value());
  EXPECT_EQ(desk.drawing->currentTracker(), nullptr);
  const QdrDbDrawingVars_tag& vars = desk.drawing->m_vars;
  EXPECT_EQ(vars.snapIntersection + vars.snapCenter + vars.snapNearest, 0);
  EXPECT_EQ(desk.handler().trackers().size(), desk.handler().GetSelectedEntity().size());
}

// Every record names an entity that stands in the drawing.
void expectUndoNamesTheDrawing(Desk& desk) {
  const auto& ids = desk.drawing->m_blockTable.getCurrentRecord()->getEntitySet();
  const CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
  for (const auto* list : {&undo.m_undoList, &undo.m_redoList})
    for (const tagUndoEditEntity& record : *list)
      EXPECT_TRUE(ids.contains(record.entityId)) << "operation " << record.operation;
  EXPECT_TRUE(undo.m_undoList.empty() || undo.m_undoList.back().continued == 0);
}

// Grips of all entities that are not erased, in order of creation.
std::vector<CQdrGePoint2d> gripsOf(Desk& desk) {
  std::vector<CQdrGePoint2d> all;
  for (const CQdrDbObjectId& id : desk.drawing->m_blockTable.getCurrentRecord()->getEntitySet()) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    std::vector<CQdrGePoint2d>* grips = nullptr;
    if (entity->isErased() || !entity->getGripPointVec(grips)) continue;
    all.insert(all.end(), grips->begin(), grips->end());
  }
  return all;
}

void expectSameGrips(const std::vector<CQdrGePoint2d>& actual,
                     const std::vector<CQdrGePoint2d>& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const double size = 1.0 + std::hypot(expected[i].x, expected[i].y);
    EXPECT_LT(actual[i].distanceTo(expected[i]), 1e-6 * size) << "grip " << i;
  }
}

TEST(RandomInput, LeavesTheDeskAsItFoundIt) {
  const unsigned seed = testSeed();
  std::cout << "QDR_TEST_SEED=" << seed << '\n';
  std::mt19937 seeds(seed);
  for (int round = 0; round < kDesks && !testing::Test::HasFailure(); ++round) {
    Monkey monkey(static_cast<unsigned>(seeds()));
    Desk& desk = monkey.desk;
    for (int action = 0; action < kActionsOfADesk; ++action) {
      SCOPED_TRACE("QDR_TEST_SEED=" + std::to_string(seed) + ", desk " + std::to_string(round) +
                   ", action " + std::to_string(action));
      const Borrowed before(desk);
      monkey.act();
      EXPECT_EQ(Borrowed(desk), before);
      expectIdle(desk);
      expectUndoNamesTheDrawing(desk);
      ASSERT_FALSE(desk.script().isExhausted()) << "an input that Esc does not end";
      if (testing::Test::HasFailure()) return;
    }
    const std::vector<CQdrGePoint2d> done = gripsOf(desk);
    CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
    dropSteps(undo.m_redoList);
    while (undo.Undo()) {
    }
    while (undo.Redo()) {
    }
    SCOPED_TRACE("QDR_TEST_SEED=" + std::to_string(seed) + ", desk " + std::to_string(round));
    expectSameGrips(gripsOf(desk), done);
  }
}

TEST(RandomInput, AQuitUnwindsWhateverWaits) {
  const unsigned seed = testSeed();
  std::mt19937 seeds(seed);
  for (int round = 0; round < kDesks; ++round) {
    SCOPED_TRACE("QDR_TEST_SEED=" + std::to_string(seed) + ", desk " + std::to_string(round));
    Monkey monkey(static_cast<unsigned>(seeds()));
    monkey.desk.script().announceEnd();
    const Borrowed before(monkey.desk);
    monkey.desk.script().move(30, 30).click(50, 50).quit();
    for (int action = 0; action < 5; ++action)
      monkey.act();
    EXPECT_EQ(Borrowed(monkey.desk), before);
    expectIdle(monkey.desk);
  }
}

}  // namespace
