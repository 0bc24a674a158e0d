#include "tools/polyline_text.h"

#include <charconv>
#include <cmath>

namespace qdr_tools {

namespace {

constexpr std::string_view kClose = "close";
constexpr int kDigits = 12;

bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Walks over a text; the first fault stays, with the place it was met at.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : m_text(text) {}

  void skipBlanks() {
    while (m_at < m_text.size() && (isSpace(m_text[m_at]) || m_text[m_at] == '#')) {
      const bool comment = m_text[m_at] == '#';
      m_at = comment ? std::min(m_text.find('\n', m_at), m_text.size()) : m_at + 1;
    }
  }

  bool atEnd() const { return m_at == m_text.size(); }
  bool atWordEnd() const { return atEnd() || isSpace(m_text[m_at]) || m_text[m_at] == '#'; }
  bool startsWith(std::string_view word) const { return m_text.substr(m_at).starts_with(word); }

  bool take(std::string_view word) {
    if (!startsWith(word)) return false;
    m_at += word.size();
    return true;
  }

  bool expect(std::string_view word) {
    return take(word) || fail("expected '" + std::string(word) + "'");
  }

  bool number(double& value, const char* what) {
    const char* first = m_text.data() + m_at;
    const auto [end, error] = std::from_chars(first, m_text.data() + m_text.size(), value);
    if (error == std::errc::invalid_argument) return fail(std::string("expected ") + what);
    if (error != std::errc() || !(std::abs(value) <= kMaxNumber))
      return fail(std::string(what) + " out of range");
    m_at += static_cast<std::size_t>(end - first);
    return true;
  }

  bool point(CQdrGePoint2d& point) {
    return number(point.x, "the x coordinate") && expect(",") &&
           number(point.y, "the y coordinate");
  }

  bool fail(const std::string& reason) {
    if (m_fault) return false;
    m_fault = TextFault{.reason = reason};
    for (const char c : m_text.substr(0, m_at)) {
      m_fault->column = c == '\n' ? 1 : m_fault->column + 1;
      m_fault->line += c == '\n' ? 1 : 0;
    }
    return false;
  }

  const std::optional<TextFault>& fault() const { return m_fault; }

 private:
  std::string_view m_text;
  std::size_t m_at = 0;
  std::optional<TextFault> m_fault;
};

bool scanVertex(Scanner& scanner, CQdrGePolyline2d& shape) {
  CQdrGePoint2d point;
  double bulge = 0;
  if (!scanner.point(point)) return false;
  if (scanner.take("(") && !(scanner.number(bulge, "the bulge") && scanner.expect(")"))) {
    return false;
  }
  if (!scanner.atWordEnd()) return scanner.fail("expected a space behind the vertex");
  if (shape.numVerts() == kMaxVertices) return scanner.fail("too many vertices");
  return shape.appendVertex(point, bulge);
}

// setClosed gives the closing segment a bulge of its own; the one in the text stands.
void closeAsWritten(CQdrGePolyline2d& shape) {
  const int last = shape.numVerts() - 1;
  const double bulge = shape.getBulgeAt(last);
  shape.setClosed(true);
  shape.setBulgeAt(last, bulge);
}

bool scanShape(Scanner& scanner, CQdrGePolyline2d& shape) {
  bool closes = false;
  for (scanner.skipBlanks(); !scanner.atEnd() && !closes; scanner.skipBlanks()) {
    if (scanner.take(kClose)) {
      closes = true;
    } else if (!scanVertex(scanner, shape)) {
      return false;
    }
  }
  if (!scanner.atEnd()) return scanner.fail("nothing may stand behind 'close'");
  if (shape.numVerts() < 2) return scanner.fail("a shape has at least two vertices");
  if (closes) closeAsWritten(shape);
  return true;
}

}  // namespace

std::optional<TextFault> parsePolyline(std::string_view text, CQdrGePolyline2d& shape) {
  shape = CQdrGePolyline2d();
  Scanner scanner(text);
  scanShape(scanner, shape);
  return scanner.fault();
}

std::optional<TextFault> parsePoint(std::string_view text, CQdrGePoint2d& point) {
  Scanner scanner(text);
  if (scanner.point(point) && !scanner.atEnd()) scanner.fail("expected the end of the point");
  return scanner.fault();
}

std::string numberText(double value) {
  char digits[32];
  const auto [end, error] =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, kDigits);
  const std::string text(digits, error == std::errc() ? end : digits);
  return text == "-0" ? "0" : text;
}

std::string pointText(const CQdrGePoint2d& point) {
  return numberText(point.x) + "," + numberText(point.y);
}

std::string polylineText(const CQdrGePolyline2d& shape) {
  std::string text;
  for (int i = 0; i < shape.numVerts(); ++i) {
    if (i > 0) text += ' ';
    text += pointText(shape.points()[static_cast<std::size_t>(i)]);
    const double bulge = shape.getBulgeAt(i);
    if (bulge != 0) text += "(" + numberText(bulge) + ")";
  }
  if (shape.isClosed()) text += " close";
  return text;
}

}  // namespace qdr_tools
