#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/export.h"
#include "platform/gdi_objects.h"

namespace qdr {

/// Heights of a font in the unit of its LOGFONT, all positive.
struct FontMetrics {
  double ascent = 0;   ///< from the baseline up to the top of the cell
  double descent = 0;  ///< from the baseline down to the bottom of the cell
};

/// Contours of one string: x along the baseline from its start, y up from the baseline.
struct TextOutlines {
  struct Point {
    double x = 0;
    double y = 0;
  };
  std::vector<Point> points;
  std::vector<std::size_t> counts;  ///< points of each contour
  bool filled = true;               ///< false: contours are drawn as thin frames
};

/// Where character shapes come from. The default engine knows no font files: a character is 0.6
/// of the height wide and is drawn as the frame of its cell, four fifths of it above the baseline.
class QDR_API IFontEngine {
 public:
  virtual ~IFontEngine() = default;

  virtual FontMetrics metrics(const LOGFONT& font) = 0;
  virtual double advance(const LOGFONT& font, std::wstring_view text) = 0;
  virtual TextOutlines outlines(const LOGFONT& font, std::wstring_view text) = 0;

  /// Names of the faces that can be asked for.
  virtual std::vector<std::wstring> faces() = 0;
};

/// The engine in use, never null.
QDR_API IFontEngine& fontEngine();

/// Installs an engine that outlives its use; null brings the default back.
QDR_API void setFontEngine(IFontEngine* engine);

}  // namespace qdr
