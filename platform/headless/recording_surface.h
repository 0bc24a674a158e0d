#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/device_surface.h"
#include "platform/export.h"

namespace qdr {

/// A surface that writes down what is drawn: one text line for each call with its arguments in
/// device coordinates, then pen, brush and raster operation as far as the call uses them.
///
///     LineTo 0,0 100,50 pen solid 1 0x0000ff rop 13
///     Rectangle 0,0 10,20 pen dashes 5,2 width 3 0x000000 brush hollow rop 7
///
/// Colours are 0xbbggrr; widths are those of the pen, in logical units.
class QDR_API RecordingSurface : public IDeviceSurface {
 public:
  explicit RecordingSurface(CSize size, bool printing = false);

  /// Lines in the order of the calls, without line ends.
  const std::vector<std::string>& lines() const { return m_lines; }

  /// The lines as one text, each ended by a line feed.
  std::string text() const;
  void clear() { m_lines.clear(); }

  /// Makes `deviceCaps` answer a value, as a printer would.
  void setDeviceCaps(int index, int value) { m_caps[index] = value; }

  CSize size() const override { return m_size; }
  int deviceCaps(int index) const override;
  bool isPrinting() const override { return m_printing; }
  void drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) override;
  void drawPolyline(const DeviceState& state, const CPoint* points, std::size_t count) override;
  void drawPolygons(const DeviceState& state, const DeviceContours& contours) override;
  void drawRectangle(const DeviceState& state, const CRect& rect) override;
  void drawEllipse(const DeviceState& state, const CRect& rect) override;
  void drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) override;
  void fillRect(const DeviceState& state, const CRect& rect, COLORREF color) override;
  void setPixel(const DeviceState& state, CPoint point, COLORREF color) override;
  bool drawImage(const DeviceState& state, const ImageTransfer& transfer) override;
  bool drawText(const DeviceState& state, const DeviceText& text) override;

 private:
  CSize m_size;
  bool m_printing;
  std::map<int, int> m_caps;
  std::vector<std::string> m_lines;
};

}  // namespace qdr
