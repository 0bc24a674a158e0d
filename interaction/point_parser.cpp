#include "interaction/point_parser.h"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "platform/wide_string.h"

namespace {

double numberAt(const std::wstring& text, std::size_t first, std::size_t count) {
  return _wtof(text.substr(first, count).c_str());
}

bool standsInside(std::size_t position) {
  return position != std::wstring::npos && position >= 1;
}

}  // namespace

namespace qdr {

double typedRadians(double degrees) {
  return degrees * std::numbers::pi / 180.0;
}

TypedAnswer parseTyped(const std::wstring& text, const CQdrGePoint2d& start) {
  TypedAnswer answer;
  const std::size_t comma = text.find(L',');
  if (standsInside(comma)) {
    answer.code = kInputPoint;
    answer.point.set(numberAt(text, 0, comma), numberAt(text, comma + 1, std::wstring::npos));
    return answer;
  }
  const std::size_t corner = text.find(L'<');
  if (comma == std::wstring::npos && standsInside(corner)) {
    const double distance = numberAt(text, 0, corner);
    if (!(distance > 0.0)) return answer;
    const double angle = typedRadians(numberAt(text, corner + 1, std::wstring::npos));
    answer.code = kInputPoint;
    answer.point.set(start.x + distance * std::cos(angle), start.y + distance * std::sin(angle));
    return answer;
  }
  if (!_isNumericValue(text.c_str())) return answer;
  answer.code = kInputNumber;
  answer.number = _wtof(text.c_str());
  return answer;
}

}  // namespace qdr
