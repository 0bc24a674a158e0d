#include <algorithm>
#include <cctype>

#include "curve_contract.h"
#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"
#include "geometry_support.h"

// The standing suite of all curves: a class joins by rows here.

namespace {

const Unkept kNeverEqual = {Law::kEqual, "arcs are never equal through the base"};
const Unkept kNotNearest = {Law::kClosestToLine, "it goes by the way from the center"};
const Unkept kFixedRadius = {Law::kScalingTransform, "transformBy keeps the radius"};

// A whole circle keeps its angles whatever turns it: the same circle, begun at another point.
const char* const kSameAngles = "a whole circle keeps its angles";

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
