#pragma once

#include <string>
#include <vector>

#include "geometry/point2d.h"
#include "geometry/polyline2d.h"
#include "platform/points.h"

namespace qdr_tools {

/// Shapes over a light grid, fitted to the page; later ones lie on top.
struct ShapePicture {
  struct Stroke {
    const CQdrGePolyline2d* shape = nullptr;
    COLORREF color = 0;
    bool showsVertices = false;
  };
  struct Mark {
    CQdrGePoint2d place;
    COLORREF color = 0;
  };
  std::vector<Stroke> strokes;
  std::vector<Mark> marks;
};

/// True when the ending of the name tells a kind of picture: .png or .svg.
bool namesPicture(const std::string& path);

/// The picture as the kind that `path` names. False when it cannot be made, and then `reason` says
/// why.
bool renderPicture(const ShapePicture& picture, const std::string& path, std::string& bytes,
                   std::string& reason);

}  // namespace qdr_tools
