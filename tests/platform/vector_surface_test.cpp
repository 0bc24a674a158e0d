#include "platform/vector_surface.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/device_context.h"
#include "platform/internal/path_clip.h"
#include "platform/svg_surface.h"

namespace {

using Kind = qdr::PathStep::Kind;

// 100 by 50 units of one millimetre.
qdr::VectorPage smallPage() {
  return {.widthMillimetres = 100,
          .heightMillimetres = 50,
          .unitsPerMillimetre = 1,
          .hairlineMillimetres = 0.25};
}

std::string bodyOf(const std::string& document) {
  const std::size_t start = document.find("\"round\">\n");
  const std::size_t end = document.rfind("</svg>");
  if (start == std::string::npos || end == std::string::npos) return "no document";
  return document.substr(start + 9, end - start - 9);
}

// Tags balance, and attribute values are quoted and free of markup.
bool isWellFormed(const std::string& xml) {
  std::vector<std::string> open;
  std::size_t at = xml.find("?>");
  if (xml.compare(0, 5, "<?xml") != 0 || at == std::string::npos) return false;
  at += 2;
  while ((at = xml.find('<', at)) != std::string::npos) {
    const std::size_t end = xml.find('>', at);
    if (end == std::string::npos) return false;
    const std::string tag = xml.substr(at + 1, end - at - 1);
    if (tag.find('<') != std::string::npos) return false;
    if (std::count(tag.begin(), tag.end(), '"') % 2 != 0) return false;
    const std::string name =
        tag.substr(tag[0] == '/', tag.find_first_of(" /", 1) - (tag[0] == '/'));
    if (tag[0] == '/') {
      if (open.empty() || open.back() != tag.substr(1)) return false;
      open.pop_back();
    } else if (tag.back() != '/') {
      open.push_back(name);
    }
    at = end;
  }
  return open.empty();
}

TEST(Svg, StrokesOfOnePenBecomeOnePath) {
  qdr::SvgSurface surface(smallPage());
  CDC dc(&surface);
  CPen red(PS_SOLID, 2, 0x0000ff);
  CPen blue(PS_SOLID, 0, 0xff0000);
  dc.SelectObject(&red);
  dc.LineTo(10, 5);
  dc.LineTo(20, 5);
  dc.MoveTo(1, 1);
  dc.LineTo(2, 2);
  dc.SelectObject(&blue);
  const POINT points[] = {{0, 0}, {3, 0}, {3, 4}};
  dc.Polyline(points, 3);
  EXPECT_EQ(bodyOf(surface.document()),
            "<path stroke=\"#ff0000\" stroke-width=\"2\" "
            "d=\"M0 0L10 5 20 5M1 1L2 2\"/>\n"
            "<path stroke=\"#0000ff\" stroke-width=\"1\" "
            "d=\"M0 0L3 0 3 4\"/>\n");
}

TEST(Svg, DashesShapesFillsAndClips) {
  qdr::SvgSurface surface(smallPage());
  CDC dc(&surface);
  const DWORD lengths[] = {5, 2};
  const LOGBRUSH ink{BS_SOLID, 0, 0};
  CPen dashed(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_MITER, 1, &ink, 2, lengths);
  CBrush green(0x00ff00);
  dc.SelectObject(&dashed);
  dc.SelectObject(&green);
  CRgn region;
  region.CreateRectRgn(10, 10, 60, 40);
  dc.SelectClipRgn(&region);
  dc.Rectangle(1, 2, 9, 8);
  dc.SelectClipRgn(nullptr);
  dc.FillSolidRect(0, 0, 4, 4, 0xffffff);
  const std::string document = surface.document();
  EXPECT_EQ(
      bodyOf(document),
      "<clipPath id=\"clip1\"><rect x=\"10\" y=\"10\" width=\"50\" height=\"30\"/></clipPath>\n"
      "<g clip-path=\"url(#clip1)\">\n"
      "<path fill=\"#00ff00\" fill-rule=\"evenodd\" d=\"M1 2L9 2 9 8 1 8Z\"/>\n"
      "<path stroke=\"#000000\" stroke-width=\"1\" stroke-linecap=\"butt\" "
      "stroke-linejoin=\"miter\" stroke-dasharray=\"5 2\" d=\"M1 2L9 2 9 8 1 8Z\"/>\n"
      "</g>\n"
      "<path fill=\"#ffffff\" fill-rule=\"evenodd\" d=\"M0 0L4 0 4 4 0 4Z\"/>\n");
  EXPECT_TRUE(isWellFormed(document));
  EXPECT_NE(document.find("width=\"100mm\" height=\"50mm\" viewBox=\"0 0 100 50\""),
            std::string::npos);
}

// The corner of 20 degrees is a mitre on the raster, 5.8 pen widths long; the limit of SVG is 4.
TEST(Svg, MitresReachAsFarAsOnTheRaster) {
  EXPECT_NE(qdr::SvgSurface(smallPage()).document().find(" stroke-miterlimit=\"10\""),
            std::string::npos);
}

/// A page with a pen of strokes of 5 and gaps of 2.
struct DashedPage {
  DashedPage() { dc.SelectObject(&dashed); }

  static constexpr DWORD kLengths[] = {5, 2};
  static constexpr LOGBRUSH kInk{BS_SOLID, 0, 0};
  qdr::SvgSurface surface{smallPage()};
  CPen dashed{PS_GEOMETRIC | PS_USERSTYLE, 1, &kInk, 2, kLengths};
  CDC dc{&surface};
};

TEST(Svg, DashesRunOnOverLines) {
  DashedPage page;
  page.dc.MoveTo(1, 1);
  page.dc.LineTo(10, 1);
  page.dc.LineTo(10, 6);
  page.dc.LineTo(20, 6);  // two whole periods have been walked: this is like a beginning
  page.dc.MoveTo(20, 6);
  page.dc.LineTo(25, 6);
  EXPECT_NE(page.surface.document().find("d=\"M1 1L10 1 10 6M10 6L20 6M20 6L25 6\""),
            std::string::npos);
}

TEST(Svg, ADashedRunThatLeavesThePageKeepsItsStart) {
  DashedPage page;
  page.dc.MoveTo(1, 1);
  page.dc.LineTo(10, 1);
  page.dc.LineTo(10, INT32_MAX);
  EXPECT_NE(page.surface.document().find("d=\"M1 1L10 1 10 "), std::string::npos);
}

TEST(Svg, StaysWellFormedAndBoundedForEverything) {
  qdr::SvgSurface surface(smallPage());
  CDC dc(&surface);
  const POINT huge[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN + 1}, {-5, INT32_MAX}};
  const DWORD lengths[] = {1, 1};
  const LOGBRUSH ink{BS_SOLID, 0, 0};
  for (const int extent : {1, INT32_MAX}) {
    dc.SetViewportExt(extent, -extent);
    for (const int hatch : {HS_HORIZONTAL, HS_DIAGCROSS}) {
      CBrush brush;
      brush.CreateHatchBrush(hatch, 0xff);
      CPen pen(PS_GEOMETRIC | PS_USERSTYLE, 1, &ink, 2, lengths);
      dc.SelectObject(&brush);
      dc.SelectObject(&pen);
      dc.MoveTo(INT32_MIN, 7);
      dc.LineTo(INT32_MAX, 9);
      dc.Polyline(huge, 3);
      dc.Polygon(huge, 3);
      dc.Rectangle(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
      dc.Ellipse(-50, -60, 70, 80);
      dc.AngleArc(0, INT32_MAX, INT32_MAX, 0, 360);
      dc.AngleArc(20, 20, 10, 10, 300);
      dc.TextOut(5, 5, L"<&\">");
      dc.SetPixel(3, 3, 0xffffff);
    }
  }
  const std::string document = surface.document();
  EXPECT_TRUE(isWellFormed(document));
  EXPECT_LT(document.size(), 4u << 20);
}

// Keeps what is handed to paper.
class PathRecorder : public qdr::VectorSurface {
 public:
  PathRecorder() : VectorSurface(smallPage()) {}
  ~PathRecorder() override = default;

  std::vector<qdr::VectorPath> takeStrokes() {
    flush();
    return std::move(m_strokes);
  }

 protected:
  void writeStroke(const qdr::VectorPen&, const qdr::VectorPath& path) override {
    m_strokes.push_back(path);
  }
  void writeFill(COLORREF, int, const qdr::VectorPath&) override {}
  void writeClip(const CRect*) override {}

 private:
  std::vector<qdr::VectorPath> m_strokes;
};

TEST(VectorSurface, ArcsFollowTheCircle) {
  PathRecorder surface;
  CDC dc(&surface);
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetViewportOrg(50, 25);
  dc.SetViewportExt(1, -1);
  dc.MoveTo(0, 20);
  dc.AngleArc(0, 0, 20, 90, 120);  // upward in logical space, upward on the paper
  const std::vector<qdr::VectorPath> strokes = surface.takeStrokes();
  ASSERT_EQ(strokes.size(), 1u);
  const qdr::VectorPath& path = strokes[0];
  ASSERT_EQ(path.size(), 7u);  // a move and two curves of 60 degrees
  EXPECT_NEAR(path[0].x, 50, 1e-9);
  EXPECT_NEAR(path[0].y, 5, 1e-9);
  EXPECT_NEAR(path[6].x, 50 - 20 * std::sqrt(0.75), 1e-9);  // 210 degrees
  EXPECT_NEAR(path[6].y, 35, 1e-9);
  for (int i = 0; i < 6; i += 3) {
    // The middle of a cubic curve.
    const double x = (path[i].x + 3 * path[i + 1].x + 3 * path[i + 2].x + path[i + 3].x) / 8;
    const double y = (path[i].y + 3 * path[i + 1].y + 3 * path[i + 2].y + path[i + 3].y) / 8;
    EXPECT_NEAR(std::hypot(x - 50, y - 25), 20, 0.001);
  }
}

TEST(VectorSurface, FarLinesAreCutWithTheirDashPhase) {
  PathRecorder surface;
  CDC dc(&surface);
  const DWORD lengths[] = {7, 5};
  const LOGBRUSH ink{BS_SOLID, 0, 0};
  CPen pen(PS_GEOMETRIC | PS_USERSTYLE, 1, &ink, 2, lengths);
  dc.SelectObject(&pen);
  dc.MoveTo(-1000, 10);
  dc.LineTo(1000, 10);
  const std::vector<qdr::VectorPath> strokes = surface.takeStrokes();
  ASSERT_EQ(strokes.size(), 1u);
  ASSERT_EQ(strokes[0].size(), 2u);
  // The paper and its own size around it begin at -100: 900 walked, 75 periods of 12.
  EXPECT_NEAR(strokes[0][0].x, -100, 1e-6);
  EXPECT_NEAR(strokes[0][1].x, 200, 1e-6);
  dc.MoveTo(-1003, 10);
  dc.LineTo(1000, 10);
  // 903 walked, the last full period at 900: three before the box.
  EXPECT_NEAR(surface.takeStrokes().at(0)[0].x, -103, 1e-6);
}

TEST(PathClip, KeepsTheAreaWithinTheBox) {
  // A right triangle of legs 40 about the box 0..10: what is left is the whole box.
  const qdr::VectorPath triangle = {
      {Kind::move, -5, -5}, {Kind::line, 35, -5}, {Kind::line, -5, 35}, {Kind::close}};
  const qdr::VectorPath cut = qdr::clippedToBox(triangle, CRect(0, 0, 10, 10));
  double twiceArea = 0;
  for (std::size_t i = 0; i + 1 < cut.size(); ++i) {
    const qdr::PathStep& a = cut[i];
    const qdr::PathStep& b = cut[i + 2 == cut.size() ? 0 : i + 1];
    EXPECT_TRUE(a.x >= 0 && a.x <= 10 && a.y >= 0 && a.y <= 10);
    twiceArea += a.x * b.y - a.y * b.x;
  }
  EXPECT_NEAR(std::fabs(twiceArea), 200, 1e-9);
  EXPECT_TRUE(qdr::clippedToBox(triangle, CRect(40, 40, 50, 50)).empty());
}

TEST(PathClip, HatchLinesStayInside) {
  const qdr::VectorPath square = {{Kind::move, 0, 0},
                                  {Kind::line, 10, 0},
                                  {Kind::line, 10, 10},
                                  {Kind::line, 0, 10},
                                  {Kind::close}};
  // Lines at 0, 4 and 8 across; the diagonal family at multiples of 4 of (y - x) / sqrt 2, from
  // -7.07 to 7.07: three lines, the middle one the diagonal itself.
  EXPECT_EQ(qdr::hatchLines(square, HS_HORIZONTAL, ALTERNATE, 4).size(), 6u);
  const qdr::VectorPath rising = qdr::hatchLines(square, HS_FDIAGONAL, ALTERNATE, 4);
  ASSERT_EQ(rising.size(), 6u);
  EXPECT_NEAR(std::hypot(rising[3].x - rising[2].x, rising[3].y - rising[2].y), 10 * std::sqrt(2),
              1e-9);
}

TEST(PathClip, DashesAreDrawnOut) {
  const qdr::VectorPath path = {{Kind::move, 0, 0},
                                {Kind::line, 10, 0},
                                {Kind::line, 10, 4},
                                {Kind::move, 0, 9},
                                {Kind::line, 3, 9}};
  const qdr::VectorPath dashes = qdr::dashedPath(path, {6, 2});
  // 0 to 6, 8 to 14 over the corner at 10, and the second line begins anew.
  const double expected[][2] = {{0, 0}, {6, 0}, {8, 0}, {10, 0}, {10, 4}, {0, 9}, {3, 9}};
  ASSERT_EQ(dashes.size(), std::size(expected));
  for (std::size_t i = 0; i < dashes.size(); ++i) {
    EXPECT_NEAR(dashes[i].x, expected[i][0], 1e-9) << i;
    EXPECT_NEAR(dashes[i].y, expected[i][1], 1e-9) << i;
    EXPECT_EQ(dashes[i].kind == Kind::move, i == 0 || i == 2 || i == 5) << i;
  }
}

}  // namespace
