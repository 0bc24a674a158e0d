#include "geometry/internal/offset_repeats.h"

#include <algorithm>

#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/near_points.h"
#include "geometry/internal/offset_cuts.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// What a slice has of one segment that others run over.
struct SlicePart {
  std::size_t slice;
  std::size_t segment;
  double from;
  double to;
  TravelSegment curve;
};

struct Repeat {
  std::size_t slice;
  Slice stretch;
};

std::vector<SlicePart> partsAlong(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                  const std::vector<Slice>& slices) {
  std::vector<SlicePart> parts;
  for (std::size_t s = 0; s < slices.size(); ++s) {
    curve.forEachPart(slices[s], [&](const CurvePart& part) {
      if (liesAlong[part.segment])
        parts.push_back({s, part.segment, part.from, part.to, curve.segmentOf(part)});
    });
  }
  return parts;
}

class RepeatFinder {
 public:
  enum class Travel { any, alike };

  RepeatFinder(const OffsetCurve& curve, std::vector<SlicePart> parts, Travel travel);

  /// The stretches that run over parts of earlier slices, each as long as it goes.
  std::vector<Repeat> run();

 private:
  void findCovering(std::size_t k);
  void addCovered(const SlicePart& part);
  void addRepeat(const SlicePart& part, double from, double to);

  const OffsetCurve& m_curve;
  std::vector<SlicePart> m_parts;
  Travel m_travel;
  BoxIndex m_index;
  std::vector<std::size_t> m_covering;
  std::vector<double> m_params;
  std::vector<Repeat> m_repeats;
};

RepeatFinder::RepeatFinder(const OffsetCurve& curve, std::vector<SlicePart> parts, Travel travel)
    : m_curve(curve), m_parts(std::move(parts)), m_travel(travel) {
  std::vector<Box> boxes;
  boxes.reserve(m_parts.size());
  for (const SlicePart& part : m_parts)
    boxes.push_back(part.curve.box().inflated(kPointTolerance));
  m_index = BoxIndex(std::move(boxes), BoxIndex::Order::given);
}

void RepeatFinder::findCovering(std::size_t k) {
  const SlicePart& part = m_parts[k];
  m_covering.clear();
  m_index.forEachOverlap(m_index.boxAt(k), [&](std::size_t j) {
    if (j >= k) return false;  // in ascending order
    const TravelSegment& earlier = m_parts[j].curve;
    const bool counts = m_travel == Travel::any || runAlike(part.curve, earlier);
    if (counts && lieAlong(part.curve, earlier)) m_covering.push_back(j);
    return true;
  });
}

void RepeatFinder::addRepeat(const SlicePart& part, double from, double to) {
  const RawPlace start = m_curve.placeAt(part.segment, from);
  const RawPlace end = m_curve.placeAt(part.segment, to);
  const bool goesOn = !m_repeats.empty() && m_repeats.back().slice == part.slice &&
                      !isEarlier(m_repeats.back().stretch.to, start);
  if (goesOn) {
    m_repeats.back().stretch.to = end;
  } else {
    m_repeats.push_back({part.slice, {start, end}});
  }
}

/// Between the ends of those that cover it the part is covered wholly or not at all.
void RepeatFinder::addCovered(const SlicePart& part) {
  const TravelSegment& segment = m_curve.segments[part.segment];
  m_params.assign({part.from, part.to});
  for (const std::size_t j : m_covering) {
    for (const Vec& end : {m_parts[j].curve.start, m_parts[j].curve.end}) {
      const double t = segment.paramOf(end);
      const double share = kPointTolerance / segment.length();
      if (t > part.from + share && t < part.to - share) m_params.push_back(t);
    }
  }
  std::sort(m_params.begin(), m_params.end());
  for (std::size_t k = 0; k + 1 < m_params.size(); ++k) {
    const Vec middle = segment.pointAt((m_params[k] + m_params[k + 1]) / 2.0);
    const bool isCovered = m_params[k] < m_params[k + 1] &&
                           std::any_of(m_covering.begin(), m_covering.end(), [&](std::size_t j) {
                             return holdsPlace(m_parts[j].curve, middle);
                           });
    if (isCovered) addRepeat(part, m_params[k], m_params[k + 1]);
  }
}

std::vector<Repeat> RepeatFinder::run() {
  for (std::size_t k = 0; k < m_parts.size(); ++k) {
    findCovering(k);
    if (!m_covering.empty()) addCovered(m_parts[k]);
  }
  return std::move(m_repeats);
}

/// Takes out of the repeats those whose ends would be left without a follower.
std::vector<Repeat> droppable(const std::vector<Repeat>& repeats,
                              const std::vector<Slice>& slices) {
  std::vector<Vec> ends;
  ends.reserve(2 * (slices.size() + repeats.size()));
  for (const Slice& slice : slices)
    ends.insert(ends.end(), {slice.from.point, slice.to.point});
  for (const Repeat& repeat : repeats)
    ends.insert(ends.end(), {repeat.stretch.from.point, repeat.stretch.to.point});
  const std::vector<std::size_t> nodes = NearPoints(ends).nodes();
  std::vector<char> isOdd(ends.size(), 0);
  for (std::size_t k = 0; k < 2 * slices.size(); ++k)
    isOdd[nodes[k]] ^= 1;

  std::vector<Repeat> dropped;
  for (std::size_t r = 0; r < repeats.size(); ++r) {
    const std::size_t from = nodes[2 * (slices.size() + r)];
    const std::size_t to = nodes[2 * (slices.size() + r) + 1];
    if (from != to && !isOdd[from] && !isOdd[to]) continue;
    isOdd[from] ^= 1;
    isOdd[to] ^= 1;
    dropped.push_back(repeats[r]);
  }
  return dropped;
}

/// The slices without these stretches of them.
std::vector<Slice> without(const std::vector<Repeat>& dropped, const std::vector<Slice>& slices) {
  std::vector<Slice> rest;
  rest.reserve(slices.size() + dropped.size());
  auto next = dropped.begin();
  for (std::size_t s = 0; s < slices.size(); ++s) {
    RawPlace from = slices[s].from;
    for (; next != dropped.end() && next->slice == s; ++next) {
      if (isEarlier(from, next->stretch.from)) rest.push_back({from, next->stretch.from});
      from = next->stretch.to;
    }
    if (isEarlier(from, slices[s].to)) rest.push_back({from, slices[s].to});
  }
  return rest;
}

std::vector<Repeat> repeatsOf(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                              const std::vector<Slice>& slices, RepeatFinder::Travel travel) {
  return RepeatFinder(curve, partsAlong(curve, liesAlong, slices), travel).run();
}

}  // namespace

std::vector<Slice> withoutRepeats(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                  const std::vector<Slice>& slices) {
  const auto repeats = repeatsOf(curve, liesAlong, slices, RepeatFinder::Travel::any);
  return repeats.empty() ? slices : without(droppable(repeats, slices), slices);
}

std::vector<Slice> withoutParallels(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                    const std::vector<Slice>& slices) {
  const auto repeats = repeatsOf(curve, liesAlong, slices, RepeatFinder::Travel::alike);
  return without(repeats, slices);
}

}  // namespace qdr
