#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "geometry/point2d.h"
#include "platform/points.h"

namespace qdr_tools {

/// Options that several verbs share. A text that does not fit is a wrong use of the program.

/// "--size 1600x1200" in pixels.
void addSize(CLI::App& verb, CSize& size);

/// "--background black", "white" or "#rrggbb".
void addBackground(CLI::App& verb, COLORREF& color);

/// "--data FOLDER": the data files instead of those beside the program.
void addData(CLI::App& verb, std::string& folder);

/// Makes the kernel use the data folder chosen, else the one found; tells what is wrong with it.
void useData(const std::string& folder);

/// Corners of a window of the world.
struct Window {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
};

/// "--window x1,y1,x2,y2" of the world.
void addWindow(CLI::App& verb, std::optional<Window>& window);

}  // namespace qdr_tools
