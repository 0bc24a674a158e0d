#include "geometry/internal/offset_chains.h"

#include <algorithm>

#include "geometry/internal/chain_join.h"
#include "geometry/internal/offset_slices.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

bool isRing(const VertexChain& chain) {
  return chain.size() > 2 && areWithin(chain.points.front(), chain.points.back(), kPointTolerance);
}

/// Whether a chain is open and shorter than what an offset keeps.
bool isSpeck(const VertexChain& chain) {
  const double gapSqrd = distanceSqrd(chain.points.front(), chain.points.back());
  if (isRing(chain) || gapSqrd >= kMergeTolerance * kMergeTolerance) return false;
  double length = 0.0;
  for (std::size_t i = 0; i + 1 < chain.size() && length < kMergeTolerance; ++i)
    length += segmentAt(chain.points, chain.bulges, i).length();
  return length < kMergeTolerance;
}

bool staysOpen(const VertexChain& chain) {
  return !isRing(chain) && !isSpeck(chain);
}

/// The clipped offsets of one side or both.
class OffsetSides {
 public:
  OffsetSides(const VertexChain& source, const OffsetRequest& request, bool both);

  std::vector<VertexChain> parts() const;
  std::vector<VertexChain> chains() const;

 private:
  void makeRaw(const VertexChain& source, const OffsetRequest& request,
               const OffsetRequest& opposite);
  std::vector<bool> closeUp(const std::vector<bool>& isPartOfOpen,
                            std::vector<VertexChain>& closing) const;
  std::vector<VertexChain> closedUp(std::vector<VertexChain> joined,
                                    const std::vector<std::size_t>& joinedTo) const;

  VertexChain m_raw;
  VertexChain m_other;
  BorderGaps m_gaps;
  std::vector<ClippedOffset> m_sides;
};

OffsetSides::OffsetSides(const VertexChain& source, const OffsetRequest& request, bool both) {
  const OffsetRequest opposite{request.distance, -request.direction, request.closed};
  makeRaw(source, request, opposite);
  const auto clip = [&](const VertexChain& wanted, const VertexChain& other, int direction) {
    m_sides.emplace_back(OffsetClip{.sourcePoints = source.points,
                                    .sourceBulges = source.bulges,
                                    .sourceClosed = request.closed,
                                    .raw = wanted,
                                    .other = other,
                                    .distance = request.distance,
                                    .gaps = &m_gaps,
                                    .direction = direction});
  };
  m_sides.reserve(2);
  clip(m_raw, m_other, request.direction);
  if (both) clip(m_other, m_raw, opposite.direction);
}

void OffsetSides::makeRaw(const VertexChain& source, const OffsetRequest& request,
                          const OffsetRequest& opposite) {
  const VertexChain merged = withoutNearVertices(source, &m_gaps);
  const std::size_t gaps = m_gaps.size();
  const VertexChain prepared = preparedForOffset(merged, request, &m_gaps);
  // Only arcs that one of the sides swallows, which are gaps, are prepared otherwise for the other.
  const bool isAlike = m_gaps.size() == gaps;
  const VertexChain preparedOther = isAlike ? VertexChain() : preparedForOffset(merged, opposite);
  m_raw = rawOffset(prepared, request, &m_gaps);
  m_other = rawOffset(isAlike ? prepared : preparedOther, opposite, &m_gaps);
}

std::vector<VertexChain> OffsetSides::parts() const {
  std::vector<VertexChain> all = m_sides.front().parts();
  if (m_sides.size() > 1) {
    for (VertexChain& part : m_sides.back().parts())
      all.push_back(std::move(part));
  }
  return all;
}

/// Appends what closes better than the parts that it answers.
std::vector<bool> OffsetSides::closeUp(const std::vector<bool>& isPartOfOpen,
                                       std::vector<VertexChain>& closing) const {
  std::vector<bool> isReplaced;
  for (const ClippedOffset& side : m_sides) {
    const auto first = isPartOfOpen.begin() + static_cast<std::ptrdiff_t>(isReplaced.size());
    const auto last = first + static_cast<std::ptrdiff_t>(side.size());
    ClippedOffset::Closing found = side.closing({first, last});
    isReplaced.insert(isReplaced.end(), found.isReplaced.begin(), found.isReplaced.end());
    for (VertexChain& part : found.parts)
      closing.push_back(std::move(part));
  }
  return isReplaced;
}

/// The chains, and instead of those of which parts are replaced what closes better.
std::vector<VertexChain> OffsetSides::closedUp(std::vector<VertexChain> joined,
                                               const std::vector<std::size_t>& joinedTo) const {
  std::vector<bool> isOpen(joined.size());
  std::transform(joined.begin(), joined.end(), isOpen.begin(), staysOpen);
  std::vector<bool> isPartOfOpen(joinedTo.size());
  for (std::size_t i = 0; i < joinedTo.size(); ++i)
    isPartOfOpen[i] = isOpen[joinedTo[i]];

  std::vector<VertexChain> anew;
  const std::vector<bool> isReplaced = closeUp(isPartOfOpen, anew);
  std::vector<bool> isDissolved(joined.size(), false);
  for (std::size_t i = 0; i < joinedTo.size(); ++i)
    isDissolved[joinedTo[i]] = isDissolved[joinedTo[i]] || isReplaced[i];
  // Chains of both sides may hold parts that are not replaced.
  std::vector<VertexChain> all = m_sides.size() > 1 ? parts() : std::vector<VertexChain>();
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (isDissolved[joinedTo[i]] && !isReplaced[i]) anew.push_back(std::move(all[i]));
  }

  std::vector<VertexChain> chains;
  for (std::size_t c = 0; c < joined.size(); ++c) {
    if (!isDissolved[c]) chains.push_back(std::move(joined[c]));
  }
  for (VertexChain& chain : joinedChains(std::move(anew)))
    chains.push_back(std::move(chain));
  return chains;
}

std::vector<VertexChain> OffsetSides::chains() const {
  std::vector<std::size_t> joinedTo;
  std::vector<VertexChain> chains = joinedChains(parts(), &joinedTo);
  if (std::any_of(chains.begin(), chains.end(), staysOpen))
    chains = closedUp(std::move(chains), joinedTo);
  std::erase_if(chains, isSpeck);
  return chains;
}

}  // namespace

std::vector<VertexChain> offsetParts(const VertexChain& source, const OffsetRequest& request,
                                     bool both) {
  return OffsetSides(source, request, both).parts();
}

std::vector<VertexChain> offsetChains(const VertexChain& source, const OffsetRequest& request,
                                      bool both) {
  return OffsetSides(source, request, both).chains();
}

}  // namespace qdr
