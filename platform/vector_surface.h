#pragma once

#include <cstddef>
#include <vector>

#include "platform/device_surface.h"
#include "platform/export.h"

namespace qdr {

struct ArcPiece;

/// A sheet of paper and its device units.
struct VectorPage {
  double widthMillimetres = 297;
  double heightMillimetres = 210;
  double unitsPerMillimetre = 100;
  double hairlineMillimetres = 0.1;  ///< thin pens are drawn this wide
  bool printing = false;             ///< what the device context is to answer
};

/// One step of a path, in device units; a curve is three steps of kind curve (cubic Bezier).
struct PathStep {
  enum class Kind { move, line, curve, close };
  Kind kind = Kind::move;
  double x = 0;
  double y = 0;
};
using VectorPath = std::vector<PathStep>;

/// A pen in device units; dashes are on and off in turn, empty for a solid line.
struct VectorPen {
  COLORREF color = 0;
  double width = 1;
  int style = 0;  ///< cap and join bits of the pen style
  std::vector<double> dashes;

  bool operator==(const VectorPen&) const = default;
};

/// What surfaces on paper share. Strokes of one pen that follow one another become one path, so a
/// drawing of many lines makes few paths. Paper keeps no pixels: raster operations draw plainly
/// (R2_NOP draws nothing), images are refused, and a hatched brush becomes its lines. Dash lengths
/// take the mean scale of both axes.
class QDR_API VectorSurface : public IDeviceSurface {
 public:
  explicit VectorSurface(const VectorPage& page);

  const VectorPage& page() const { return m_page; }

  CSize size() const override;
  int deviceCaps(int index) const override;
  bool isPrinting() const override { return m_page.printing; }
  void drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) override;
  void drawPolyline(const DeviceState& state, const CPoint* points, std::size_t count) override;
  void drawPolygons(const DeviceState& state, const DeviceContours& contours) override;
  void drawRectangle(const DeviceState& state, const CRect& rect) override;
  void drawEllipse(const DeviceState& state, const CRect& rect) override;
  void drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) override;
  void fillRect(const DeviceState& state, const CRect& rect, COLORREF color) override;
  void setPixel(const DeviceState& state, CPoint point, COLORREF color) override;

 protected:
  /// Hands over what is batched; a derived class calls it before it ends its document.
  void flush();

  /// Takes the clip as ended, on a fresh page.
  void forgetClip() { m_clipped = false; }

  virtual void writeStroke(const VectorPen& pen, const VectorPath& path) = 0;
  virtual void writeFill(COLORREF color, int fillMode, const VectorPath& path) = 0;

  /// All that follows is clipped to the rectangle; null ends clipping.
  virtual void writeClip(const CRect* clip) = 0;

 private:
  bool beginStroke(const DeviceState& state);
  void applyClip(const DeviceState& state);
  double dashScale(const DeviceStroke& stroke) const;
  VectorPen penOf(const DeviceStroke& stroke) const;
  void strokeLine(double x1, double y1, double x2, double y2, double phase = 0);
  void strokePoints(const CPoint* points, std::size_t count, bool closed);
  void strokeArc(const DeviceArc& arc);
  void strokePieces(const std::vector<ArcPiece>& pieces);
  void fill(const DeviceState& state, VectorPath path);
  void fillHatch(const DeviceState& state, const VectorPath& path);

  VectorPage m_page;
  CRect m_far;  // what lies beyond it is cut off, so no coordinate passes what readers take
  CRect m_clip;
  bool m_clipped = false;
  VectorPen m_pen;
  VectorPath m_strokes;
};

}  // namespace qdr
