#include "tools/shape_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "geometry/circ_arc2d.h"
#include "platform/device_context.h"
#include "platform/gdi_objects.h"
#include "platform/pixel_buffer.h"
#include "platform/software_raster.h"
#include "platform/svg_surface.h"
#include "tools/png_file.h"

namespace qdr_tools {

namespace {

constexpr COLORREF kPaper = 0xffffff;
constexpr COLORREF kGridColor = 0xe6e6e6;
constexpr double kMargin = 0.06;       // of the longer side
constexpr double kLeastSpan = 1e-9;    // longer side to the coordinates, which have few digits more
constexpr double kLeastAspect = 0.25;  // shorter side to longer side
constexpr double kWantedGridLines = 12;  // along the longer side
constexpr double kArcPlay = 0.4;         // device units between an arc and its chords
constexpr int kMaxArcSteps = 1024;
constexpr std::size_t kMaxRun = 1 << 16;  // points drawn in one call

// A paper page of the SVG surface has 0.01 mm a unit. Pixels are drawn finer than they come out,
// and averaged, so that slanted lines look smooth.
constexpr int kPixelsAcross = 900;
constexpr int kFiner = 3;
constexpr double kMillimetresAcross = 120;
constexpr double kUnitsPerMillimetre = 100;

struct Page {
  double longerSide;  // device units
  int pen;            // width of a shape's line
  int grid;           // width of a grid line
};
constexpr Page kPixelPage = {.longerSide = kPixelsAcross * kFiner, .pen = 5, .grid = 2};
constexpr Page kPaperPage = {
    .longerSide = kMillimetresAcross * kUnitsPerMillimetre, .pen = 30, .grid = 10};

struct Extents {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  double width() const { return max.x - min.x; }
  double height() const { return max.y - min.y; }

  void grow(const CQdrGePoint2d& p) {
    min = CQdrGePoint2d(std::min(min.x, p.x), std::min(min.y, p.y));
    max = CQdrGePoint2d(std::max(max.x, p.x), std::max(max.y, p.y));
  }
  void widen(double dx, double dy) {
    min = CQdrGePoint2d(min.x - dx, min.y - dy);
    max = CQdrGePoint2d(max.x + dx, max.y + dy);
  }
};

// What the page shows: all shapes and marks, a margin, and no side that is a sliver.
Extents extentsOf(const ShapePicture& picture) {
  Extents all;
  bool found = false;
  const auto take = [&](const CQdrGePoint2d& p) {
    if (!found) all = {p, p};
    found = true;
    all.grow(p);
  };
  for (const ShapePicture::Stroke& stroke : picture.strokes) {
    CQdrGePoint2d min;
    CQdrGePoint2d max;
    stroke.shape->getMinMaxpoint(min, max);
    take(min);
    take(max);
  }
  for (const ShapePicture::Mark& mark : picture.marks)
    take(mark.place);
  double longer = std::max(all.width(), all.height());
  for (const double far : {all.min.x, all.min.y, all.max.x, all.max.y})
    longer = std::max(longer, std::abs(far) * kLeastSpan);
  if (longer == 0) longer = 1;
  all.widen(std::max(0.0, longer * kLeastAspect - all.width()) / 2 + longer * kMargin,
            std::max(0.0, longer * kLeastAspect - all.height()) / 2 + longer * kMargin);
  return all;
}

// The drawing of one picture on one device context.
class Painter {
 public:
  Painter(const Extents& extents, const Page& page)
      : m_extents(extents),
        m_page(page),
        m_scale(page.longerSide / std::max(extents.width(), extents.height())) {}

  int width() const { return roundUp(m_extents.width()); }
  int height() const { return roundUp(m_extents.height()); }

  void paint(CDC& dc, const ShapePicture& picture) const {
    dc.FillSolidRect(0, 0, width(), height(), kPaper);
    paintGrid(dc);
    for (const ShapePicture::Stroke& stroke : picture.strokes)
      paintStroke(dc, stroke);
    for (const ShapePicture::Mark& mark : picture.marks)
      paintSquare(dc, mark.place, 3 * m_page.pen, mark.color);
  }

 private:
  int roundUp(double length) const { return static_cast<int>(std::ceil(length * m_scale)); }

  CPoint toDevice(const CQdrGePoint2d& p) const {
    return {static_cast<LONG>(std::lround((p.x - m_extents.min.x) * m_scale)),
            static_cast<LONG>(std::lround((m_extents.max.y - p.y) * m_scale))};
  }

  void paintGrid(CDC& dc) const {
    const double step = gridStep(std::max(m_extents.width(), m_extents.height()));
    CPen pen(PS_SOLID, m_page.grid, kGridColor);
    CPen* before = dc.SelectObject(&pen);
    // Counted, not accumulated: far from the origin a step may vanish in a coordinate.
    for (int i = 0; i <= 2 * kWantedGridLines; ++i) {
      const double x = (std::floor(m_extents.min.x / step) + i) * step;
      const double y = (std::floor(m_extents.min.y / step) + i) * step;
      const CPoint place = toDevice({x, y});
      if (x <= m_extents.max.x) drawSegment(dc, {place.x, 0}, {place.x, height()});
      if (y <= m_extents.max.y) drawSegment(dc, {0, place.y}, {width(), place.y});
    }
    dc.SelectObject(before);
  }

  // The step of 1, 2 or 5 times a power of ten that gives about the wanted number of lines.
  static double gridStep(double length) {
    const double wanted = length / kWantedGridLines;
    const double decade = std::pow(10.0, std::floor(std::log10(wanted)));
    for (const double factor : {1.0, 2.0, 5.0}) {
      if (factor * decade >= wanted) return factor * decade;
    }
    return 10 * decade;
  }

  static void drawSegment(CDC& dc, CPoint from, CPoint to) {
    const POINT points[] = {from, to};
    dc.Polyline(points, 2);
  }

  void paintStroke(CDC& dc, const ShapePicture::Stroke& stroke) const {
    const CQdrGePolyline2d& shape = *stroke.shape;
    CPen pen(PS_SOLID, m_page.pen, stroke.color);
    CPen* before = dc.SelectObject(&pen);
    std::vector<CPoint> run;
    if (shape.numVerts() > 0) run.push_back(toDevice(shape.points().front()));
    const int segments = shape.numVerts() - (shape.isClosed() ? 0 : 1);
    for (int i = 0; i < segments; ++i) {
      appendSegment(shape, i, run);
      if (run.size() < kMaxRun) continue;
      dc.Polyline(run.data(), static_cast<int>(run.size()));
      run.erase(run.begin(), run.end() - 1);
    }
    if (run.size() > 1) dc.Polyline(run.data(), static_cast<int>(run.size()));
    dc.SelectObject(before);
    if (!stroke.showsVertices) return;
    for (const CQdrGePoint2d& vertex : shape.points())
      paintSquare(dc, vertex, 2 * m_page.pen, stroke.color);
  }

  // The device points of segment `i` behind its start.
  void appendSegment(const CQdrGePolyline2d& shape, int i, std::vector<CPoint>& run) const {
    CQdrGeCircArc2d arc;
    if (shape.segType(i) == CQdrGePolyline2d::kArcSeg && shape.getArcSegAt(i, arc)) {
      const bool forward = shape.getBulgeAt(i) > 0;
      const int steps = arcSteps(arc);
      for (int k = 1; k < steps; ++k) {
        const double t = static_cast<double>(k) / steps;
        run.push_back(toDevice(arc.pointAtParam(forward ? t : 1 - t)));
      }
    }
    const int next = (i + 1) % shape.numVerts();
    run.push_back(toDevice(shape.points()[static_cast<std::size_t>(next)]));
  }

  int arcSteps(const CQdrGeCircArc2d& arc) const {
    const double radius = arc.radius() * m_scale;
    const double reach = std::max(-1.0, 1 - kArcPlay / radius);
    const double step = std::max(2 * std::acos(reach), 2 * std::numbers::pi / kMaxArcSteps);
    return static_cast<int>(std::clamp(arc.length() * m_scale / radius / step + 1, 2.0,
                                       static_cast<double>(kMaxArcSteps)));
  }

  void paintSquare(CDC& dc, const CQdrGePoint2d& place, int side, COLORREF color) const {
    const CPoint center = toDevice(place);
    dc.FillSolidRect(center.x - side / 2, center.y - side / 2, side, side, color);
  }

  Extents m_extents;
  Page m_page;
  double m_scale;
};

// Each pixel of the result is the mean of a square of kFiner pixels a side.
std::shared_ptr<qdr::PixelBuffer> averaged(const qdr::PixelBuffer& fine) {
  const auto result = qdr::PixelBuffer::create(fine.width() / kFiner, fine.height() / kFiner);
  if (!result) return result;
  for (int y = 0; y < result->height(); ++y) {
    for (int x = 0; x < result->width(); ++x) {
      unsigned sum[3] = {};
      for (int i = 0; i < kFiner * kFiner; ++i) {
        const qdr::Pixel pixel = fine.row(y * kFiner + i / kFiner)[x * kFiner + i % kFiner];
        for (int part = 0; part < 3; ++part)
          sum[part] += (pixel >> (8 * part)) & 0xff;
      }
      qdr::Pixel mean = 0xff000000u;
      for (int part = 0; part < 3; ++part)
        mean |= sum[part] / (kFiner * kFiner) << (8 * part);
      result->row(y)[x] = mean;
    }
  }
  return result;
}

bool renderPng(const ShapePicture& picture, std::string& bytes, std::string& reason) {
  const Painter painter(extentsOf(picture), kPixelPage);
  const auto fine = qdr::PixelBuffer::create(painter.width(), painter.height());
  if (fine) {
    qdr::SoftwareRaster surface(fine);
    CDC dc(&surface);
    painter.paint(dc, picture);
    if (const auto pixels = averaged(*fine)) return encodePng(*pixels, bytes, reason);
  }
  reason = "no memory for the pixels";
  return false;
}

bool renderSvg(const ShapePicture& picture, std::string& bytes, std::string&) {
  const Painter painter(extentsOf(picture), kPaperPage);
  qdr::SvgSurface surface({.widthMillimetres = painter.width() / kUnitsPerMillimetre,
                           .heightMillimetres = painter.height() / kUnitsPerMillimetre,
                           .unitsPerMillimetre = kUnitsPerMillimetre});
  CDC dc(&surface);
  painter.paint(dc, picture);
  bytes = surface.document();
  return true;
}

using Renderer = bool (*)(const ShapePicture&, std::string&, std::string&);

Renderer rendererOf(const std::string& path) {
  if (path.ends_with(".png")) return renderPng;
  if (path.ends_with(".svg")) return renderSvg;
  return nullptr;
}

}  // namespace

bool namesPicture(const std::string& path) {
  return rendererOf(path) != nullptr;
}

bool renderPicture(const ShapePicture& picture, const std::string& path, std::string& bytes,
                   std::string& reason) {
  if (const Renderer render = rendererOf(path)) return render(picture, bytes, reason);
  reason = "a picture is named .png or .svg";
  return false;
}

}  // namespace qdr_tools
