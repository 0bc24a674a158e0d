#include "platform/headless/recording_surface.h"

#include <numbers>

#include "platform/format.h"
#include "platform/wide_string.h"

namespace qdr {

namespace {

// Numbers as C writes them, whatever locale the process runs in.
template <class... Arguments>
std::string formatted(const wchar_t* format, const Arguments&... arguments) {
  return toUtf8(qdr::formatted(format, {arguments...}));
}

std::string textOf(CPoint point) {
  return formatted(L" %d,%d", point.x, point.y);
}

std::string textOf(const CRect& rect) {
  return textOf(rect.TopLeft()) + textOf(rect.BottomRight());
}

std::string colorText(COLORREF color) {
  return formatted(L" 0x%06x", color & 0xffffff);
}

std::string penText(const DeviceStroke& stroke) {
  static constexpr const char* kStyles[] = {"solid",      "dash", "dot",   "dashdot",
                                            "dashdotdot", "null", "frame", "dashes"};
  const int style = stroke.style & PS_STYLE_MASK;
  if (!stroke.visible) return " pen null";
  std::string text = formatted(L" pen %s", style < 8 ? kStyles[style] : "solid");
  if (style == PS_USERSTYLE) {
    text += " ";
    for (std::size_t i = 0; i < stroke.dashes.lengths.size(); ++i)
      text += formatted(i ? L",%g" : L"%g", stroke.dashes.lengths[i]);
    text += " width";
  }
  return text + formatted(L" %d", stroke.logicalWidth) + colorText(stroke.color);
}

std::string brushText(const DeviceFill& fill) {
  if (fill.style == BS_HOLLOW) return " brush hollow";
  if (fill.style == BS_HATCHED)
    return formatted(L" brush hatch %d", fill.hatch) + colorText(fill.color);
  return " brush solid" + colorText(fill.color);
}

std::string ropText(const DeviceState& state) {
  return formatted(L" rop %d", state.rop2);
}

std::string penAndRop(const DeviceState& state) {
  return penText(state.stroke) + ropText(state);
}

std::string penBrushAndRop(const DeviceState& state) {
  return penText(state.stroke) + brushText(state.fill) + ropText(state);
}

// Text of a record, as UTF-8 within one line: quotes, backslashes and control characters escaped.
std::string quoted(std::wstring_view text) {
  std::string result = "\"";
  for (const wchar_t character : text) {
    const auto code = static_cast<unsigned>(character);
    if (code == '"' || code == '\\') result += '\\';
    if (code >= 0x20 && code < 0x7f) {
      result += static_cast<char>(code);
    } else {
      result += formatted(L"\\u%04x", code);
    }
  }
  return result + "\"";
}

}  // namespace

RecordingSurface::RecordingSurface(CSize size, bool printing)
    : m_size(size), m_printing(printing) {}

std::string RecordingSurface::text() const {
  std::string all;
  for (const std::string& line : m_lines)
    all += line + "\n";
  return all;
}

int RecordingSurface::deviceCaps(int index) const {
  const auto found = m_caps.find(index);
  return found != m_caps.end() ? found->second : IDeviceSurface::deviceCaps(index);
}

void RecordingSurface::drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) {
  m_lines.push_back("LineTo" + textOf(CPoint(x1, y1)) + textOf(CPoint(x2, y2)) + penAndRop(state));
}

void RecordingSurface::drawPolyline(const DeviceState& state, const CPoint* points,
                                    std::size_t count) {
  std::string line = "Polyline";
  for (std::size_t i = 0; i < count; ++i)
    line += textOf(points[i]);
  m_lines.push_back(line + penAndRop(state));
}

void RecordingSurface::drawPolygons(const DeviceState& state, const DeviceContours& contours) {
  std::string line = "Polygon";
  const CPoint* point = contours.points;
  for (std::size_t c = 0; c < contours.contourCount; ++c) {
    if (c > 0) line += " and";
    for (std::size_t i = 0; i < contours.counts[c]; ++i)
      line += textOf(*point++);
  }
  m_lines.push_back(line + formatted(L" mode %d", state.fillMode) + penBrushAndRop(state));
}

void RecordingSurface::drawRectangle(const DeviceState& state, const CRect& rect) {
  m_lines.push_back("Rectangle" + textOf(rect) + penBrushAndRop(state));
}

void RecordingSurface::drawEllipse(const DeviceState& state, const CRect& rect) {
  m_lines.push_back("Ellipse" + textOf(rect) + penBrushAndRop(state));
}

void RecordingSurface::drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) {
  constexpr double kDegrees = 180 / std::numbers::pi;
  m_lines.push_back("AngleArc" + textOf(lead) +
                    formatted(L" centre %g,%g radius %g,%g from %g sweep %g", arc.centerX,
                              arc.centerY, arc.radiusX, arc.radiusY, arc.startAngle * kDegrees,
                              arc.sweepAngle * kDegrees) +
                    penAndRop(state));
}

void RecordingSurface::fillRect(const DeviceState&, const CRect& rect, COLORREF color) {
  m_lines.push_back("FillSolidRect" + textOf(rect) + colorText(color));
}

void RecordingSurface::setPixel(const DeviceState&, CPoint point, COLORREF color) {
  m_lines.push_back("SetPixel" + textOf(point) + colorText(color));
}

bool RecordingSurface::drawImage(const DeviceState&, const ImageTransfer& transfer) {
  m_lines.push_back("BitBlt" + textOf(transfer.to) + " from" + textOf(transfer.from) +
                    formatted(L" rop 0x%06x", transfer.rop));
  return true;
}

bool RecordingSurface::drawText(const DeviceState& state, const DeviceText& text) {
  m_lines.push_back("TextOut" + textOf(text.reference) + " " + quoted(text.text) +
                    formatted(L" align %u height %d angle %d", text.align, text.font->lfHeight,
                              text.font->lfEscapement) +
                    colorText(text.color) + ropText(state));
  return true;
}

}  // namespace qdr
