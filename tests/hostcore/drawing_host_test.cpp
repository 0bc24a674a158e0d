#include "hostcore/drawing_host.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cwchar>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "database/database.h"
#include "entities/cobweb.h"
#include "hostcore/command_numbers.h"
#include "hostcore/data_folder.h"
#include "hostcore/page.h"
#include "hostcore/prompts.h"
#include "hostcore/script_player.h"
#include "platform/svg_surface.h"
#include "tests/hostcore/stage_pictures.h"
#include "tests/support/drawing_bytes.h"

using qdr::HostFault;
using qdr::ScriptPlayer;
using qdr::ScriptStage;

namespace {

std::string temporary(const char* name) {
  return ::testing::TempDir() + name;
}

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

class HostTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { qdr::useFoundDataFolder(); }
  qdr::DrawingHost& host() { return m_stage.host(); }
  void play(const std::string& script) {
    const qdr::ScriptOutcome outcome = ScriptPlayer(m_stage).play(script);
    ASSERT_TRUE(outcome) << outcome.line << ": " << qdr::toUtf8(outcome.reason);
  }

  ScriptStage m_stage{{}, ScriptStage::Facts::fixed};
};

TEST_F(HostTest, OpensOnlyDrawings) {
  const std::string drawing = temporary("whole.kov");
  play("circle\n5,5\n3\n.save " + drawing);
  const std::string whole = bytesOf(drawing);
  std::string foreign = whole;
  foreign[0] = 'X';
  constexpr std::size_t kFixedBytes = 21566 + 1200 + 232 + 32;
  struct {
    const char* name;
    std::string bytes;
  } const rows[] = {
      {"wrong_extension.txt", whole},
      {"foreign.kov", foreign},
      {"short.kov", whole.substr(0, kFixedBytes - 1)},
      {"empty.kov", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    write(temporary(row.name), row.bytes);
    const qdr::HostAnswer answer = host().open(qdr::fromUtf8(temporary(row.name)));
    EXPECT_EQ(answer.fault, HostFault::file);
    EXPECT_NE(answer.reason.find(qdr::fromUtf8(row.name)), std::wstring::npos);
    play(".expect count circle 1");
  }
  EXPECT_TRUE(host().open(qdr::fromUtf8(drawing)));
}

// Each drawing keeps its own: entities, log, selection, window, mark of being unsaved.
TEST_F(HostTest, DrawingsStandBesideOneAnother) {
  const std::string drawing = temporary("beside.kov");
  play(".window 0,0 400,300\ncircle\n50,50\n20\n.pick 70,50\n.expect selected 1\n");
  const auto picture = [this] { return qdr::test::pixelsOf(m_stage); };
  host().repaint();
  const std::vector<qdr::Pixel> first = picture();
  ASSERT_TRUE(host().addDrawing());
  EXPECT_EQ(host().drawingCount(), 2u);
  EXPECT_EQ(host().activeDrawing(), 1u);
  EXPECT_EQ(_gpDatabase, &host().database());
  EXPECT_TRUE(host().isModified(0));
  EXPECT_FALSE(host().isModified(1));
  play(".expect count 0\n.expect selected 0\nline\n0,0\n9,9\n.enter\nrect\n1,1\n2,2\n.save " +
       drawing);
  EXPECT_NE(picture(), first);

  ASSERT_TRUE(host().activate(0));
  EXPECT_EQ(picture(), first) << "with its grips";
  play(
      ".expect count circle 1\n.expect count 1\n.expect selected 1\n.undo\n.expect count "
      "0\n.redo\n");
  ASSERT_TRUE(host().openBeside(qdr::fromUtf8(drawing)));
  EXPECT_EQ(host().activeDrawing(), 2u);
  EXPECT_EQ(host().path(2), qdr::fromUtf8(drawing));
  play(".expect count 2\ncircle\n5,5\n1\n.expect count 3\n");

  EXPECT_EQ(host().activate(3).fault, HostFault::refused);
  EXPECT_EQ(host().closeDrawing(3).fault, HostFault::refused);
  EXPECT_EQ(host().openBeside(L"/no/such.kov").fault, HostFault::file);
  EXPECT_EQ(host().drawingCount(), 3u);
  // One that waits goes without a trace on the screen; the active one hands over to the one before.
  const std::vector<qdr::Pixel> third = picture();
  ASSERT_TRUE(host().closeDrawing(0));
  EXPECT_EQ(host().activeDrawing(), 1u);
  EXPECT_EQ(picture(), third);
  ASSERT_TRUE(host().closeDrawing(1));
  EXPECT_EQ(host().activeDrawing(), 0u);
  play(".expect count 2\n.expect count line 1\n.undo\n.expect count line 1\n.expect count 1\n");
  ASSERT_TRUE(host().closeDrawing(0));
  EXPECT_EQ(host().drawingCount(), 1u);
  play(".expect count 0\n");
  EXPECT_EQ(_gpDatabase, &host().database());
}

TEST_F(HostTest, OnlyGripsUnderTheMouseShowTheirCursor) {
  play(".window 0,0 400,300\ncircle\n50,50\n20\n.pick 70,50\n.expect selected 1\n");
  const auto isShown = [this](LPARAM hit) {
    return host().view().SendMessage(WM_SETCURSOR, 0, hit) != 0;
  };
  constexpr LPARAM kClient = 1;
  constexpr LPARAM kFrame = 18;
  EXPECT_TRUE(isShown(kClient));
  EXPECT_FALSE(isShown(kFrame));
  play(".move 300,200\n");
  EXPECT_FALSE(isShown(kClient));
}

// A view that grew while another drawing was shown: the scale stays.
TEST_F(HostTest, AWaitingDrawingFollowsTheSizeOfTheView) {
  m_stage.resizeView({400, 300});
  play(".window 0,0 400,300\n");
  ASSERT_TRUE(host().addDrawing());
  m_stage.resizeView({800, 600});
  ASSERT_TRUE(host().activate(0));
  EXPECT_NEAR(host().display().scaleX(), 100.0, 0.5);  // logical units of a pixel, as before
  EXPECT_EQ(host().display().clientRect(), CRect(0, 0, 800, 600));
}

TEST(HostBackups, TheEarlierFileIsKeptWhenAsked) {
  qdr::useFoundDataFolder();
  const std::string drawing = temporary("kept.kov");
  const std::string backup = temporary("kept.bak");
  std::remove(drawing.c_str());
  std::remove(backup.c_str());
  for (const bool keeps : {false, true}) {
    qdr::HostOptions options;
    options.keepsBackups = keeps;
    ScriptStage stage(options, ScriptStage::Facts::fixed);
    ASSERT_TRUE(stage.host().save(qdr::fromUtf8(drawing)));
    EXPECT_EQ(bytesOf(backup).empty(), !keeps);
    const std::string earlier = bytesOf(drawing);
    stage.host().database().setAuthor(L"another");
    ASSERT_TRUE(stage.host().save(qdr::fromUtf8(drawing)));
    EXPECT_NE(bytesOf(drawing), earlier);
    EXPECT_EQ(bytesOf(backup), keeps ? earlier : std::string());
    EXPECT_TRUE(stage.platform().ui.boxes().empty());
  }
}

// The number of a new entity lies above all that were loaded, also when the process is younger
// than the drawing.
TEST_F(HostTest, NewEntitiesJoinALoadedDrawing) {
  const std::string drawing = temporary("numbers.kov");
  play("line\n0,0\n9,9\n0,9\n.enter\n.save " + drawing);
  CQdrDbObject::NextHardID = 1;
  play(".open " + drawing +
       "\n.expect count 2\ncircle\n5,5\n3\n.expect count 3\n"
       "line\n0,0\n1,1\n.enter\n.expect count 4\n.undo\n.undo\n.expect count 2\n");
}

TEST_F(HostTest, RowsOfProjectInfoAndRevisionsSurviveALoad) {
  const std::string drawing = temporary("rows.kov");
  CQdrDbDatabase& database = host().database();
  wchar_t name[CQdrDbTableRecord::kNameSize] = {};
  auto* info = new CQdrDbProjectInfoTableRecord(&database);
  info->SetAutoName(name);
  info->m_first = 7;
  info->m_second = -3;
  std::wcscpy(info->m_text, L"Bearing");
  ASSERT_TRUE(database.m_projectInfoTable.add(info));
  auto* revision = new CQdrDbRevisionTableRecord(&database);
  revision->setName(L"A");
  revision->m_number = 2;
  std::wcscpy(revision->m_thirdText, L"checked");
  ASSERT_TRUE(database.m_revisionTable.add(revision));
  const std::uint32_t next = database.m_projectInfoTable.GetNextName();

  ASSERT_TRUE(host().save(qdr::fromUtf8(drawing)));
  ASSERT_TRUE(host().open(qdr::fromUtf8(drawing)));
  CQdrDbProjectInfoTableRecord* loadedInfo = nullptr;
  ASSERT_TRUE(host().database().m_projectInfoTable.getRecord(name, loadedInfo));
  EXPECT_EQ(loadedInfo->m_first, 7);
  EXPECT_EQ(loadedInfo->m_second, -3);
  EXPECT_STREQ(loadedInfo->m_text, L"Bearing");
  EXPECT_EQ(host().database().m_projectInfoTable.GetNextName(), next);
  CQdrDbRevisionTableRecord* loadedRevision = nullptr;
  ASSERT_TRUE(host().database().m_revisionTable.getRecord(L"A", loadedRevision));
  EXPECT_EQ(loadedRevision->m_number, 2);
  EXPECT_STREQ(loadedRevision->m_thirdText, L"checked");
}

TEST_F(HostTest, AFailedSaveSaysWhyAndStaysUnsaved) {
  play("circle\n5,5\n3\n");
  EXPECT_TRUE(host().isModified());
  const qdr::HostAnswer answer = host().save(L"/no/such/folder/a.kov");
  EXPECT_EQ(answer.fault, HostFault::file);
  EXPECT_NE(answer.reason.find(L"/no/such/folder/a.kov: "), std::wstring::npos);
  EXPECT_TRUE(host().isModified());
  const std::string drawing = temporary("saved.kov");
  ASSERT_TRUE(host().save(qdr::fromUtf8(drawing)));
  EXPECT_FALSE(host().isModified());
  EXPECT_EQ(host().path(), qdr::fromUtf8(drawing));
}

TEST_F(HostTest, OnlyADragThatChangesSomethingCountsAsUnsaved) {
  play(".window 0,0 400,300\ncircle\n50,50\n20\n.pick 70,50\n.save " + temporary("grips.kov"));
  play(".pick 70,50\n.press 70,50\n.move 80,50\n.key esc\n.menu 0\n.rclick 70,50\n");
  EXPECT_FALSE(host().isModified());
  play(".drag 70,50 80,50\n.expect entity circle Radius=30\n");
  EXPECT_TRUE(host().isModified());
}

TEST_F(HostTest, RefusesWhileACommandRuns) {
  m_stage.script().click(50, 50).call([this] {
    EXPECT_TRUE(host().isBusy());
    EXPECT_FALSE(host().runCommand(qdr::kCommandBase + QdrDb::eCommandLine));
    EXPECT_EQ(host().view().SendMessage(WM_COMMAND, qdr::kUndoCommand), 0);
    EXPECT_EQ(host().undo().fault, HostFault::busy);
    EXPECT_EQ(host().redo().fault, HostFault::busy);
    EXPECT_EQ(host().newDrawing().fault, HostFault::busy);
    EXPECT_EQ(host().addDrawing().fault, HostFault::busy);
    EXPECT_EQ(host().activate(0).fault, HostFault::busy);
    EXPECT_EQ(host().closeDrawing(0).fault, HostFault::busy);
    EXPECT_EQ(host().openBeside(L"a.kov").fault, HostFault::busy);
    EXPECT_EQ(host().open(L"a.kov").fault, HostFault::busy);
    EXPECT_EQ(host().save(L"a.kov").fault, HostFault::busy);
    EXPECT_EQ(host().showExtents().fault, HostFault::busy);
  });
  // A close ends the command first and then the program.
  m_stage.script().message(nullptr, WM_CLOSE);
  host().runCommand(qdr::kCommandBase + QdrDb::eCommandCircle);
  EXPECT_FALSE(host().isBusy());
  MSG message;
  while (GetMessageW(&message) > 0)
    host().handle(message);
  EXPECT_FALSE(m_stage.script().isExhausted());
}

// What memory holds of a drawing: its own save, which leaves no reader anything behind a cobweb,
// and the undo log.
std::string inMemory(CQdrDbDatabase& database) {
  std::string state = qdr_test::savedBytes(database);
  for (const tagUndoEditEntity& record : database.m_undoHandler.m_undoList)
    state +=
        std::to_string(record.operation) + ":" + std::to_string(record.entityId.hardId()) + " ";
  for (const auto& [name, id] : database.m_blockTable.records()) {
    auto* block = static_cast<CQdrDbBlockTableRecord*>(id.getPObject());
    for (const CQdrDbObjectId& member : block->getEntitySet())
      state += std::to_string(member.hardId()) + (member.isErased() ? "- " : "+ ");
  }
  return state;
}

// A file brings no cobweb: its circles and lines go there, and what is behind it survives.
TEST_F(HostTest, CirclesAndLinesStandInForASavedCobweb) {
  const std::string drawing = temporary("cobweb.kov");
  const std::string again = temporary("cobweb_again.kov");
  play(".window 0,0 400,300\nline\n0,0\n9,9\n.enter\n");
  CQdrDbDatabase& database = host().database();
  const auto add = [&](int wings) {
    auto* web = new CQdrDbCobweb({100, 100}, 20, 50, wings, 0.25);
    CQdrDbObjectId id;
    database.addEntity(web, id);
    CQdrDbObjectId red;
    database.m_colorTable.getAt(L"1", red);
    web->setColor(red);
    return web;
  };
  CQdrDbCobweb* const web = add(5);
  add(3)->setErased();
  add(4)->setInVisable();
  play("rect\n200,200\n300,250\ncircle\n50,250\n20\n.undo\n.pick 120,100\n.expect selected 1\n");
  ASSERT_TRUE(host().redo());
  qdr_test::savedBytes(database);  // stamps what a first save stamps
  const std::string before = inMemory(database);
  const std::size_t numbered = database.m_entityTable.size();
  ASSERT_TRUE(host().save(qdr::fromUtf8(drawing)));
  ASSERT_EQ(m_stage.platform().ui.boxes().size(), 1u);
  EXPECT_NE(m_stage.platform().ui.boxes()[0].text.find(L"cobwebs"), std::wstring::npos);
  ASSERT_TRUE(host().save(qdr::fromUtf8(again)));
  EXPECT_EQ(m_stage.platform().ui.boxes().size(), 1u) << "said once";
  EXPECT_EQ(database.m_entityTable.size(), numbered);
  EXPECT_FALSE(web->isErased());
  // The title of the drawing is that of its last save.
  ASSERT_TRUE(host().save(qdr::fromUtf8(drawing)));
  EXPECT_EQ(inMemory(database).substr(qdr::kHeaderBytes), before.substr(qdr::kHeaderBytes));
  play(".expect selected 1\n.expect count 4\n");

  ASSERT_TRUE(host().open(qdr::fromUtf8(again)));
  // Beside line, rectangle and circle: two circles and five spokes; those of the hidden one stay
  // hidden.
  play(
      ".expect count 10\n.expect count circle 3\n.expect count line 6\n.expect count rectangle "
      "1\n");
  std::size_t red = 0;
  CQdrDbBlockTableRecord* space = nullptr;
  ASSERT_TRUE(host().database().m_blockTable.getRecord(L"MODEL_SPACE", space));
  EXPECT_EQ(space->getNumEntity(), 3u + 7u + 6u);
  for (const CQdrDbObjectId& id : space->getEntitySet()) {
    const CQdrDbEntity& entity = *qdr::asEntity(id);
    red += entity.ColorIndex() == 1;
  }
  EXPECT_EQ(red, 7u + 6u);
  const std::string first = bytesOf(drawing);
  const std::string second = bytesOf(again);
  EXPECT_EQ(first.substr(qdr::kHeaderBytes), second.substr(qdr::kHeaderBytes));
  // A drawing that was read is another drawing, without a cobweb to speak of.
  ASSERT_TRUE(host().save(qdr::fromUtf8(again)));
  EXPECT_EQ(m_stage.platform().ui.boxes().size(), 1u);
}

// A choice of the property combos goes to the selection, in one step of undo, else to what is
// drawn next.
TEST_F(HostTest, PropertyChoicesFollowTheSelection) {
  play(".window 0,0 400,300\ncircle\n50,50\n20\ncircle\n150,50\n20\n");
  CQdrDbObjectId red;
  ASSERT_TRUE(host().database().m_colorTable.getAt(L"1", red));
  const auto choose = [&](WPARAM kind, const void* data) {
    host().view().SendMessage(81, kind, reinterpret_cast<LPARAM>(data));
  };
  choose(0, red.getPObject());
  play(
      "circle\n250,50\n20\n.expect entity circle Color=1\n"
      ".pick 70,50\n.pick 170,50\n.expect selected 2\n");
  choose(3, L"30");
  choose(0, nullptr);
  play(".key esc\n.expect selected 0\n.undo\n.undo\n.expect count 2\n");
  EXPECT_EQ(host().database().m_vars.currentLineWeight, -1);
}

TEST_F(HostTest, CommandNumbers) {
  struct {
    unsigned number;
    QdrDb::CommandID id;
    unsigned long option;
  } const rows[] = {
      {40001, QdrDb::eCommandLine, 5}, {40036, QdrDb::eCommandPolylineedit, 5},
      {40037, QdrDb::eCommandNone, 5}, {40000, QdrDb::eCommandNone, 5},
      {40019, QdrDb::eCommandNone, 5}, {40190, QdrDb::eCommandNone, 5},
      {40191, QdrDb::eCommandDim, 1},  {40200, QdrDb::eCommandDim, 10},
      {40201, QdrDb::eCommandNone, 5}, {40101, QdrDb::eCommandNone, 5},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.number);
    unsigned long option = 5;
    EXPECT_EQ(qdr::commandOf(row.number, option), row.id);
    EXPECT_EQ(option, row.option);
  }
  for (const unsigned own : {40101u, 40102u, 40110u, 40117u})
    EXPECT_TRUE(qdr::isHostCommand(own)) << own;
  for (const unsigned none : {0u, 40000u, 40100u, 40103u, 40109u, 40118u})
    EXPECT_FALSE(qdr::isHostCommand(none)) << none;
}

TEST_F(HostTest, PromptsAreWholeWhateverTheFileHolds) {
  const std::string rows = temporary("short.msg");
  write(rows, "One:;\nTwo:;\n");
  struct {
    const char* name;
    std::wstring path;
    bool complains;
  } const cases[] = {
      {"built in", L"", false},
      {"of the data folder", qdr::dataFile(L"prompts/en.msg"), false},
      {"too few rows", qdr::fromUtf8(rows), true},
      {"no file", L"/no/such/file.msg", true},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    std::wstring complaint;
    const auto prompts = qdr::loadPrompts(row.path, complaint);
    EXPECT_GE(prompts->promptCount(), qdr::kPromptRows);
    EXPECT_EQ(prompts->getPrompt(3), CString(L"Start point:"));
    EXPECT_EQ(!complaint.empty(), row.complains);
  }
  EXPECT_TRUE(m_stage.platform().ui.boxes().empty());
}

// A print takes all in one colour and leaves window, colours and colour table as they were.
TEST_F(HostTest, PrintLeavesNoTrace) {
  play(".window 0,0 400,300\ncircle\n50,50\n20\n");
  const CRect window = host().display().logicalWindow();
  const std::size_t colors = host().database().m_colorTable.size();
  const bool hadColor = host().database().m_colorTable.has(L"255");
  qdr::VectorPage page;
  qdr::SvgSurface screen(page);
  EXPECT_EQ(qdr::print(host(), screen).fault, HostFault::refused);
  page.printing = true;
  qdr::SvgSurface paper(page);
  ASSERT_TRUE(qdr::print(host(), paper));
  EXPECT_NE(paper.document().find("stroke=\"#000000\""), std::string::npos);
  EXPECT_EQ(host().display().logicalWindow(), window);
  EXPECT_EQ(host().database().m_colorTable.size(), colors);
  EXPECT_EQ(host().database().m_colorTable.has(L"255"), hadColor);
  play(".expect entity circle Color=256\n");
}

TEST_F(HostTest, ShowsAllThatIsVisible) {
  play("circle\n1000,2000\n100\nrect\n-500,0\n-400,50\n");
  ASSERT_TRUE(host().showExtents());
  for (const CQdrGePoint2d& corner : {CQdrGePoint2d(1100, 2100), CQdrGePoint2d(-500, 0)}) {
    CRect client;
    host().view().GetClientRect(&client);
    EXPECT_TRUE(client.PtInRect(host().display().GetDecivePoint(corner)));
  }
  // 2100 units and 4 of 100 on both sides fill the height of 600 pixels: 3.78 units a pixel.
  EXPECT_NEAR(host().display().scaleY() / 100.0, 2100 * 1.08 / 600, 0.02);
}

}  // namespace
