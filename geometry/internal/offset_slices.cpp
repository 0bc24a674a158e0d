#include "geometry/internal/offset_slices.h"

#include <algorithm>

#include "geometry/internal/offset_curve.h"
#include "geometry/internal/offset_cuts.h"
#include "geometry/internal/offset_dead_ends.h"
#include "geometry/internal/offset_recut.h"
#include "geometry/internal/offset_repeats.h"
#include "geometry/internal/part_judge.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// Collects slices on the way along the raw offset and parts those that have fallen.
class SliceCollector {
 public:
  enum class Fallen { forgotten, recorded };

  SliceCollector(const OffsetCurve& curve, Fallen fallen)
      : m_curve(curve), m_use(fallen), m_from(curve.start()) {}

  bool hasFallen() const { return m_hasFallen; }
  void fall() { m_hasFallen = true; }
  void cutAt(const RawPlace& place);

  const std::vector<Slice>& kept() const { return m_kept; }
  const std::vector<Slice>& fallen() const { return m_fallen; }
  bool hasLost() const { return m_hasLost; }
  double keptLength() const;

 private:
  bool isEmptyUpTo(const RawPlace& place) const;

  void endSlice(const Slice& slice);

  const OffsetCurve& m_curve;
  Fallen m_use;
  RawPlace m_from;
  bool m_hasFallen = false;
  bool m_hasLost = false;
  std::vector<Slice> m_kept;
  std::vector<Slice> m_fallen;
};

/// Crossings that rounding has parted leave an empty slice, a collapsed raw offset is one.
bool SliceCollector::isEmptyUpTo(const RawPlace& place) const {
  const auto isAtFrom = [&](const Vec& p) { return areWithin(p, m_from.point, kPointTolerance); };
  bool isEmpty = isAtFrom(place.point);
  for (std::size_t i = m_from.segment; isEmpty && i < place.segment; ++i)
    isEmpty = isAtFrom(m_curve.segments[i].end);
  return isEmpty;
}

void SliceCollector::endSlice(const Slice& slice) {
  if (!m_hasFallen) {
    m_kept.push_back(slice);
    return;
  }
  m_hasLost = true;
  if (m_use == Fallen::recorded) m_fallen.push_back(slice);
}

/// Ends the slice here and begins the next. An empty one is nobody's.
void SliceCollector::cutAt(const RawPlace& place) {
  if (!isEmptyUpTo(place)) endSlice({m_from, place});
  m_from = place;
  m_hasFallen = false;
}

double SliceCollector::keptLength() const {
  double sum = 0.0;
  for (const Slice& slice : m_kept)
    sum += m_curve.lengthOf(slice);
  return sum;
}

void sortByTravel(std::vector<Slice>& slices) {
  std::sort(slices.begin(), slices.end(),
            [](const Slice& a, const Slice& b) { return isEarlier(a.from, b.from); });
}

/// Without gaps nothing is looked for in what has fallen.
SliceCollector::Fallen useOfFallen(const OffsetClip& clip) {
  const bool hasNoGaps = clip.gaps && clip.gaps->empty();
  return hasNoGaps ? SliceCollector::Fallen::forgotten : SliceCollector::Fallen::recorded;
}

}  // namespace

/// The raw offset with its cuts, and the slices between them.
class OffsetClipper {
 public:
  explicit OffsetClipper(const OffsetClip& clip);

  std::size_t size() const { return m_kept.size(); }
  std::vector<VertexChain> parts() const { return chainsOf(m_kept); }
  ClippedOffset::Closing closing(const std::vector<bool>& staysOpen) const;

 private:
  void walk();
  void walkSegment(std::size_t i, std::span<const Cut> cuts);
  void judge(const CurvePart& part);
  bool hasGaps() const { return !m_clip.gaps || !m_clip.gaps->empty(); }
  const SliceCollector& better() const;
  std::vector<Slice> onceOnly(std::vector<Slice> slices) const;
  std::vector<Slice> withKeptOfFallen(const SliceCollector& slices);
  std::vector<Slice> finest() const;
  std::vector<VertexChain> chainsOf(const std::vector<Slice>& slices) const;

  OffsetClip m_clip;
  OffsetCurve m_curve;
  PartJudge m_judge;
  CurveCuts m_cuts;
  SliceCollector m_strong;  // cut at strong places only
  SliceCollector m_all;     // cut at weak ones too
  std::vector<Slice> m_kept;
};

OffsetClipper::OffsetClipper(const OffsetClip& clip)
    : m_clip(clip),
      m_curve(clip.raw, clip.widening),
      m_judge(clip, m_curve),
      m_cuts(cutsOf(clip, m_curve, m_judge)),
      m_strong(m_curve, useOfFallen(clip)),
      m_all(m_curve, useOfFallen(clip)) {
  if (m_cuts.areTooMany) return;
  walk();
  m_kept = withKeptOfFallen(better());
}

/// Takes one segment of the raw offset through both collectors. A part between two cuts is judged
/// once, and only while one of the slices that it belongs to still stands.
void OffsetClipper::walkSegment(std::size_t i, std::span<const Cut> cuts) {
  CurvePart part{i, 0.0, 0.0, m_curve.segments[i].start, {}};
  for (const Cut& cut : cuts) {
    part.to = cut.place.param;
    part.end = cut.place.point;
    judge(part);
    part.from = part.to;
    part.start = part.end;
    m_all.cutAt(cut.place);
    if (!cut.isWeak) m_strong.cutAt(cut.place);
  }
  part.to = 1.0;
  part.end = m_curve.segments[i].end;
  judge(part);
}

void OffsetClipper::judge(const CurvePart& part) {
  const bool isDecided = m_strong.hasFallen() && m_all.hasFallen();
  if (isDecided || !(part.to > part.from) || m_judge.isClear(part)) return;
  m_strong.fall();
  m_all.fall();
}

void OffsetClipper::walk() {
  std::size_t next = 0;
  const std::vector<Cut>& cuts = m_cuts.cuts;
  for (std::size_t i = 0; i < m_curve.size(); ++i) {
    const std::size_t first = next;
    while (next < cuts.size() && cuts[next].place.segment == i)
      ++next;
    walkSegment(i, std::span(cuts).subspan(first, next - first));
  }
  m_strong.cutAt(m_curve.end());
  m_all.cutAt(m_curve.end());
}

/// Weak cuts count when something has fallen that they save.
const SliceCollector& OffsetClipper::better() const {
  const bool hasWeak = std::any_of(m_cuts.cuts.begin(), m_cuts.cuts.end(),
                                   [](const Cut& cut) { return cut.isWeak; });
  const bool weakCutsHelp =
      hasWeak && m_strong.hasLost() && m_all.keptLength() > m_strong.keptLength();
  return weakCutsHelp ? m_all : m_strong;
}

std::vector<Slice> OffsetClipper::onceOnly(std::vector<Slice> slices) const {
  if (m_cuts.liesAlong.empty()) return slices;
  return withoutRepeats(m_curve, m_cuts.liesAlong, slices);
}

/// The kept slices in the order of travel.
std::vector<Slice> OffsetClipper::withKeptOfFallen(const SliceCollector& slices) {
  std::vector<Slice> kept = onceOnly(slices.kept());
  const std::vector<Slice> saved =
      keptOfFallen(m_curve, m_judge, m_clip.gaps, slices.fallen(), kept);
  if (saved.empty()) return kept;
  kept.insert(kept.end(), saved.begin(), saved.end());
  sortByTravel(kept);
  return onceOnly(std::move(kept));
}

std::vector<VertexChain> OffsetClipper::chainsOf(const std::vector<Slice>& slices) const {
  std::vector<VertexChain> chains;
  chains.reserve(slices.size());
  for (const Slice& slice : slices)
    chains.push_back(m_curve.chainOf(slice));
  return chains;
}

namespace {

/// Which of the slices run over a marked one of the others. Both come in the order of travel, and
/// none runs over another of its own list.
std::vector<bool> overlapping(const std::vector<Slice>& slices, const std::vector<Slice>& others,
                              const std::vector<bool>& isMarked) {
  std::vector<bool> overlaps(slices.size(), false);
  std::size_t first = 0;
  for (std::size_t s = 0; s < slices.size(); ++s) {
    while (first < others.size() && !isEarlier(slices[s].from, others[first].to))
      ++first;
    for (std::size_t k = first; k < others.size() && isEarlier(others[k].from, slices[s].to); ++k)
      overlaps[s] = overlaps[s] || isMarked[k];
  }
  return overlaps;
}

std::vector<Slice> marked(const std::vector<Slice>& slices, const std::vector<bool>& isMarked) {
  std::vector<Slice> some;
  for (std::size_t s = 0; s < slices.size(); ++s) {
    if (isMarked[s]) some.push_back(slices[s]);
  }
  return some;
}

}  // namespace

/// The slices between all cuts, and what else is kept.
std::vector<Slice> OffsetClipper::finest() const {
  std::vector<Slice> slices = m_all.kept();
  if (!hasGaps()) return slices;
  std::vector<bool> isElse = overlapping(m_kept, slices, std::vector<bool>(slices.size(), true));
  isElse.flip();
  const std::vector<Slice> saved = marked(m_kept, isElse);
  slices.insert(slices.end(), saved.begin(), saved.end());
  sortByTravel(slices);
  return slices;
}

ClippedOffset::Closing OffsetClipper::closing(const std::vector<bool>& staysOpen) const {
  if (!m_curve.isLoop || !isSimple(m_judge.clearance()))
    return {std::vector<bool>(m_kept.size(), false), {}};
  const std::vector<Slice> all = finest();
  const std::vector<bool> isConcerned = connectedWith(all, overlapping(all, m_kept, staysOpen));
  std::vector<Slice> slices = marked(all, isConcerned);
  if (!m_cuts.liesAlong.empty()) slices = withoutParallels(m_curve, m_cuts.liesAlong, slices);
  slices =
      withoutDeadEnds(m_curve, m_cuts.liesAlong, m_judge.clearance(), m_clip.direction, slices);
  return {overlapping(m_kept, all, isConcerned), chainsOf(slices)};
}

ClippedOffset::ClippedOffset(const OffsetClip& clip) {
  if (clip.raw.size() < 2) return;
  if (clip.distance == 0.0) {
    m_unclipped.push_back(clip.raw);
  } else {
    m_clipper = std::make_unique<OffsetClipper>(clip);
  }
}

ClippedOffset::ClippedOffset(ClippedOffset&&) noexcept = default;

ClippedOffset::~ClippedOffset() = default;

std::size_t ClippedOffset::size() const {
  return m_clipper ? m_clipper->size() : m_unclipped.size();
}

std::vector<VertexChain> ClippedOffset::parts() const {
  return m_clipper ? m_clipper->parts() : m_unclipped;
}

ClippedOffset::Closing ClippedOffset::closing(const std::vector<bool>& staysOpen) const {
  if (!m_clipper) return {std::vector<bool>(m_unclipped.size(), false), {}};
  return m_clipper->closing(staysOpen);
}

}  // namespace qdr
