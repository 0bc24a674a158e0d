#include <algorithm>
#include <cctype>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/cspline2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/rect2d.h"
#include "geometry/spiral.h"
#include "geometry/spline.h"
#include "tests/geometry/curve_contract.h"
#include "tests/geometry/geometry_support.h"
#include "tests/geometry/polyline_support.h"

// The standing suite of all curves: a class joins by rows here.

namespace {

const Unkept kNeverEqual = {Law::kEqual, "arcs are never equal through the base"};
const Unkept kNotNearest = {Law::kClosestToLine, "it goes by the way from the center"};
const Unkept kArcsNotNearest = {Law::kClosestToLine, "its arcs go by the way from the center"};
const Unkept kFixedRadius = {Law::kScalingTransform, "transformBy keeps the radius"};

// The ellipse measures on arcs, and those go by the way from the center; its transformBy moves the
// axes like points.
const Unkept kMovedAxes = {Law::kRigidTransform, "transformBy moves the axes with the translation"};

// A whole circle keeps its angles whatever turns it: the same circle, begun at another point.
const char* const kSameAngles = "a whole circle keeps its angles";

CQdrGeEllipArc2d ellipse(double start, double end) {
  return {{1, 2}, CQdrGeVector2d(0.3), CQdrGeVector2d(0.3 + qdr::kHalfPi), 6, 4, start, end};
}

CQdrGeCSpline2d cubicSpline(const std::vector<CQdrGePoint2d>& points) {
  CQdrGeCSpline2d spline(points);
  spline.setResolution(0.05);
  return spline;
}

CQdrGeCSpline2d closedCubicSpline(const std::vector<CQdrGePoint2d>& points) {
  CQdrGeCSpline2d spline = cubicSpline(points);
  spline.setClosed(true);
  return spline;
}

std::vector<CurveCase> curveCases() {
  return {
      {"line", owned(lineOf(-4, 1, 7, 9)), {}},
      {"line to the left", owned(lineOf(5, -3, -6, -3)), {}},
      {"vertical line far out", owned(lineOf(2e5, 1e5, 2e5, 1e5 + 8)), {}, 1e-7},
      {"circle",
       owned(CQdrGeCircArc2d({1, 2}, 5)),
       {kNeverEqual,
        kNotNearest,
        kFixedRadius,
        {Law::kTurn, kSameAngles},
        {Law::kMirror, kSameAngles},
        {Law::kRigidTransform, kSameAngles}}},
      {"quarter arc",
       owned(CQdrGeCircArc2d({1, 2}, 5, 0.3, 0.3 + qdr::kHalfPi)),
       {kNeverEqual, kNotNearest, kFixedRadius}},
      {"arc across +x",
       owned(CQdrGeCircArc2d({-2, 1}, 7, 5.5, 1.2)),
       {kNeverEqual, kNotNearest, kFixedRadius}},
      {"ellipse", owned(ellipse(0, qdr::kTwoPi)), {kNotNearest, kFixedRadius, kMovedAxes}, 1e-6},
      {"elliptic arc",
       owned(ellipse(0.4, 2.2)),
       {kNotNearest,
        kFixedRadius,
        kMovedAxes,
        {Law::kMirror, "the stretch to the end keeps the bulge of the arc before it"}},
       1e-6},
      {"spline", owned(CQdrGeSpline({{0, 0}, {6, 0}, {6, 5}, {12, 7}})), {kNotNearest}},
      // A turned or scaled curve is sampled at other places.
      {"cubic spline", owned(cubicSpline({{0, 0}, {6, 1}, {6, 5}, {12, 7}})), {}, 1e-3},
      {"closed cubic spline",
       owned(closedCubicSpline({{0, 0}, {9, -2}, {12, 6}, {3, 8}})),
       {},
       1e-3},
      {"spiral", owned(CQdrGeSpiral(24, {1, 2}, 8, 2, 3, 0.5)), {}},
      {"rectangle", owned(CQdrGeRect2d({1, 2}, 7, 4, 0.3)), {}},
      {"polyline with arcs both ways",
       owned(chainOf({{0, 0}, {6, 0, 0.6}, {8, 5, -0.4}, {2, 9}, {1, 4}})),
       {kArcsNotNearest, {Law::kProportion, "chords cut the corners"}}},
      {"closed polyline",
       owned(chainOf({{-3, 1, 0.3}, {4, 2}, {5, 7, -0.8}}, true)),
       {kArcsNotNearest}},
  };
}

class CurveContract : public ::testing::TestWithParam<CurveCase> {};

TEST_P(CurveContract, KeepsItsLaws) {
  const CurveCase& curveCase = GetParam();
  for (const LawRow& law : curveLaws()) {
    const std::string complaint = law.check(*curveCase.curve, curveCase.tol);
    const auto unkept = std::find_if(curveCase.unkept.begin(), curveCase.unkept.end(),
                                     [&](const Unkept& row) { return row.law == law.law; });
    if (unkept == curveCase.unkept.end())
      EXPECT_EQ(complaint, "") << law.name;
    else
      EXPECT_NE(complaint, "") << law.name << " is kept, though the row says: " << unkept->reason;
  }
}

std::string testName(const ::testing::TestParamInfo<CurveCase>& info) {
  std::string name;
  for (const char c : info.param.name)
    name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, CurveContract, ::testing::ValuesIn(curveCases()), testName);

}  // namespace
