// The sample scripts that ship end in sound drawings.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "database/file/drawing_scanner.h"
#include "hostcore/data_folder.h"
#include "hostcore/script_player.h"
#include "hostcore/visible_box.h"

namespace {

constexpr std::uint64_t kLeastEntities = 15;

TEST(Samples, PlayToTheirEndAndSaveSoundDrawings) {
  ASSERT_EQ(qdr::useFoundDataFolder(), L"");
  int played = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QDR_SOURCE_DIR "/data/scripts")) {
    SCOPED_TRACE(entry.path().string());
    std::ifstream script(entry.path(), std::ios::binary);
    qdr::ScriptStage stage({}, qdr::ScriptStage::Facts::fixed);
    const qdr::ScriptOutcome outcome =
        qdr::ScriptPlayer(stage).play(std::string(std::istreambuf_iterator<char>(script), {}));
    ASSERT_TRUE(outcome) << "line " << outcome.line << ": " << qdr::toUtf8(outcome.reason);
    EXPECT_TRUE(stage.platform().ui.boxes().empty());

    const std::wstring path = qdr::fromUtf8(::testing::TempDir() + "sample.kov");
    ASSERT_TRUE(stage.host().save(path));
    std::string bytes;
    std::string error;
    ASSERT_TRUE(qdr::readWholeFile(path.c_str(), bytes, error)) << error;
    qdr::DrawingVisitor ignored;
    const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, ignored);
    EXPECT_EQ(drawing.faults, 0u);
    EXPECT_GE(drawing.entities, kLeastEntities);

    const qdr::VisibleBox before = qdr::visibleBox(stage.host().display());
    ASSERT_TRUE(stage.host().open(path));
    const qdr::VisibleBox after = qdr::visibleBox(stage.host().display());
    EXPECT_EQ(before.min, after.min);
    EXPECT_EQ(before.max, after.max);
    ++played;
  }
  EXPECT_GE(played, 2);
}

}  // namespace
