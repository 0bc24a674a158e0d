#include "database/line_weight.h"

namespace {

struct Margin {
  int weight;
  double margin;
};

constexpr Margin kMargins[] = {
    {30, 5.0}, {35, 5.0},  {40, 4.1},  {50, 3.6},  {53, 3.6},  {60, 3.1},  {70, 2.7},  {80, 2.1},
    {90, 2.1}, {100, 1.7}, {106, 1.7}, {120, 1.1}, {140, 0.5}, {158, 0.5}, {200, 0.5}, {211, 0.5},
};

double marginOf(int weight) {
  for (const Margin& row : kMargins) {
    if (row.weight == weight) return row.margin;
  }
  return 0.0;
}

}  // namespace

CString _getStrWeight(const CString& weight) {
  if (weight.CompareNoCase(L"-3") == 0) return L"Default";
  if (weight.CompareNoCase(L"-2") == 0) return L"ByBlock";
  if (weight.CompareNoCase(L"-1") == 0) return L"ByLayer";
  CString text;
  text.Format(L"%.2f mm", _wtoi(weight) / 100.0);
  return text;
}

CRect _getBoundary(CRect rect, int weight) {
  const double margin = marginOf(weight);
  rect.top = qdr::truncToInt(rect.top + margin);
  rect.bottom = qdr::truncToInt(rect.bottom - margin);
  return rect;
}
