#include "platform/svg_surface.h"

#include <charconv>
#include <cmath>

namespace qdr {

namespace {

using Kind = PathStep::Kind;

// Decimals of a coordinate in device units; shorter numbers make shorter files.
constexpr double kParts = 100;

void appendNumber(std::string& text, double value) {
  char buffer[32];
  const double scaled = std::round(value * kParts);
  const std::int64_t parts = std::fabs(scaled) < 1e15 ? static_cast<std::int64_t>(scaled) : 0;
  const std::int64_t whole = parts / static_cast<std::int64_t>(kParts);
  const std::int64_t rest = std::abs(parts % static_cast<std::int64_t>(kParts));
  if (parts < 0 && whole == 0) text += '-';
  text.append(buffer, std::to_chars(buffer, buffer + sizeof(buffer), whole).ptr);
  if (rest == 0) return;
  text += '.';
  text += static_cast<char>('0' + rest / 10);
  if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
}

void appendColor(std::string& text, COLORREF color) {
  constexpr char kDigits[] = "0123456789abcdef";
  text += '#';
  for (const int shift : {0, 8, 16}) {
    text += kDigits[color >> (shift + 4) & 15];
    text += kDigits[color >> shift & 15];
  }
}

const char* capName(int style) {
  switch (style & PS_ENDCAP_MASK) {
    case PS_ENDCAP_SQUARE:
      return " stroke-linecap=\"square\"";
    case PS_ENDCAP_FLAT:
      return " stroke-linecap=\"butt\"";
    default:
      return nullptr;
  }
}

const char* joinName(int style) {
  switch (style & PS_JOIN_MASK) {
    case PS_JOIN_BEVEL:
      return " stroke-linejoin=\"bevel\"";
    case PS_JOIN_MITER:
      return " stroke-linejoin=\"miter\"";
    default:
      return nullptr;
  }
}

}  // namespace

SvgSurface::SvgSurface(const VectorPage& page) : VectorSurface(page) {}

std::string SvgSurface::document() {
  flush();
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "
      "xmlns=\"http://www.w3.org/2000/svg\" width=\"";
  appendNumber(text, page().widthMillimetres);
  text += "mm\" height=\"";
  appendNumber(text, page().heightMillimetres);
  text += "mm\" viewBox=\"0 0 ";
  appendNumber(text, size().cx);
  text += ' ';
  appendNumber(text, size().cy);
  // The limit of a viewer left to itself is lower.
  text += "\" fill=\"none\" stroke-miterlimit=\"" + std::to_string(kMiterLimit);
  text += "\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n" + m_body;
  if (m_inGroup) text += "</g>\n";
  return text + "</svg>\n";
}

void SvgSurface::number(double value) {
  appendNumber(m_body, value);
}

void SvgSurface::writePathData(const VectorPath& path) {
  m_body += " d=\"";
  Kind previous = Kind::close;
  int inCurve = 0;
  for (const PathStep& step : path) {
    if (step.kind == Kind::close) {
      m_body += 'Z';
      previous = step.kind;
      continue;
    }
    // A letter holds until another one; numbers after a move read as lines.
    const bool repeats = step.kind == previous && step.kind != Kind::move;
    const bool insideCurve = step.kind == Kind::curve && inCurve != 0;
    if (repeats || insideCurve) {
      m_body += ' ';
    } else {
      m_body += step.kind == Kind::move ? 'M' : step.kind == Kind::line ? 'L' : 'C';
    }
    inCurve = step.kind == Kind::curve ? (inCurve + 1) % 3 : 0;
    number(step.x);
    m_body += ' ';
    number(step.y);
    previous = step.kind;
  }
  m_body += "\"/>\n";
}

void SvgSurface::writeStroke(const VectorPen& pen, const VectorPath& path) {
  m_body += "<path stroke=\"";
  appendColor(m_body, pen.color);
  m_body += "\" stroke-width=\"";
  number(pen.width);
  m_body += '"';
  // The root sets round caps and joins; a path names only others.
  if (const char* cap = capName(pen.style)) m_body += cap;
  if (const char* join = joinName(pen.style)) m_body += join;
  if (!pen.dashes.empty()) {
    m_body += " stroke-dasharray=\"";
    for (std::size_t i = 0; i < pen.dashes.size(); ++i) {
      if (i > 0) m_body += ' ';
      number(pen.dashes[i]);
    }
    m_body += '"';
  }
  writePathData(path);
}

void SvgSurface::writeFill(COLORREF color, int fillMode, const VectorPath& path) {
  m_body += "<path fill=\"";
  appendColor(m_body, color);
  m_body += fillMode == WINDING ? "\"" : "\" fill-rule=\"evenodd\"";
  writePathData(path);
}

void SvgSurface::writeClip(const CRect* clip) {
  if (m_inGroup) m_body += "</g>\n";
  m_inGroup = clip != nullptr;
  if (!clip) return;
  const std::string id = "clip" + std::to_string(++m_clipCount);
  m_body += "<clipPath id=\"" + id + "\"><rect x=\"";
  number(clip->left);
  m_body += "\" y=\"";
  number(clip->top);
  m_body += "\" width=\"";
  number(std::max(0.0, static_cast<double>(clip->right) - clip->left));
  m_body += "\" height=\"";
  number(std::max(0.0, static_cast<double>(clip->bottom) - clip->top));
  m_body += "\"/></clipPath>\n<g clip-path=\"url(#" + id + ")\">\n";
}

}  // namespace qdr
