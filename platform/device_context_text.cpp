#include <algorithm>
#include <cmath>
#include <cwchar>
#include <numbers>
#include <vector>

#include "platform/device_context.h"
#include "platform/font_engine.h"

namespace {

std::wstring_view textView(const wchar_t* text, int count) {
  if (!text || count < -1) return {};
  return {text, count < 0 ? std::wcslen(text) : static_cast<std::size_t>(count)};
}

// Where the start of the baseline lies from the reference point, along the baseline and up.
struct BaselineStart {
  double along = 0;
  double up = 0;
};

BaselineStart alignedStart(unsigned align, double advance, const qdr::FontMetrics& metrics) {
  BaselineStart start;
  if ((align & TA_CENTER) == TA_CENTER) {
    start.along = -advance / 2;
  } else if (align & TA_RIGHT) {
    start.along = -advance;
  }
  if ((align & TA_BASELINE) == TA_BASELINE) return start;
  start.up = align & TA_BOTTOM ? metrics.descent : -metrics.ascent;
  return start;
}

// Carries points of a font, x along the baseline and y up, to the device. The baseline runs at the
// escapement as seen with y downward; under a mapping that turns y upward the same number turns the
// other way round. Letters always stand upright on the device.
class TextFrame {
 public:
  TextFrame(CPoint reference, BaselineStart start, double escapementTenths, double scaleX,
            double scaleY)
      : m_reference(reference),
        m_start(start),
        m_scaleX(std::fabs(scaleX)),
        m_scaleY(std::fabs(scaleY)) {
    const double angle = escapementTenths / 10 * std::numbers::pi / 180;
    m_cosine = std::cos(angle);
    m_sine = scaleY < 0 ? -std::sin(angle) : std::sin(angle);
  }

  CPoint toDevice(const qdr::TextOutlines::Point& point) const {
    const double along = m_start.along + point.x;
    const double up = m_start.up + point.y;
    return {rounded(m_reference.x + (along * m_cosine - up * m_sine) * m_scaleX),
            rounded(m_reference.y - (along * m_sine + up * m_cosine) * m_scaleY)};
  }

  static int rounded(double value) { return qdr::truncToInt(std::round(value)); }

 private:
  CPoint m_reference;
  BaselineStart m_start;
  double m_scaleX;
  double m_scaleY;
  double m_cosine = 1;
  double m_sine = 0;
};

// Outlines are filled, frames are drawn with the thin line, both in the text colour.
qdr::DeviceState textState(const qdr::DeviceState& base, COLORREF color, bool filled) {
  qdr::DeviceState state = base;
  state.stroke = qdr::DeviceStroke();
  state.stroke.visible = !filled;
  state.stroke.color = color;
  state.fill.style = filled ? BS_SOLID : BS_HOLLOW;
  state.fill.color = color;
  state.fillMode = WINDING;
  return state;
}

}  // namespace

bool CDC::TextOut(int x, int y, const wchar_t* text, int count) {
  const std::wstring_view view = textView(text, count);
  const LOGFONT& font = GetCurrentFont()->data();
  const double advance = qdr::fontEngine().advance(font, view);
  CPoint reference(x, y);
  if (m_textAlign & TA_UPDATECP) {
    reference = GetCurrentPosition();
    const double angle = font.lfEscapement / 10.0 * std::numbers::pi / 180;
    MoveTo(TextFrame::rounded(reference.x + advance * std::cos(angle)),
           TextFrame::rounded(reference.y - advance * std::sin(angle)));
  }
  if (!m_surface) return false;
  drawTextAt(toDevice(reference), view, advance);
  return true;
}

void CDC::drawTextAt(CPoint reference, std::wstring_view text, double advance) {
  const LOGFONT& font = GetCurrentFont()->data();
  const qdr::DeviceText whole{.text = text,
                              .reference = reference,
                              .align = m_textAlign,
                              .font = &font,
                              .color = m_textColor};
  if (m_surface->drawText(textState(m_state, m_textColor, true), whole)) return;

  qdr::IFontEngine& engine = qdr::fontEngine();
  const qdr::TextOutlines outlines = engine.outlines(font, text);
  if (outlines.points.empty()) return;
  const TextFrame frame(reference, alignedStart(m_textAlign, advance, engine.metrics(font)),
                        font.lfEscapement, m_mapX.scale(), m_mapY.scale());
  std::vector<CPoint> points;
  points.reserve(outlines.points.size());
  for (const qdr::TextOutlines::Point& point : outlines.points)
    points.push_back(frame.toDevice(point));
  m_surface->drawPolygons(textState(m_state, m_textColor, outlines.filled),
                          {points.data(), outlines.counts.data(), outlines.counts.size()});
}

CSize CDC::GetTextExtent(const wchar_t* text, int count) const {
  const LOGFONT& font = GetCurrentFont()->data();
  qdr::IFontEngine& engine = qdr::fontEngine();
  const qdr::FontMetrics metrics = engine.metrics(font);
  return {qdr::truncToInt(std::round(engine.advance(font, textView(text, count)))),
          qdr::truncToInt(std::round(metrics.ascent + metrics.descent))};
}

int CDC::EnumFontsW(const wchar_t* face, FontEnumProc proc, std::intptr_t data) const {
  constexpr int kOutlineType = 4;
  int answer = 0;
  if (!proc) return answer;
  for (const std::wstring& name : qdr::fontEngine().faces()) {
    if (face && *face && name != face) continue;
    LOGFONT font;
    const std::size_t length = std::min(name.size(), std::size(font.lfFaceName) - 1);
    std::copy_n(name.data(), length, font.lfFaceName);
    answer = proc(&font, kOutlineType, data);
    if (answer == 0) break;
  }
  return answer;
}
