#include "platform/internal/polygon_fill.h"

#include <algorithm>
#include <vector>

namespace qdr {

namespace {

// An offset down an edge times its width passes 64 bits.
__extension__ using Int128 = __int128;

// An edge on its way down: `x` is the first pixel not left of it in the present row, kept exact by
// `lack`, the distance from the edge to x in units of 1 / height.
struct Edge {
  std::int64_t firstRow = 0;
  std::int64_t endRow = 0;
  std::int64_t x = 0;
  std::int64_t lack = 0;
  std::int64_t height = 1;
  std::int64_t stepWhole = 0;
  std::int64_t stepRest = 0;
  int winding = 1;

  void down() {
    x += stepWhole;
    lack -= stepRest;
    if (lack < 0) {
      ++x;
      lack += height;
    }
  }
};

Int128 floorDiv(Int128 top, Int128 bottom) {
  const Int128 quotient = top / bottom;
  return top % bottom < 0 ? quotient - 1 : quotient;
}

Edge edgeFrom(CPoint a, CPoint b, int clipTop, int clipBottom) {
  Edge edge;
  edge.winding = a.y < b.y ? 1 : -1;
  if (a.y > b.y) std::swap(a, b);
  const std::int64_t width = std::int64_t{b.x} - a.x;
  edge.height = std::int64_t{b.y} - a.y;
  edge.firstRow = std::max<std::int64_t>(a.y, clipTop);
  edge.endRow = std::min<std::int64_t>(b.y, clipBottom);
  const Int128 along = Int128{edge.firstRow - a.y} * width;
  const Int128 reached = -floorDiv(-along, edge.height);
  edge.x = a.x + static_cast<std::int64_t>(reached);
  edge.lack = static_cast<std::int64_t>(reached * edge.height - along);
  edge.stepWhole = static_cast<std::int64_t>(floorDiv(width, edge.height));
  edge.stepRest = width - edge.stepWhole * edge.height;
  return edge;
}

std::vector<Edge> collectEdges(const DeviceContours& contours, const CRect& clip) {
  std::vector<Edge> edges;
  const CPoint* points = contours.points;
  for (std::size_t c = 0; c < contours.contourCount; ++c) {
    const std::size_t count = contours.counts[c];
    for (std::size_t i = 0; i < count; ++i) {
      const CPoint& a = points[i];
      const CPoint& b = points[i + 1 == count ? 0 : i + 1];
      if (a.y == b.y || std::min(a.y, b.y) >= clip.bottom || std::max(a.y, b.y) <= clip.top)
        continue;
      // An edge beyond the right side ends no visible span.
      if (std::min(a.x, b.x) >= clip.right) continue;
      edges.push_back(edgeFrom(a, b, clip.top, clip.bottom));
    }
    points += count;
  }
  std::sort(edges.begin(), edges.end(),
            [](const Edge& a, const Edge& b) { return a.firstRow < b.firstRow; });
  return edges;
}

void paintRow(const std::vector<Edge>& active, std::int64_t y, int insideMask,
              SpanPainter& painter) {
  int winding = 0;
  std::int64_t start = 0;
  for (const Edge& edge : active) {
    const bool wasInside = winding & insideMask;
    winding += edge.winding;
    const bool isInside = winding & insideMask;
    if (isInside && !wasInside) start = edge.x;
    if (wasInside && !isInside) painter.span(start, edge.x - 1, y);
  }
  if (winding & insideMask) painter.span(start, painter.clip().right - 1, y);
}

bool isLeftOf(const Edge& a, const Edge& b) {
  return a.x < b.x;
}

// Rows change the order little, so an insertion sort would do, were it not for outlines that
// cross themselves a thousand times in one row.
void sortActive(std::vector<Edge>& active) {
  if (!std::is_sorted(active.begin(), active.end(), isLeftOf))
    std::sort(active.begin(), active.end(), isLeftOf);
}

}  // namespace

void fillPolygons(const DeviceContours& contours, int fillMode, SpanPainter& painter) {
  const std::vector<Edge> edges = collectEdges(contours, painter.clip());
  // Inside is an odd winding number, or one that is not zero.
  const int insideMask = fillMode == WINDING ? ~0 : 1;
  std::vector<Edge> active;
  std::size_t next = 0;
  std::int64_t y = 0;
  while (next < edges.size() || !active.empty()) {
    if (active.empty()) y = edges[next].firstRow;
    while (next < edges.size() && edges[next].firstRow == y)
      active.push_back(edges[next++]);
    sortActive(active);
    paintRow(active, y, insideMask, painter);
    ++y;
    std::erase_if(active, [y](const Edge& edge) { return edge.endRow <= y; });
    for (Edge& edge : active)
      edge.down();
  }
}

}  // namespace qdr
