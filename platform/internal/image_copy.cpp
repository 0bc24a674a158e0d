#include "platform/internal/image_copy.h"

#include <algorithm>
#include <vector>

namespace qdr {

namespace {

constexpr Pixel kOpaque = 0xff000000u;

using Combine = Pixel (*)(Pixel destination, Pixel source);

struct ImageOperation {
  std::uint32_t rop;
  bool readsSource;
  Combine combine;
};

constexpr ImageOperation kOperations[] = {
    {SRCCOPY, true, [](Pixel, Pixel s) { return s; }},
    {SRCPAINT, true, [](Pixel d, Pixel s) { return d | s; }},
    {SRCAND, true, [](Pixel d, Pixel s) { return d & s; }},
    {SRCINVERT, true, [](Pixel d, Pixel s) { return d ^ s; }},
    {NOTSRCCOPY, true, [](Pixel, Pixel s) { return ~s; }},
    {DSTINVERT, false, [](Pixel d, Pixel) { return ~d; }},
    {BLACKNESS, false, [](Pixel, Pixel) { return Pixel{0}; }},
    {WHITENESS, false, [](Pixel, Pixel) { return ~Pixel{0}; }},
};

const ImageOperation* operationOf(std::uint32_t rop) {
  for (const ImageOperation& operation : kOperations)
    if (operation.rop == rop) return &operation;
  return nullptr;
}

// The source coordinate of target coordinate `at` in [low, high), by the centres of the pixels.
std::int64_t sourceCoordinate(std::int64_t at, LONG low, LONG high, LONG from, LONG fromEnd,
                              bool mirror) {
  const std::int64_t size = std::int64_t{high} - low;
  const std::int64_t sourceSize = std::int64_t{fromEnd} - from;
  std::int64_t step = at - low;
  if (mirror) step = size - 1 - step;
  if (size == sourceSize) return from + step;
  const double part = (static_cast<double>(step) + 0.5) / static_cast<double>(size);
  return from + static_cast<std::int64_t>(part * static_cast<double>(sourceSize));
}

CRect intersection(const CRect& a, const CRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

// Source columns of the target columns of an area; -1 where the source ends.
std::vector<int> sourceColumns(const ImageTransfer& transfer, const CRect& area) {
  std::vector<int> columns;
  columns.reserve(static_cast<std::size_t>(area.right - area.left));
  for (int x = area.left; x < area.right; ++x) {
    const std::int64_t column =
        sourceCoordinate(x, transfer.to.left, transfer.to.right, transfer.from.left,
                         transfer.from.right, transfer.mirrorX);
    const bool exists = column >= 0 && column < transfer.source->width();
    columns.push_back(exists ? static_cast<int>(column) : -1);
  }
  return columns;
}

bool isStraight(const ImageTransfer& transfer) {
  const auto side = [](LONG low, LONG high) { return std::int64_t{high} - low; };
  return !transfer.mirrorX &&
         side(transfer.to.left, transfer.to.right) == side(transfer.from.left, transfer.from.right);
}

void combineRow(Pixel* target, const Pixel* source, const std::vector<int>& columns,
                Combine combine) {
  for (const int column : columns) {
    if (column >= 0) *target = combine(*target, source[column]) | kOpaque;
    ++target;
  }
}

void combineAlone(PixelBuffer& target, const CRect& area, Combine combine) {
  for (int y = area.top; y < area.bottom; ++y) {
    Pixel* row = target.row(y);
    for (int x = area.left; x < area.right; ++x)
      row[x] = combine(row[x], 0) | kOpaque;
  }
}

void combineWithSource(PixelBuffer& target, const PixelBuffer& source, const CRect& area,
                       const ImageTransfer& transfer, Combine combine) {
  const std::vector<int> columns = sourceColumns(transfer, area);
  const bool plain = transfer.rop == SRCCOPY && isStraight(transfer) &&
                     std::find(columns.begin(), columns.end(), -1) == columns.end();
  for (int y = area.top; y < area.bottom; ++y) {
    const std::int64_t row =
        sourceCoordinate(y, transfer.to.top, transfer.to.bottom, transfer.from.top,
                         transfer.from.bottom, transfer.mirrorY);
    if (row < 0 || row >= source.height()) continue;
    const Pixel* sourceRow = source.row(static_cast<int>(row));
    Pixel* targetRow = target.row(y) + area.left;
    if (plain) {
      std::copy_n(sourceRow + columns.front(), columns.size(), targetRow);
    } else {
      combineRow(targetRow, sourceRow, columns, combine);
    }
  }
}

}  // namespace

bool copyImage(PixelBuffer& target, const CRect& clip, const ImageTransfer& transfer) {
  const ImageOperation* operation = operationOf(transfer.rop);
  if (!operation || (operation->readsSource && !transfer.source)) return false;
  const CRect area = intersection(clip, transfer.to);
  if (area.left >= area.right || area.top >= area.bottom) return true;
  if (!operation->readsSource) {
    combineAlone(target, area, operation->combine);
    return true;
  }
  const PixelBuffer& source = *transfer.source;
  if (source.row(0) != target.row(0)) {
    combineWithSource(target, source, area, transfer, operation->combine);
    return true;
  }
  // Reading rows that were just written would repeat them: an image onto itself goes by a copy.
  const std::shared_ptr<PixelBuffer> copy = PixelBuffer::create(source.width(), source.height());
  if (!copy) return false;
  for (int y = 0; y < source.height(); ++y)
    std::copy_n(source.row(y), source.width(), copy->row(y));
  combineWithSource(target, *copy, area, transfer, operation->combine);
  return true;
}

}  // namespace qdr
