#include "platform/pdf/pdf_surface.h"

#include <hpdf.h>

#include <algorithm>
#include <cmath>

#include "platform/internal/path_clip.h"

namespace qdr {

namespace {

using Kind = PathStep::Kind;

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr double kSmallestPage = 2;
constexpr double kLargestPage = 5000;

// Errors stay in the document and are asked for at its end.
void ignoreError(HPDF_STATUS, HPDF_STATUS, void*) {}

struct Channels {
  float red;
  float green;
  float blue;

  explicit Channels(COLORREF color)
      : red(static_cast<float>(color & 0xff) / 255),
        green(static_cast<float>(color >> 8 & 0xff) / 255),
        blue(static_cast<float>(color >> 16 & 0xff) / 255) {}
};

VectorPage heldPage(VectorPage page) {
  page.widthMillimetres = std::clamp(page.widthMillimetres, kSmallestPage, kLargestPage);
  page.heightMillimetres = std::clamp(page.heightMillimetres, kSmallestPage, kLargestPage);
  return page;
}

HPDF_LineCap capOf(int style) {
  switch (style & PS_ENDCAP_MASK) {
    case PS_ENDCAP_SQUARE:
      return HPDF_PROJECTING_SCUARE_END;
    case PS_ENDCAP_FLAT:
      return HPDF_BUTT_END;
    default:
      return HPDF_ROUND_END;
  }
}

HPDF_LineJoin joinOf(int style) {
  switch (style & PS_JOIN_MASK) {
    case PS_JOIN_BEVEL:
      return HPDF_BEVEL_JOIN;
    case PS_JOIN_MITER:
      return HPDF_MITER_JOIN;
    default:
      return HPDF_ROUND_JOIN;
  }
}

}  // namespace

struct PdfSurface::Document {
  HPDF_Doc pdf = nullptr;
  HPDF_Page page = nullptr;
  double pointsPerUnit = 1;
  double heightPoints = 0;
  bool clipped = false;
  // What the page has set, so that it is not written again.
  bool hasPen = false;
  VectorPen pen;
  bool hasFill = false;
  COLORREF fillColor = 0;

  float x(double units) const { return static_cast<float>(units * pointsPerUnit); }
  float y(double units) const { return static_cast<float>(heightPoints - units * pointsPerUnit); }

  void forgetState() {
    hasPen = false;
    hasFill = false;
  }
};

PdfSurface::PdfSurface(const VectorPage& page)
    : VectorSurface(heldPage(page)), m_document(std::make_unique<Document>()) {
  Document& document = *m_document;
  document.pointsPerUnit = kPointsPerMillimetre / this->page().unitsPerMillimetre;
  document.heightPoints = this->page().heightMillimetres * kPointsPerMillimetre;
  document.pdf = HPDF_New(ignoreError, nullptr);
  if (!document.pdf) return;
  HPDF_SetCompressionMode(document.pdf, HPDF_COMP_ALL);
  newPage();
}

PdfSurface::~PdfSurface() {
  if (m_document->pdf) HPDF_Free(m_document->pdf);
}

void PdfSurface::newPage() {
  Document& document = *m_document;
  if (!document.pdf) return;
  flush();
  if (document.clipped && document.page) HPDF_Page_GRestore(document.page);
  document.clipped = false;
  document.forgetState();
  document.page = HPDF_AddPage(document.pdf);
  HPDF_Page_SetWidth(document.page,
                     static_cast<float>(page().widthMillimetres * kPointsPerMillimetre));
  HPDF_Page_SetHeight(document.page, static_cast<float>(document.heightPoints));
  forgetClip();
}

void PdfSurface::setTitle(const std::string& utf8) {
  if (!m_document->pdf) return;
  HPDF_UseUTFEncodings(m_document->pdf);
  HPDF_SetCurrentEncoder(m_document->pdf, "UTF-8");
  HPDF_SetInfoAttr(m_document->pdf, HPDF_INFO_TITLE, utf8.c_str());
}

std::vector<unsigned char> PdfSurface::document() {
  std::vector<unsigned char> bytes;
  Document& document = *m_document;
  if (!document.pdf || !document.page) return bytes;
  flush();
  if (document.clipped) HPDF_Page_GRestore(document.page);
  document.clipped = false;
  if (HPDF_SaveToStream(document.pdf) == HPDF_OK) {
    bytes.resize(HPDF_GetStreamSize(document.pdf));
    auto size = static_cast<HPDF_UINT32>(bytes.size());
    HPDF_ResetStream(document.pdf);
    const HPDF_STATUS read = HPDF_ReadFromStream(document.pdf, bytes.data(), &size);
    if ((read != HPDF_OK && read != HPDF_STREAM_EOF) || size != bytes.size()) bytes.clear();
  }
  HPDF_Free(document.pdf);
  document.pdf = nullptr;
  document.page = nullptr;
  return bytes;
}

void PdfSurface::writePath(const VectorPath& path) {
  const Document& document = *m_document;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const PathStep& step = path[i];
    switch (step.kind) {
      case Kind::move:
        HPDF_Page_MoveTo(document.page, document.x(step.x), document.y(step.y));
        break;
      case Kind::line:
        HPDF_Page_LineTo(document.page, document.x(step.x), document.y(step.y));
        break;
      case Kind::curve:
        HPDF_Page_CurveTo(document.page, document.x(step.x), document.y(step.y),
                          document.x(path[i + 1].x), document.y(path[i + 1].y),
                          document.x(path[i + 2].x), document.y(path[i + 2].y));
        i += 2;
        break;
      case Kind::close:
        HPDF_Page_ClosePath(document.page);
        break;
    }
  }
}

void PdfSurface::writeStroke(const VectorPen& pen, const VectorPath& path) {
  Document& document = *m_document;
  if (!document.page) return;
  if (!document.hasPen || !(document.pen == pen)) {
    const Channels color(pen.color);
    HPDF_Page_SetRGBStroke(document.page, color.red, color.green, color.blue);
    HPDF_Page_SetLineWidth(document.page, static_cast<float>(pen.width * document.pointsPerUnit));
    HPDF_Page_SetLineCap(document.page, capOf(pen.style));
    HPDF_Page_SetLineJoin(document.page, joinOf(pen.style));
    HPDF_Page_SetMiterLimit(document.page, kMiterLimit);
    document.pen = pen;
    document.hasPen = true;
  }
  // The library takes dash lengths only in whole points, and at most eight of them.
  writePath(pen.dashes.empty() ? path : dashedPath(path, pen.dashes));
  HPDF_Page_Stroke(document.page);
}

void PdfSurface::writeFill(COLORREF color, int fillMode, const VectorPath& path) {
  Document& document = *m_document;
  if (!document.page) return;
  if (!document.hasFill || document.fillColor != color) {
    const Channels channels(color);
    HPDF_Page_SetRGBFill(document.page, channels.red, channels.green, channels.blue);
    document.fillColor = color;
    document.hasFill = true;
  }
  writePath(path);
  if (fillMode == WINDING) {
    HPDF_Page_Fill(document.page);
  } else {
    HPDF_Page_Eofill(document.page);
  }
}

void PdfSurface::writeClip(const CRect* clip) {
  Document& document = *m_document;
  if (!document.page) return;
  if (document.clipped) HPDF_Page_GRestore(document.page);
  document.clipped = clip != nullptr;
  document.forgetState();
  if (!clip) return;
  const double width = std::max(0.0, static_cast<double>(clip->right) - clip->left);
  const double height = std::max(0.0, static_cast<double>(clip->bottom) - clip->top);
  HPDF_Page_GSave(document.page);
  HPDF_Page_Rectangle(document.page, document.x(clip->left), document.y(clip->bottom),
                      static_cast<float>(width * document.pointsPerUnit),
                      static_cast<float>(height * document.pointsPerUnit));
  HPDF_Page_Clip(document.page);
  HPDF_Page_EndPath(document.page);
}

}  // namespace qdr
