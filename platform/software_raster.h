#pragma once

#include <memory>

#include "platform/device_surface.h"
#include "platform/export.h"

namespace qdr {

class CoverageMask;
struct RasterCall;

/// The surface of pixels in memory: thumbnails, tests and the store behind a window. Every shape
/// has the same pixels whatever is clipped away, and its cost is bounded by the clip.
class QDR_API SoftwareRaster : public IDeviceSurface {
 public:
  /// `pixels` is shared and never null.
  explicit SoftwareRaster(std::shared_ptr<PixelBuffer> pixels);
  ~SoftwareRaster() override;

  /// Goes on with other pixels.
  void setPixels(std::shared_ptr<PixelBuffer> pixels);
  const std::shared_ptr<PixelBuffer>& sharedPixels() const { return m_pixels; }

  /// The box of what was painted since the last call; empty when nothing was.
  CRect takeDirty();

  CSize size() const override;
  int deviceCaps(int index) const override;
  void drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) override;
  void drawPolyline(const DeviceState& state, const CPoint* points, std::size_t count) override;
  void drawPolygons(const DeviceState& state, const DeviceContours& contours) override;
  void drawRectangle(const DeviceState& state, const CRect& rect) override;
  void drawEllipse(const DeviceState& state, const CRect& rect) override;
  void drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) override;
  void fillRect(const DeviceState& state, const CRect& rect, COLORREF color) override;
  void setPixel(const DeviceState& state, CPoint point, COLORREF color) override;
  COLORREF getPixel(CPoint point) const override;
  bool drawImage(const DeviceState& state, const ImageTransfer& transfer) override;
  const PixelBuffer* pixels() const override { return m_pixels.get(); }

 private:
  bool isPrepared(const DeviceState& state) const;
  void settle();
  void drawAnyLine(const DeviceState& state, CPoint from, CPoint to);
  const CRect& clipOf(const DeviceState& state);
  void touch(const DeviceState& state, const CPoint* points, std::size_t count);
  void touch(const CRect& clip, const CRect& box);
  RasterCall beginCall(const DeviceState& state, bool mayRepeat);
  void strokeOutline(const RasterCall& call, const DeviceState& state, const CPoint* points,
                     std::size_t count, bool closed, double phase = 0);
  template <class Stroke, class Fill>
  void paintShape(const DeviceState& state, const Stroke& stroke, const Fill& fill);
  void strokeArc(const RasterCall& call, const DeviceState& state, const DeviceArc& arc,
                 double phase);
  void strokeEllipse(const RasterCall& call, const DeviceState& state, const CRect& rect);

  std::shared_ptr<PixelBuffer> m_pixels;
  std::unique_ptr<CoverageMask> m_mask;
  // Clip, raster operation and pen colour of the last call, and what follows from them.
  CRect m_stateClip;
  int m_rop2 = 0;
  COLORREF m_color = 0;
  Pixel m_keep = 0;
  Pixel m_flip = 0;
  CRect m_clip;  // what of the clip lies on the pixels
  CRect m_dirty;
  CRect m_settled;  // the dirty pixels inside the clip: a line there changes no box
};

}  // namespace qdr
