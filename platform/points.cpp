#include "platform/points.h"

#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<LONG>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<LONG>::max();

LONG wrapped(std::int64_t value) {
  return static_cast<LONG>(static_cast<std::uint32_t>(value));
}

LONG saturated(std::int64_t value) {
  return static_cast<LONG>(value < kLeast ? kLeast : (value > kGreatest ? kGreatest : value));
}

}  // namespace

namespace qdr {

std::int32_t truncToInt(double value) {
  if (std::isnan(value)) return 0;
  if (value <= static_cast<double>(kLeast)) return std::numeric_limits<LONG>::min();
  if (value >= static_cast<double>(kGreatest)) return std::numeric_limits<LONG>::max();
  return static_cast<std::int32_t>(value);
}

}  // namespace qdr

CPoint CPoint::operator+(const CPoint& other) const {
  return {wrapped(std::int64_t{x} + other.x), wrapped(std::int64_t{y} + other.y)};
}

CPoint CPoint::operator-(const CPoint& other) const {
  return {wrapped(std::int64_t{x} - other.x), wrapped(std::int64_t{y} - other.y)};
}

void CPoint::Offset(LONG dx, LONG dy) {
  *this = *this + CPoint(dx, dy);
}

bool CRect::operator==(const CRect& other) const {
  return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}

LONG CRect::Width() const {
  return wrapped(std::int64_t{right} - left);
}

LONG CRect::Height() const {
  return wrapped(std::int64_t{bottom} - top);
}

CPoint CRect::CenterPoint() const {
  return {wrapped((std::int64_t{left} + right) / 2), wrapped((std::int64_t{top} + bottom) / 2)};
}

bool CRect::IsRectEmpty() const {
  return Width() <= 0 || Height() <= 0;
}

bool CRect::PtInRect(const POINT& point) const {
  return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
}

void CRect::NormalizeRect() {
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
}

void CRect::SetRect(LONG l, LONG t, LONG r, LONG b) {
  left = l;
  top = t;
  right = r;
  bottom = b;
}

void CRect::InflateRect(LONG dx, LONG dy) {
  left = saturated(std::int64_t{left} - dx);
  top = saturated(std::int64_t{top} - dy);
  right = saturated(std::int64_t{right} + dx);
  bottom = saturated(std::int64_t{bottom} + dy);
}

void CRect::OffsetRect(LONG dx, LONG dy) {
  left = wrapped(std::int64_t{left} + dx);
  right = wrapped(std::int64_t{right} + dx);
  top = wrapped(std::int64_t{top} + dy);
  bottom = wrapped(std::int64_t{bottom} + dy);
}
