#include "platform/pdf/pdf_surface.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/device_context.h"

namespace {

// What every reader relies on: header, end, and a table of offsets that each point at the object
// they name.
struct PdfFile {
  explicit PdfFile(const std::vector<unsigned char>& data) : bytes(data.begin(), data.end()) {}

  bool isSound() const {
    if (bytes.compare(0, 5, "%PDF-") != 0) return false;
    if (bytes.rfind("%%EOF") + 8 < bytes.size()) return false;
    const std::size_t start = bytes.rfind("startxref");
    if (start == std::string::npos) return false;
    const std::size_t table = std::strtoul(bytes.c_str() + start + 9, nullptr, 10);
    if (bytes.compare(table, 4, "xref") != 0) return false;
    char* at = nullptr;
    std::strtoul(bytes.c_str() + table + 4, &at, 10);
    const unsigned long count = std::strtoul(at, &at, 10);
    std::size_t row = bytes.find_first_not_of("\r\n ", at - bytes.c_str());
    for (unsigned long i = 0; i < count; ++i, row += 20) {
      if (bytes[row + 17] != 'n') continue;
      const std::size_t offset = std::strtoul(bytes.substr(row, 10).c_str(), nullptr, 10);
      const std::string name = std::to_string(i) + " 0 obj";
      if (bytes.compare(offset, name.size(), name) != 0) return false;
    }
    return count > 1;
  }

  std::size_t count(const std::string& text) const {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = bytes.find(text, at)) != std::string::npos; ++at)
      ++found;
    return found;
  }

  std::string bytes;
};

TEST(Pdf, IsSoundWithEveryKindOfShapeAndSeveralPages) {
  qdr::PdfSurface surface({.widthMillimetres = 254, .heightMillimetres = 127});
  surface.setTitle("A drawing");
  CDC dc(&surface);
  const DWORD lengths[] = {500, 200, 0, 200, 10, 20, 30, 40, 50, 60};
  const LOGBRUSH ink{BS_SOLID, 0x0000ff, 0};
  CRgn region;
  region.CreateRectRgn(1000, 1000, 20000, 10000);
  const POINT huge[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN + 1}, {-5, INT32_MAX}};
  for (int page = 0; page < 2; ++page) {
    if (page > 0) surface.newPage();
    CPen dashed(PS_GEOMETRIC | PS_USERSTYLE, 30, &ink, 10, lengths);
    CPen thin(PS_SOLID, 0, 0x00ff00);
    CBrush brush;
    brush.CreateHatchBrush(HS_DIAGCROSS, 0xff0000);
    dc.SelectObject(&brush);
    for (CPen* pen : {&dashed, &thin}) {
      dc.SelectObject(pen);
      dc.MoveTo(100, 100);
      dc.LineTo(5000, 9000);
      dc.Polygon(huge, 3);
      dc.SelectClipRgn(&region);
      dc.Ellipse(2000, 2000, 9000, 7000);
      dc.AngleArc(5000, 5000, 3000, 10, 300);
      dc.SelectClipRgn(nullptr);
      dc.TextOut(3000, 3000, L"Text");
      dc.FillSolidRect(10, 10, 500, 500, 0xffffff);
    }
  }
  const PdfFile file(surface.document());
  EXPECT_TRUE(file.isSound());
  EXPECT_EQ(file.count("/Type /Page\n"), 2u);
  EXPECT_EQ(file.count("/MediaBox [ 0 0 720 360 ]"), 2u);  // 10 by 5 inches
}

TEST(Pdf, ADrawingOfManyLinesKeepsOneStateAndDocumentEndsDrawing) {
  qdr::PdfSurface surface(qdr::VectorPage{});
  CDC dc(&surface);
  for (int i = 0; i < 20000; ++i) {
    dc.MoveTo(i, i % 20000);
    dc.LineTo(i + 20, 10000);
  }
  const PdfFile file(surface.document());
  EXPECT_TRUE(file.isSound());
  EXPECT_LT(file.bytes.size(), 20000u * 40);
  dc.LineTo(5, 5);
  surface.newPage();
  EXPECT_TRUE(surface.document().empty());
}

TEST(Pdf, AbsurdPagesAreHeldWithinWhatReadersTake) {
  for (const double side : {0.0, -5.0, 1e12}) {
    qdr::PdfSurface surface({.widthMillimetres = side, .heightMillimetres = side});
    CDC dc(&surface);
    dc.LineTo(100, 100);
    EXPECT_TRUE(PdfFile(surface.document()).isSound()) << side;
  }
}

}  // namespace
