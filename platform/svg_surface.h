#pragma once

#include <string>

#include "platform/vector_surface.h"

namespace qdr {

/// A page as an SVG document. User units are device units, the size is in millimetres, so a
/// viewer shows the page in its true size.
class QDR_API SvgSurface : public VectorSurface {
 public:
  explicit SvgSurface(const VectorPage& page);

  /// The whole document as it stands; drawing may go on afterwards.
  std::string document();

 protected:
  void writeStroke(const VectorPen& pen, const VectorPath& path) override;
  void writeFill(COLORREF color, int fillMode, const VectorPath& path) override;
  void writeClip(const CRect* clip) override;

 private:
  void writePathData(const VectorPath& path);
  void number(double value);

  std::string m_body;
  bool m_inGroup = false;
  int m_clipCount = 0;
};

}  // namespace qdr
