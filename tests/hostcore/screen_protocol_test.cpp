// Temporary marks are exclusive-or: what a waiting input draws, it takes off again to the pixel.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "database/database.h"
#include "hostcore/data_folder.h"
#include "hostcore/script_player.h"
#include "tests/hostcore/stage_pictures.h"

using qdr::Pixel;
using qdr::ScriptPlayer;
using qdr::ScriptStage;
using qdr::test::differences;
using qdr::test::pixelsOf;

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;

// One pixel is one unit; world (x, y) lies at pixel (x, 300 - y).
constexpr const char* kScene =
    ".window 0,0 400,300\n"
    "circle\n200,150\n90\n"
    "line\n0,0\n400,300\n0,300\n.enter\n"
    "rect\n40,40\n360,260\n";

qdr::HostOptions options(COLORREF background) {
  qdr::HostOptions chosen;
  chosen.viewSize = CSize(kWidth, kHeight);
  chosen.background = background;
  return chosen;
}

double toSegment(CPoint p, CPoint a, CPoint b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double along = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
  const double t = std::fmin(std::fmax(along, 0.0), 1.0);
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

double distance(CPoint a, CPoint b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

// How far a pixel lies from the shape that a command shows between its first point and the mouse.
double toLine(CPoint p, CPoint start, CPoint mouse) {
  return toSegment(p, start, mouse);
}

double toCircle(CPoint p, CPoint center, CPoint mouse) {
  return std::fabs(distance(p, center) - distance(mouse, center));
}

double toFrame(CPoint p, CPoint a, CPoint b) {
  const CPoint c(a.x, b.y);
  const CPoint d(b.x, a.y);
  return std::fmin(std::fmin(toSegment(p, a, c), toSegment(p, c, b)),
                   std::fmin(toSegment(p, b, d), toSegment(p, d, a)));
}

struct RubberCase {
  const char* name;
  QdrDb::CommandID command;
  double (*toShape)(CPoint p, CPoint start, CPoint mouse);
};

const RubberCase kRubbers[] = {{"line", QdrDb::eCommandLine, toLine},
                               {"circle", QdrDb::eCommandCircle, toCircle},
                               {"rectangle", QdrDb::eCommandRect, toFrame}};

class ScreenProtocol : public ::testing::TestWithParam<COLORREF> {
 protected:
  static void SetUpTestSuite() { qdr::useFoundDataFolder(); }
  void SetUp() override { ASSERT_TRUE(ScriptPlayer(m_stage).play(kScene)); }

  // Everything that differs from the scene lies on the live shape or on the rubber line.
  void expectOnlyShape(const RubberCase& row, const std::vector<Pixel>& scene, CPoint start,
                       CPoint mouse) {
    constexpr double kReach = 2.0;
    const std::vector<CPoint> changed = differences(scene, pixelsOf(m_stage), kWidth);
    EXPECT_GT(changed.size(), 20u);
    for (const CPoint& pixel : changed) {
      const double off =
          std::fmin(row.toShape(pixel, start, mouse), toSegment(pixel, start, mouse));
      ASSERT_LE(off, kReach) << "pixel " << pixel.x << ", " << pixel.y;
    }
  }

  ScriptStage m_stage{options(GetParam()), ScriptStage::Facts::fixed};
};

TEST_P(ScreenProtocol, EveryMoveAndTheCancelLeaveNoTrace) {
  for (const RubberCase& row : kRubbers) {
    SCOPED_TRACE(row.name);
    const std::vector<Pixel> scene = pixelsOf(m_stage);
    const CPoint start(120, 90);
    m_stage.script().click(start.x, start.y);
    for (const CPoint mouse : {CPoint(220, 140), CPoint(60, 230), CPoint(121, 260)}) {
      m_stage.script().move(mouse.x, mouse.y);
      m_stage.script().call([=, this] { expectOnlyShape(row, scene, start, mouse); });
    }
    m_stage.script().key(VK_ESCAPE);
    unsigned long option = 0;
    EXPECT_EQ(m_stage.host().handler().DoCommand(row.command, option), nullptr);
    EXPECT_TRUE(differences(scene, pixelsOf(m_stage), kWidth).empty());
  }
}

// A selection window that finds nothing, and one that is given up.
TEST_P(ScreenProtocol, SelectionWindowsLeaveNoTrace) {
  const std::vector<Pixel> scene = pixelsOf(m_stage);
  m_stage.script().click(10, 20).move(30, 60).move(25, 100).key(VK_ESCAPE);
  unsigned long option = 0;
  m_stage.host().handler().DoCommand(QdrDb::eCommandErase, option);
  EXPECT_TRUE(differences(scene, pixelsOf(m_stage), kWidth).empty());
}

TEST_P(ScreenProtocol, GripsTakenOffLeaveNoTrace) {
  const std::vector<Pixel> scene = pixelsOf(m_stage);
  ASSERT_TRUE(ScriptPlayer(m_stage).play(".pick 290,150\n.expect selected 1\n"));
  EXPECT_FALSE(differences(scene, pixelsOf(m_stage), kWidth).empty());
  m_stage.host().handler().ClearTracker(true);
  EXPECT_TRUE(differences(scene, pixelsOf(m_stage), kWidth).empty());
}

// A paint, another size and a turn of the wheel while an input waits leave no ghost of its marks.
TEST_P(ScreenProtocol, PaintsDuringAnInputLeaveNoTrace) {
  m_stage.script().click(100, 200).move(130, 200).paint().move(150, 200).resize(300, 300);
  m_stage.script().move(150, 220).resize(kWidth, kHeight).move(90, 120);
  m_stage.script().call([this] { m_stage.host().zoomAt(CPoint(10, 20), 0.5); });
  m_stage.script().move(160, 120).key(VK_ESCAPE);
  unsigned long option = 0;
  EXPECT_EQ(m_stage.host().handler().DoCommand(QdrDb::eCommandCircle, option), nullptr);
  const std::vector<Pixel> after = pixelsOf(m_stage);
  m_stage.host().repaint();
  EXPECT_TRUE(differences(after, pixelsOf(m_stage), kWidth).empty());
}

// What the screen holds after edits is what a fresh start paints from the file.
TEST_P(ScreenProtocol, ScreenEqualsThatOfTheSavedFile) {
  const std::string path = ::testing::TempDir() + "screen_protocol.kov";
  ASSERT_TRUE(
      ScriptPlayer(m_stage).play("arc\n.pick 50,50\n.pick 100,90\n.pick 150,60\n.key esc\n"
                                 "erase\n.pick 200,240\n.enter\n"
                                 ".undo\n.undo\n.redo\n"
                                 ".pick 40,150\n.drag 40,260 60,250\n.key esc\n"
                                 ".window 0,0 400,300\n.save " +
                                 path + "\n"));
  const std::vector<Pixel> edited = pixelsOf(m_stage);
  ScriptStage other(options(GetParam()), ScriptStage::Facts::fixed);
  ASSERT_TRUE(ScriptPlayer(other).play(".open " + path + "\n.window 0,0 400,300\n"));
  EXPECT_TRUE(differences(edited, pixelsOf(other), kWidth).empty());
}

INSTANTIATE_TEST_SUITE_P(Backgrounds, ScreenProtocol, ::testing::Values(0x000000, 0xffffff),
                         [](const auto& row) { return row.param == 0 ? "Black" : "White"; });

}  // namespace
