#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/tools/program.h"

namespace {

struct Image {
  unsigned width = 0;
  unsigned height = 0;
  std::vector<unsigned char> rgb;

  bool isWhite(int x, int y) const {
    const unsigned char* pixel = &rgb[3 * (static_cast<std::size_t>(y) * width + x)];
    return pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255;
  }
};

Image readPng(const std::string& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  Image result;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return result;
  image.format = PNG_FORMAT_RGB;
  result.rgb.resize(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, result.rgb.data(), 0, nullptr)) return result;
  result.width = image.width;
  result.height = image.height;
  return result;
}

class Playing : public testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("qdr_run_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    script = written("part.txt", "circle\n50,40\n30\nline 0,0 10,10\n.key esc\n.expect count 2\n");
    drawing = at("part.kov");
    ASSERT_EQ(qdr_test::runQdr("run " + script + " -o " + drawing).exitCode, 0);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string at(const char* name) const { return (folder / name).string(); }
  std::string written(const char* name, const std::string& content) const {
    std::ofstream(folder / name, std::ios::binary) << content;
    return at(name);
  }
  std::string content(const char* name) const {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder;
  std::string script;
  std::string drawing;
};

TEST_F(Playing, ExitCodesAndReasons) {
  const std::string wrong = written("wrong.txt", "circle\n5,5\n3\n.expect count 9\n");
  const std::string odd = written("odd.txt", "\n.nothing\n");
  const std::string unsaved = written("unsaved.txt", ".save /no/such/folder/a.kov\n");
  const std::string tiny = written("tiny.kov", "tiny");
  const std::string absent = at("absent.kov");
  const std::string png = at("a.png");
  const struct {
    std::string arguments;
    int exitCode;
    std::string says;
  } rows[] = {
      {"run --log " + script, 0, "Centre point:50,40\n"},
      {"run " + wrong, 1, wrong + ":4: count: expected 9, found 1"},
      {"run " + odd, 2, odd + ":2: there is no directive \".nothing\""},
      {"run " + unsaved, 3, unsaved + ":1: /no/such/folder/a.kov: "},
      {"run " + at("no.txt"), 3, at("no.txt")},
      {"run " + script + " -o /no/such/folder/a.kov", 3, "/no/such/folder/a.kov: "},
      {"run " + script + " -o " + at("a.dwx"), 3, ".kov"},
      {"run", 2, "SCRIPT"},
      {"render " + drawing, 2, "--output"},
      {"render " + drawing + " -o " + at("a.gif"), 2, "a.gif"},
      {"render " + drawing + " -o " + png + " --size 0x5", 2, "--size"},
      {"render " + drawing + " -o " + png + " --window 1,2,3", 2, "--window"},
      {"render " + drawing + " -o " + png + " --background grey", 2, "--background"},
      {"render " + absent + " -o " + png, 3, absent + ": "},
      {"render " + tiny + " -o " + png, 3, tiny + ": too short"},
      {"render " + drawing + " -o /no/such/folder/a.png", 3, "/no/such/folder/a.png: "},
      {"thumb " + tiny + " -o " + png, 3, tiny + ": too short"},
      {"thumb " + drawing + " -o /no/such/folder/a.png", 3, "/no/such/folder/a.png: "},
  };
  for (const auto& row : rows) {
    const qdr_test::Answer answer = qdr_test::runQdr(row.arguments);
    EXPECT_EQ(answer.exitCode, row.exitCode) << row.arguments << "\n" << answer.out;
    EXPECT_NE(answer.out.find(row.says), std::string::npos) << row.arguments << "\n" << answer.out;
  }
}

// At 4 pixels a unit the circle about (50, 40) lies about pixel (200, 240) of 400 x 400.
TEST_F(Playing, PictureShowsTheWindowAskedFor) {
  const qdr_test::Answer answer = qdr_test::runQdr("render " + drawing + " -o " + at("a.png") +
                                                   " --size 400x400 --window 0,0,100,100");
  ASSERT_EQ(answer.exitCode, 0) << answer.out;
  const Image image = readPng(at("a.png"));
  ASSERT_EQ(image.width, 400u);
  ASSERT_EQ(image.height, 400u);
  int inked = 0;
  for (int y = 0; y < 400; ++y) {
    for (int x = 0; x < 400; ++x) {
      if (image.isWhite(x, y)) continue;
      ++inked;
      const double offCircle = std::fabs(std::hypot(x - 200, y - 240) - 120);
      const double offLine = std::fabs(x - (400 - y)) / std::sqrt(2.0);
      const bool besideLine = x > 42 || y < 358;
      ASSERT_TRUE(offCircle <= 1.5 || (offLine <= 1.5 && !besideLine)) << x << ", " << y;
    }
  }
  // A line one pixel wide has at least 8 / sqrt 2 pixels for each pixel of a circle's radius.
  EXPECT_GE(inked, 120 * 5.6);
}

TEST_F(Playing, PictureShowsAllThatIsVisible) {
  ASSERT_EQ(
      qdr_test::runQdr("render " + drawing + " -o " + at("a.png") + " --size 300x200").exitCode, 0);
  const Image image = readPng(at("a.png"));
  ASSERT_EQ(image.width, 300u);
  for (int x = 0; x < 300; ++x)
    ASSERT_TRUE(image.isWhite(x, 0) && image.isWhite(x, 199)) << x;
  int inked = 0;
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 300; ++x)
      inked += image.isWhite(x, y) ? 0 : 1;
  EXPECT_GT(inked, 200);
}

TEST_F(Playing, PagesAndThumbnail) {
  ASSERT_EQ(qdr_test::runQdr("render " + drawing + " -o " + at("a.svg")).exitCode, 0);
  EXPECT_NE(content("a.svg").find("<svg "), std::string::npos);
  EXPECT_NE(content("a.svg").find("</svg>"), std::string::npos);
#ifdef QDR_WITH_PDF
  ASSERT_EQ(qdr_test::runQdr("render " + drawing + " -o " + at("a.pdf")).exitCode, 0);
  EXPECT_EQ(content("a.pdf").substr(0, 5), "%PDF-");
#endif
  ASSERT_EQ(qdr_test::runQdr("thumb " + drawing + " -o " + at("t.png")).exitCode, 0);
  const Image thumb = readPng(at("t.png"));
  ASSERT_EQ(thumb.width, 160u);
  ASSERT_EQ(thumb.height, 120u);
  // The drawing was saved with the limits 420 x 297 in view, so all of it is at the lower left.
  bool above = false;
  bool below = false;
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 160; ++x) {
      const bool lit = thumb.rgb[static_cast<std::size_t>(3 * (y * 160 + x))] > 0;
      (y < 60 ? above : below) |= lit;
    }
  }
  EXPECT_FALSE(above);
  EXPECT_TRUE(below);
}

}  // namespace
