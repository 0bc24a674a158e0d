#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/vector_surface.h"

namespace qdr {

/// Pages as a PDF document. Drawing goes to the last page.
class QDR_API PdfSurface : public VectorSurface {
 public:
  /// The document starts with one page; all pages have the size of `page`. The width and height
  /// are held within 2 and 5000 millimetres, which readers take.
  explicit PdfSurface(const VectorPage& page);
  ~PdfSurface() override;

  /// Goes on with a fresh page.
  void newPage();

  /// The document's title as readers show it.
  void setTitle(const std::string& utf8);

  /// The whole document, and the end of drawing. Empty when it could not be made.
  std::vector<unsigned char> document();

 protected:
  void writeStroke(const VectorPen& pen, const VectorPath& path) override;
  void writeFill(COLORREF color, int fillMode, const VectorPath& path) override;
  void writeClip(const CRect* clip) override;

 private:
  struct Document;

  void writePath(const VectorPath& path);

  std::unique_ptr<Document> m_document;
};

}  // namespace qdr
