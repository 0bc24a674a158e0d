#include "geometry/internal/chain_join.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "geometry/internal/near_points.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool meet(const Vec& a, const Vec& b) {
  return distanceSqrd(a, b) < kJoinTolerance * kJoinTolerance;
}

bool areOne(const Vec& a, const Vec& b) {
  return areWithin(a, b, kPointTolerance);
}

/// What a chain may be joined to.
enum class Ends : unsigned char {
  open,   // to any that meets it
  near,   // they meet each other: only to one that begins just where it ends
  one,    // to none
  taken,  // by another, or handed out
};

/// A single short line is no ring, near as its ends are.
Ends endsOf(const VertexChain& chain) {
  const Vec& head = chain.points.front();
  const Vec& tail = chain.points.back();
  if (chain.size() <= 2 || !meet(head, tail)) return Ends::open;
  return areOne(head, tail) ? Ends::one : Ends::near;
}

void reverseChain(VertexChain& chain) {
  std::reverse(chain.points.begin(), chain.points.end());
  std::reverse(chain.bulges.begin(), chain.bulges.end() - 1);
  for (double& bulge : chain.bulges)
    bulge = 0.0 - bulge;
}

/// Finds the partners of chains by their ends and takes them out of the list.
class ChainJoiner {
 public:
  explicit ChainJoiner(std::vector<VertexChain> chains);
  std::vector<VertexChain> run(std::vector<std::size_t>* joinedTo);

 private:
  /// The chain that a row takes next, and how closely.
  struct Follower {
    std::size_t chain;
    bool isExact;

    bool fits(const Vec& a, const Vec& b) const { return isExact ? areOne(a, b) : meet(a, b); }
  };

  std::size_t earliestAt(const Vec& end) const;
  std::size_t earliestJustAt(const Vec& end) const;
  Follower followerOf(const Vec& head, const Vec& tail, bool isNearlyClosed) const;
  void grow(std::size_t first);
  VertexChain assembled(std::size_t first);

  std::vector<VertexChain> m_chains;
  std::vector<Ends> m_kinds;
  NearPoints m_ends;  // 2 i is the start of chain i, 2 i + 1 its end
  std::deque<std::size_t> m_row;
};

std::vector<Vec> allEndsOf(const std::vector<VertexChain>& chains) {
  std::vector<Vec> ends;
  ends.reserve(2 * chains.size());
  for (const VertexChain& chain : chains)
    ends.insert(ends.end(), {chain.points.front(), chain.points.back()});
  return ends;
}

ChainJoiner::ChainJoiner(std::vector<VertexChain> chains)
    : m_chains(std::move(chains)), m_ends(allEndsOf(m_chains)) {
  m_kinds.reserve(m_chains.size());
  for (const VertexChain& chain : m_chains)
    m_kinds.push_back(endsOf(chain));
}

std::size_t ChainJoiner::earliestAt(const Vec& end) const {
  std::size_t earliest = kNone;
  m_ends.forEachNear(end, [&](std::size_t k) {
    if (m_kinds[k / 2] == Ends::open) earliest = std::min(earliest, k / 2);
  });
  return earliest;
}

std::size_t ChainJoiner::earliestJustAt(const Vec& end) const {
  std::size_t earliest = kNone;
  m_ends.forEachNear(end, [&](std::size_t k) {
    const std::vector<Vec>& points = m_chains[k / 2].points;
    const bool mayJoin = m_kinds[k / 2] == Ends::open || m_kinds[k / 2] == Ends::near;
    if (mayJoin && areOne(end, k % 2 == 0 ? points.front() : points.back()))
      earliest = std::min(earliest, k / 2);
  });
  return earliest;
}

/// A row whose ends meet, though not in one place, goes on only where that closes it better.
ChainJoiner::Follower ChainJoiner::followerOf(const Vec& head, const Vec& tail,
                                              bool isNearlyClosed) const {
  const std::size_t next = isNearlyClosed ? kNone : std::min(earliestAt(tail), earliestAt(head));
  if (next != kNone) return {next, false};
  return {std::min(earliestJustAt(tail), earliestJustAt(head)), true};
}

/// Fills the row with chain `first` and all that joins it, in order and in the direction of first.
void ChainJoiner::grow(std::size_t first) {
  m_row.assign(1, first);
  Vec head = m_chains[first].points.front();
  Vec tail = m_chains[first].points.back();
  Ends kind = std::exchange(m_kinds[first], Ends::taken);
  while (kind != Ends::one) {
    const Follower next = followerOf(head, tail, kind == Ends::near);
    if (next.chain == kNone) return;
    m_kinds[next.chain] = Ends::taken;
    VertexChain& chain = m_chains[next.chain];
    const Vec start = chain.points.front();
    const Vec end = chain.points.back();
    const bool joinsTail = next.fits(tail, start) || next.fits(tail, end);
    const bool isBackward = joinsTail ? !next.fits(tail, start) : !next.fits(head, end);
    if (isBackward) reverseChain(chain);
    if (joinsTail) {
      m_row.push_back(next.chain);
      tail = chain.points.back();
    } else {
      m_row.push_front(next.chain);
      head = chain.points.front();
    }
    kind = areOne(head, tail) ? Ends::one : (meet(head, tail) ? Ends::near : Ends::open);
  }
}

/// The row as one chain. A shared vertex stays as it was in the chain that took the other.
VertexChain ChainJoiner::assembled(std::size_t first) {
  if (m_row.size() == 1) return std::move(m_chains[first]);
  VertexChain whole;
  bool isBehindFirst = false;
  for (const std::size_t i : m_row) {
    const VertexChain& chain = m_chains[i];
    std::size_t from = 0;
    std::size_t to = chain.size();
    if (isBehindFirst) {
      whole.bulges.back() = chain.bulges.front();
      from = 1;
    } else if (i != first) {
      to -= 1;
    }
    for (std::size_t k = from; k < to; ++k)
      whole.add(chain.points[k], chain.bulges[k]);
    isBehindFirst = isBehindFirst || i == first;
  }
  return whole;
}

std::vector<VertexChain> ChainJoiner::run(std::vector<std::size_t>* joinedTo) {
  std::vector<VertexChain> joined;
  for (std::size_t first = 0; first < m_chains.size(); ++first) {
    if (m_kinds[first] == Ends::taken) continue;
    grow(first);
    if (joinedTo) {
      for (const std::size_t i : m_row)
        (*joinedTo)[i] = joined.size();
    }
    joined.push_back(assembled(first));
  }
  return joined;
}

}  // namespace

std::vector<VertexChain> joinedChains(std::vector<VertexChain> chains,
                                      std::vector<std::size_t>* joinedTo) {
  if (joinedTo) joinedTo->assign(chains.size(), 0);
  if (chains.size() < 2) return chains;
  return ChainJoiner(std::move(chains)).run(joinedTo);
}

}  // namespace qdr
