#include "tools/arguments.h"

#include <cmath>
#include <cstdio>
#include <iostream>

#include "hostcore/data_folder.h"
#include "platform/wide_string.h"

namespace {

constexpr int kMostPixels = 16384;
constexpr COLORREF kBlack = 0;
constexpr COLORREF kWhite = 0xffffff;

bool readSize(const std::string& text, CSize& size) {
  int width = 0;
  int height = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), "%dx%d%n", &width, &height, &used) != 2) return false;
  if (static_cast<std::size_t>(used) != text.size()) return false;
  if (width < 1 || height < 1 || width > kMostPixels || height > kMostPixels) return false;
  size = CSize(width, height);
  return true;
}

bool readColor(const std::string& text, COLORREF& color) {
  if (text == "black" || text == "white") {
    color = text == "black" ? kBlack : kWhite;
    return true;
  }
  unsigned rgb = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), "#%6x%n", &rgb, &used) != 1 || used != 7 || text.size() != 7) {
    return false;
  }
  color = ((rgb & 0xff) << 16) | (rgb & 0xff00) | (rgb >> 16);
  return true;
}

bool readWindow(const std::string& text, qdr_tools::Window& window) {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), "%lf,%lf,%lf,%lf%n", &x1, &y1, &x2, &y2, &used) != 4) return false;
  if (static_cast<std::size_t>(used) != text.size()) return false;
  if (!std::isfinite(x1 + y1 + x2 + y2) || x1 == x2 || y1 == y2) return false;
  window = {CQdrGePoint2d(x1, y1), CQdrGePoint2d(x2, y2)};
  return true;
}

}  // namespace

namespace qdr_tools {

void addSize(CLI::App& verb, CSize& size) {
  const auto take = [&size](const CLI::results_t& texts) { return readSize(texts[0], size); };
  verb.add_option("--size", take, "Pixels of the view or picture, as 1600x1200")->type_name("WxH");
}

void addBackground(CLI::App& verb, COLORREF& color) {
  const auto take = [&color](const CLI::results_t& texts) { return readColor(texts[0], color); };
  verb.add_option("--background", take, "black, white or #rrggbb")->type_name("COLOUR");
}

void addData(CLI::App& verb, std::string& folder) {
  verb.add_option("--data", folder, "Folder of command names, prompts, patterns and fonts")
      ->type_name("FOLDER");
}

void useData(const std::string& folder) {
  const std::wstring complaint =
      folder.empty() ? qdr::useFoundDataFolder() : qdr::useDataFolder(qdr::fromUtf8(folder));
  if (!complaint.empty()) std::cerr << "qdr: " << qdr::toUtf8(complaint) << "\n";
}

void addWindow(CLI::App& verb, std::optional<Window>& window) {
  const auto take = [&window](const CLI::results_t& texts) {
    return readWindow(texts[0], window.emplace());
  };
  verb.add_option("--window", take, "Part of the world to show; default all that is visible")
      ->type_name("X1,Y1,X2,Y2");
}

}  // namespace qdr_tools
