#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/file.h"
#include "platform/file_system.h"

namespace {

namespace fs = std::filesystem;

class MachineFiles : public testing::Test {
 protected:
  fs::path folder;

  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "qdr-files-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
  }
  void TearDown() override { fs::remove_all(folder); }

  CString path(const char* name) const { return CString((folder / name).string().c_str()); }

  void put(const char* name, const char* text) const { std::ofstream(folder / name) << text; }

  std::string content(const char* name) const {
    std::ifstream in(folder / name);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::size_t fileCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  static bool save(const CString& target, const char* text) {
    CFile file;
    if (!file.Open(target, 4097)) return false;
    file.Write(text, static_cast<unsigned>(std::string(text).size()));
    return file.Close();
  }
};

TEST_F(MachineFiles, SavesAndReads) {
  const CString target = path("\xEA\xB0\x80 plan.kov");
  EXPECT_TRUE(save(target, "first"));
  EXPECT_TRUE(save(target, "2"));
  EXPECT_EQ(fileCount(), 1u);
  CFile file;
  ASSERT_TRUE(file.Open(target, 0));
  EXPECT_EQ(file.bytesLeft(), 1u);
  EXPECT_EQ(file.GetFilePath(), target);
  char byte = 0;
  EXPECT_EQ(file.Read(&byte, 1), 1u);
  EXPECT_EQ(byte, '2');
}

TEST_F(MachineFiles, TheEarlierFileStaysUntilClose) {
  put("a.kov", "earlier");
  {
    CFile file;
    ASSERT_TRUE(file.Open(path("a.kov"), 4097));
    const std::string much(200'000, 'x');
    file.Write(much.data(), 200'000);
    EXPECT_EQ(content("a.kov"), "earlier");
    EXPECT_EQ(fileCount(), 2u);
  }
  EXPECT_EQ(content("a.kov"), "earlier");
  EXPECT_EQ(fileCount(), 1u);
}

TEST_F(MachineFiles, TheModeOfTheTargetIsKept) {
  put("a.kov", "");
  chmod((folder / "a.kov").c_str(), 0640);
  EXPECT_TRUE(save(path("a.kov"), "x"));
  struct stat facts;
  ASSERT_EQ(stat((folder / "a.kov").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777, 0640u);
}

TEST_F(MachineFiles, LinksAreFollowedAndStay) {
  fs::create_directory(folder / "real");
  put("real/a.kov", "earlier");
  fs::create_symlink("real/a.kov", folder / "link.kov");
  fs::create_symlink("link.kov", folder / "second.kov");
  fs::create_symlink("real/new.kov", folder / "dangling.kov");
  EXPECT_TRUE(save(path("second.kov"), "x"));
  EXPECT_TRUE(save(path("dangling.kov"), "y"));
  EXPECT_TRUE(fs::is_symlink(folder / "second.kov"));
  EXPECT_TRUE(fs::is_symlink(folder / "dangling.kov"));
  EXPECT_EQ(content("real/a.kov"), "x");
  EXPECT_EQ(content("real/new.kov"), "y");
}

TEST_F(MachineFiles, AFailedOpenChangesNothing) {
  CFile file;
  EXPECT_FALSE(file.Open(path("none/a.kov"), 4097));
  EXPECT_EQ(file.lastError(), "No such file or directory");
  EXPECT_FALSE(file.Open(path("none.kov"), 0));
  EXPECT_FALSE(file.Open(CString(folder.string().c_str()), 0));
  EXPECT_FALSE(file.Open(CString(folder.string().c_str()), 4097));
  EXPECT_FALSE(file.Open(L"", 4097));
  EXPECT_FALSE(file.Open(nullptr, 0));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(file.Open(path("pipe"), 0));
  EXPECT_FALSE(file.Open(path("pipe"), 4097));
  fs::create_symlink("loop", folder / "loop");
  EXPECT_FALSE(file.Open(path("loop"), 4097));
  EXPECT_EQ(fileCount(), 2u);
}

TEST_F(MachineFiles, AFileThatMayNotBeWrittenIsNotReplaced) {
  if (geteuid() == 0) GTEST_SKIP() << "the administrator may write everything";
  put("a.kov", "earlier");
  chmod((folder / "a.kov").c_str(), 0444);
  EXPECT_FALSE(save(path("a.kov"), "x"));
  EXPECT_EQ(content("a.kov"), "earlier");
}

TEST_F(MachineFiles, FoldersAreListedByName) {
  put("b.kov", "12");
  put("a.kov", "");
  fs::create_directory(folder / "c");
  const auto entries = qdr::machineFiles().list(qdr::fromUtf8(folder.string()));
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].name, L"a.kov");
  EXPECT_EQ(entries[1].size, 2u);
  EXPECT_TRUE(entries[2].isFolder);
  EXPECT_TRUE(qdr::machineFiles().list(L"/no such folder").empty());
}

}  // namespace
