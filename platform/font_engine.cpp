#include "platform/font_engine.h"

#include <cstdlib>

namespace qdr {

namespace {

constexpr double kCharacterWidth = 0.6;
constexpr double kAscent = 0.8;
constexpr double kDefaultHeight = 16;
constexpr const wchar_t* kFaceName = L"Frame";

double heightOf(const LOGFONT& font) {
  return font.lfHeight == 0 ? kDefaultHeight : std::abs(static_cast<double>(font.lfHeight));
}

// Characters as the frames of their cells, for machines without fonts.
class FrameFont : public IFontEngine {
 public:
  FontMetrics metrics(const LOGFONT& font) override {
    const double height = heightOf(font);
    return {kAscent * height, (1 - kAscent) * height};
  }

  double advance(const LOGFONT& font, std::wstring_view text) override {
    return kCharacterWidth * heightOf(font) * static_cast<double>(text.size());
  }

  TextOutlines outlines(const LOGFONT& font, std::wstring_view text) override {
    const FontMetrics cell = metrics(font);
    const double width = kCharacterWidth * heightOf(font);
    TextOutlines frames;
    frames.filled = false;
    frames.points.reserve(4 * text.size());
    frames.counts.assign(text.size(), 4);
    for (std::size_t i = 0; i < text.size(); ++i) {
      const double left = width * static_cast<double>(i);
      frames.points.push_back({left, -cell.descent});
      frames.points.push_back({left + width, -cell.descent});
      frames.points.push_back({left + width, cell.ascent});
      frames.points.push_back({left, cell.ascent});
    }
    return frames;
  }

  std::vector<std::wstring> faces() override { return {kFaceName}; }
};

IFontEngine& defaultEngine() {
  static FrameFont& engine = *new FrameFont;
  return engine;
}

IFontEngine* g_engine = nullptr;

}  // namespace

IFontEngine& fontEngine() {
  return g_engine ? *g_engine : defaultEngine();
}

void setFontEngine(IFontEngine* engine) {
  g_engine = engine;
}

}  // namespace qdr
