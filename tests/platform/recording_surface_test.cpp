#include "platform/headless/recording_surface.h"

#include <gtest/gtest.h>

#include <clocale>

#include "platform/device_context.h"
#include "platform/wide_string.h"

namespace {

TEST(Recording, WritesCallArgumentsPenBrushAndOperation) {
  qdr::RecordingSurface surface(CSize(200, 100), true);
  surface.setDeviceCaps(HORZSIZE, 297);
  CDC dc(&surface);
  const DWORD lengths[] = {5, 2, 1};
  const LOGBRUSH ink{BS_SOLID, 0x0000ff, 0};
  CPen dashed(PS_GEOMETRIC | PS_USERSTYLE, 3, &ink, 3, lengths);
  CPen dotted(PS_DOT, 1, 0x646464);
  CBrush hatched;
  hatched.CreateHatchBrush(HS_CROSS, 0xff0000);

  dc.SetROP2(R2_XORPEN);
  dc.MoveTo(1, 2);
  dc.LineTo(30, 40);
  dc.SetROP2(R2_COPYPEN);
  CPen* old = dc.SelectObject(&dashed);
  const POINT points[] = {{0, 0}, {5, 0}, {5, 5}};
  dc.Polyline(points, 3);
  dc.SelectObject(old);
  dc.SelectObject(&dotted);
  dc.SelectObject(&hatched);
  dc.Polygon(points, 3);
  dc.SelectStockObject(NULL_PEN);
  dc.SelectStockObject(HOLLOW_BRUSH);
  dc.Rectangle(9, 8, 1, 2);
  dc.Ellipse(1, 2, 9, 8);
  dc.SelectStockObject(BLACK_PEN);
  dc.AngleArc(10, 20, 5, 90, 180);
  dc.FillSolidRect(0, 0, 4, 5, 0xffffff);
  dc.SetPixel(7, 8, 0x00ff00);
  dc.SetTextAlign(TA_BASELINE);
  dc.TextOut(3, 4, L"a \"\u00e9");

  EXPECT_EQ(surface.text(),
            "LineTo 1,2 30,40 pen solid 1 0x000000 rop 7\n"
            "Polyline 0,0 5,0 5,5 pen dashes 5,2,1,5,2,1 width 3 0x0000ff rop 13\n"
            "Polygon 0,0 5,0 5,5 mode 1 pen dot 1 0x646464 brush hatch 4 0xff0000 rop 13\n"
            "Rectangle 1,2 9,8 pen null brush hollow rop 13\n"
            "Ellipse 1,2 9,8 pen null brush hollow rop 13\n"
            "AngleArc 30,40 centre 10,20 radius 5,5 from 90 sweep 180 pen solid 1 0x000000 rop 13\n"
            "FillSolidRect 0,0 4,5 0xffffff\n"
            "SetPixel 7,8 0x00ff00\n"
            "TextOut 3,4 \"a \\\"\\u00e9\" align 24 height 16 angle 0 0x000000 rop 13\n");
  EXPECT_TRUE(dc.IsPrinting());
  EXPECT_EQ(dc.GetDeviceCaps(HORZSIZE), 297);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 200);
}

TEST(Recording, GivesDeviceCoordinates) {
  qdr::RecordingSurface surface(CSize(200, 100));
  CDC dc(&surface);
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetWindowExt(2000, 1000);
  dc.SetViewportOrg(0, 100);
  dc.SetViewportExt(200, -100);
  dc.MoveTo(0, 0);
  dc.LineTo(2000, 1000);
  EXPECT_EQ(surface.lines(),
            (std::vector<std::string>{"LineTo 0,100 200,0 pen solid 1 0x000000 rop 13"}));
}

// Needs a locale with a decimal comma; a machine may have none.
TEST(Recording, NumbersKeepTheirPointInAnyLocale) {
  const char* const names[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"};
  const char* found = nullptr;
  for (const char* name : names)
    if (!found) found = std::setlocale(LC_NUMERIC, name);
  if (!found) GTEST_SKIP() << "no locale with a decimal comma";
  qdr::RecordingSurface surface(CSize(200, 100));
  CDC dc(&surface);
  dc.AngleArc(10, 20, 5, 90, 22.5);
  CString number;
  number.Format(L"%.2f %g", 2.25, _wtof(L"0.5"));
  std::setlocale(LC_NUMERIC, "C");
  ASSERT_EQ(surface.lines().size(), 1u);
  EXPECT_NE(surface.lines().front().find("from 90 sweep 22.5 pen"), std::string::npos)
      << surface.lines().front();
  EXPECT_EQ(number, L"2.25 0.5");
}

}  // namespace
