#include "platform/internal/image_copy.h"

#include <algorithm>
#include <vector>

namespace qdr {

namespace {

constexpr Pixel kOpaque = 0xff000000u;

// Combines `count` pixels; the source is null for operations that read none.
using CombineRow = void (*)(Pixel* target, const Pixel* source, std::size_t count);

template <Pixel (*Combine)(Pixel destination, Pixel source)>
void combineBoth(Pixel* target, const Pixel* source, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    target[i] = Combine(target[i], source[i]) | kOpaque;
}

template <Pixel (*Combine)(Pixel destination, Pixel source)>
void combineAlone(Pixel* target, const Pixel*, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    target[i] = Combine(target[i], 0) | kOpaque;
}

struct ImageOperation {
  std::uint32_t rop;
  bool readsSource;
  CombineRow combine;
};

constexpr ImageOperation kOperations[] = {
    {SRCCOPY, true, combineBoth<[](Pixel, Pixel s) { return s; }>},
    {SRCPAINT, true, combineBoth<[](Pixel d, Pixel s) { return d | s; }>},
    {SRCAND, true, combineBoth<[](Pixel d, Pixel s) { return d & s; }>},
    {SRCINVERT, true, combineBoth<[](Pixel d, Pixel s) { return d ^ s; }>},
    {NOTSRCCOPY, true, combineBoth<[](Pixel, Pixel s) { return ~s; }>},
    {DSTINVERT, false, combineAlone<[](Pixel d, Pixel) { return ~d; }>},
    {BLACKNESS, false, combineAlone<[](Pixel, Pixel) { return Pixel{0}; }>},
    {WHITENESS, false, combineAlone<[](Pixel, Pixel) { return ~Pixel{0}; }>},
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

// Target columns that have a source column, and that column for each of them: source coordinates
// rise or fall steadily, so those inside the source are neighbours.
struct SourceColumns {
  int first = 0;
  std::vector<int> columns;
  bool isStraight = true;  // each column is the one after the column before

  SourceColumns(const ImageTransfer& transfer, const CRect& area) {
    for (int x = area.left; x < area.right; ++x) {
      const std::int64_t column =
          sourceCoordinate(x, transfer.to.left, transfer.to.right, transfer.from.left,
                           transfer.from.right, transfer.mirrorX);
      if (column < 0 || column >= transfer.source->width()) continue;
      if (columns.empty()) first = x;
      if (!columns.empty() && column != columns.back() + 1) isStraight = false;
      columns.push_back(static_cast<int>(column));
    }
  }
};

void combineWithSource(PixelBuffer& target, const PixelBuffer& source, const CRect& area,
                       const ImageTransfer& transfer, CombineRow combine) {
  const SourceColumns wanted(transfer, area);
  const std::size_t count = wanted.columns.size();
  if (count == 0) return;
  std::vector<Pixel> gathered(wanted.isStraight ? 0 : count);
  for (int y = area.top; y < area.bottom; ++y) {
    const std::int64_t row =
        sourceCoordinate(y, transfer.to.top, transfer.to.bottom, transfer.from.top,
                         transfer.from.bottom, transfer.mirrorY);
    if (row < 0 || row >= source.height()) continue;
    const Pixel* sourceRow = source.row(static_cast<int>(row));
    const Pixel* pixels = sourceRow + wanted.columns.front();
    if (!wanted.isStraight) {
      for (std::size_t i = 0; i < count; ++i)
        gathered[i] = sourceRow[wanted.columns[i]];
      pixels = gathered.data();
    }
    combine(target.row(y) + wanted.first, pixels, count);
  }
}

}  // namespace

bool copyImage(PixelBuffer& target, const CRect& clip, const ImageTransfer& transfer) {
  const ImageOperation* operation = operationOf(transfer.rop);
  if (!operation || (operation->readsSource && !transfer.source)) return false;
  const CRect area = intersection(clip, transfer.to);
  if (area.left >= area.right || area.top >= area.bottom) return true;
  if (!operation->readsSource) {
    for (int y = area.top; y < area.bottom; ++y)
      operation->combine(target.row(y) + area.left, nullptr,
                         static_cast<std::size_t>(area.right - area.left));
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
