#include "hostcore/script_player.h"

#include <gtest/gtest.h>

#include <string>

#include "hostcore/data_folder.h"

using qdr::ScriptEnd;
using qdr::ScriptPlayer;
using qdr::ScriptStage;

namespace {

class ScriptTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_EQ(qdr::useFoundDataFolder(), L""); }
};

struct ScriptCase {
  const char* name;
  const char* script;
  ScriptEnd end = ScriptEnd::done;
  int line = 0;
  const char* reason = "";
};

// The stage is 800 x 600 pixels and shows the limits 420 x 297 of a new drawing; ".window" makes
// a pixel half a unit, so that a pick at whole units is exact.
constexpr const char* kHalfUnits = ".window 0,0 400,300\n";

const ScriptCase kCases[] = {
    {"typed line runs on until Enter",
     "line\n0,0\n100,0\n100,50\n.enter\n.expect idle\n.expect count line 2\n"
     ".expect entity line X_End=100 Y_End=50"},
    {"blanks end answers as Enter does", "line 0,0 10,0 10,10\n.key esc\n.expect count 2"},
    {"polar answer counts from the start", "line\n10,10\n5<90\n.expect point 10,15\n.key esc"},
    // C ends the prompt at once; with an Enter behind it the centre would be the last point.
    {"keyword ends its own input",
     "arc\nc\n.expect prompt Centre point\n0,0\n10,0\n90\n"
     ".expect entity arc Radius=10\n.key esc"},
    {"pick by the mouse", "circle\n.pick 50,50\n.pick 60,50\n.expect entity circle Radius=10"},
    {"number takes the place of a pick",
     "circle\n.pick 50,50\n12.5\n"
     ".expect entity circle Radius=12.5"},
    {"Enter repeats the command",
     "circle\n0,0\n5\n.enter\n.expect prompt Centre\n9,9\n2\n"
     ".expect count circle 2"},
    {"right button cancels", "circle\n.rclick 1,1\n.expect idle\n.expect count 0"},
    {"undo and redo as directives",
     "rect\n0,0\n9,9\n.undo\n.expect count 0\n.redo\n"
     ".expect count rectangle 1"},
    {"undo and redo as commands", "rect\n0,0\n9,9\nu\n.expect count 0\nredo\n.expect count 1"},
    {"erased by a window, back in one step",
     "circle\n10,10\n5\ncircle\n30,10\n5\nerase\n.pick 1,1\n.pick 50,30\n.enter\n.expect count 0\n"
     ".undo\n.expect count 2"},
    {"grips of a pick select",
     "circle\n50,50\n20\n.pick 70,50\n.expect selected 1\nerase\n"
     ".expect count 0\n.expect selected 0"},
    {"lost capture drops the draft", "circle\n5,5\n.lose\n.expect idle\n.expect count 0"},
    {"ortho holds the pick",
     ".set ortho 1\nline\n.pick 50,50\n.pick 90,60\n.expect point 90,50\n"
     ".key esc"},
    {"option starts in a mode",
     ".option 300\narc\n.expect prompt Centre\n10,10\n5\n0\n90\n"
     ".expect entity arc Radius=5\n.key esc"},
    {"menu of a grip",
     "rect\n20,20\n40,40\n.pick 20,30\n.menu 30074\n.rclick 20,20\n"
     ".expect count 0\n.undo\n.expect count 1"},
    {"value of a dialog",
     "circle\n50,50\n20\n.pick 70,50\n.menu 30077\n.value 6\n.rclick 70,50\n"
     ".expect count polyline 1\n.expect count circle 0\n.undo\n.expect count circle 1"},
    {"dialog left by Cancel",
     "circle\n50,50\n20\n.pick 70,50\n.menu 30077\n.value\n.rclick 70,50\n.expect count circle 1"},
    {"drawings beside one another",
     "circle\n50,50\n20\n.beside\n.expect count 0\nrect\n0,0\n9,9\n.drawing 1\n"
     ".expect count circle 1\n.close\n.expect count rectangle 1\n.close 1\n.expect count 0"},
    {"dialog without an answer",
     "circle\n50,50\n20\n.pick 70,50\n.menu 30077\n.rclick 70,50\n.enter", ScriptEnd::failed, 7,
     "without an answer"},
    {"no such drawing", ".drawing 2", ScriptEnd::failed, 2, "no such drawing"},
    {"no number of a drawing", ".drawing", ScriptEnd::usage, 2, "number of a drawing"},
    {"status follows the mouse",
     "circle\n.move 50,60\n.expect status 50.000000, 60.000000\n"
     ".key esc"},
    {"comments and blank lines are passed over", "# one\n\n   \n.expect idle"},
    {"layer made and taken",
     ".layer Hidden 1 Hidden\nline 0,0 5,0\n.key esc\n"
     ".expect entity line Layer=Hidden LineType=Hidden"},
    {"unknown command", "line\n.key esc\nlinne\n", ScriptEnd::failed, 4, "no command \"linne\""},
    {"unknown directive", "\n.pik 1,1\n", ScriptEnd::usage, 3, "no directive \".pik\""},
    {"bad point", ".pick 1;1", ScriptEnd::usage, 2, "no point"},
    {"pick outside of the view", "line\n.pick 5000,0", ScriptEnd::failed, 3, "outside the view"},
    {"count differs", "circle 0,0 5\n.expect count 2", ScriptEnd::failed, 3, "expected 2, found 1"},
    {"property differs", "circle\n0,0\n5\n.expect entity circle Radius=6", ScriptEnd::failed, 5,
     "expected 6, found 5"},
    {"prompt differs", "circle\n.expect prompt Radius", ScriptEnd::failed, 3, "Centre point:"},
    {"nothing to undo", ".undo", ScriptEnd::failed, 2, "nothing to undo"},
    {"undo while a command runs", "circle\n.undo", ScriptEnd::failed, 3, "a command is running"},
    {"end inside a command", "circle\n5,5\n", ScriptEnd::failed, 4, "waits at \"Radius"},
    {"greyed menu item", "rect\n20,20\n40,40\n.pick 20,30\n.menu 30073\n.rclick 20,20\n.enter",
     ScriptEnd::failed, 7, "is greyed"},
    {"missing file", ".open /no/such/drawing.kov", ScriptEnd::file, 2, "drawing.kov"},
    {"no drawing by its name", ".save drawing.txt", ScriptEnd::file, 2, ".kov"},
};

TEST_F(ScriptTest, EndsAsItShould) {
  for (const ScriptCase& row : kCases) {
    SCOPED_TRACE(row.name);
    ScriptStage stage({}, ScriptStage::Facts::fixed);
    const qdr::ScriptOutcome outcome =
        ScriptPlayer(stage).play(std::string(kHalfUnits) + row.script);
    EXPECT_EQ(outcome.end, row.end) << qdr::toUtf8(outcome.reason) << " in line " << outcome.line;
    EXPECT_EQ(outcome.line, row.line);
    EXPECT_NE(qdr::toUtf8(outcome.reason).find(row.reason), std::string::npos)
        << qdr::toUtf8(outcome.reason);
    EXPECT_FALSE(stage.host().isBusy());
  }
}

TEST_F(ScriptTest, AStageTakesAnotherScriptBehindAFailure) {
  ScriptStage stage({}, ScriptStage::Facts::fixed);
  EXPECT_EQ(ScriptPlayer(stage).play("line\n0,0\n.expect count 7\n").end, ScriptEnd::failed);
  EXPECT_TRUE(ScriptPlayer(stage).play("circle\n0,0\n5\n.expect count 1\n.expect idle\n"));
}

TEST_F(ScriptTest, TheLogIsATranscript) {
  ScriptStage stage({}, ScriptStage::Facts::fixed);
  ASSERT_TRUE(ScriptPlayer(stage).play("line\n0,0\n5,5\n.key esc\ncircle\n1,2\n3\n"));
  CString log;
  stage.host().log().GetWindowText(log);
  EXPECT_EQ(qdr::toUtf8(log.text()),
            "line\nStart point:0,0\nNext point:5,5\nNext point:\n"
            "circle\nCentre point:1,2\nRadius or distance:3\n");
}

}  // namespace
