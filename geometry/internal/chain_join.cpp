#include "geometry/internal/chain_join.h"

#include <algorithm>
#include <deque>

#include "geometry/internal/near_points.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool meet(const Vec& a, const Vec& b) {
  return distanceSqrd(a, b) < kJoinTolerance * kJoinTolerance;
}

/// A single short line is no ring, near as its ends are.
bool isRing(const VertexChain& chain) {
  return chain.size() > 2 && meet(chain.points.front(), chain.points.back());
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
  std::vector<VertexChain> run();

 private:
  std::size_t earliestAt(const Vec& end) const;
  void grow(std::size_t first);
  VertexChain assembled(std::size_t first);

  std::vector<VertexChain> m_chains;
  std::vector<bool> m_isFree;  // neither taken nor a ring
  NearPoints m_ends;           // 2 i is the start of chain i, 2 i + 1 its end
  std::deque<std::size_t> m_row;
};

std::vector<Vec> endsOf(const std::vector<VertexChain>& chains) {
  std::vector<Vec> ends;
  ends.reserve(2 * chains.size());
  for (const VertexChain& chain : chains)
    ends.insert(ends.end(), {chain.points.front(), chain.points.back()});
  return ends;
}

ChainJoiner::ChainJoiner(std::vector<VertexChain> chains)
    : m_chains(std::move(chains)), m_ends(endsOf(m_chains)) {
  m_isFree.reserve(m_chains.size());
  for (const VertexChain& chain : m_chains)
    m_isFree.push_back(!isRing(chain));
}

std::size_t ChainJoiner::earliestAt(const Vec& end) const {
  std::size_t earliest = kNone;
  m_ends.forEachNear(end, [&](std::size_t k) {
    if (m_isFree[k / 2]) earliest = std::min(earliest, k / 2);
  });
  return earliest;
}

/// Fills the row with chain `first` and all that joins it, in order and in the direction of first.
void ChainJoiner::grow(std::size_t first) {
  m_row.assign(1, first);
  Vec head = m_chains[first].points.front();
  Vec tail = m_chains[first].points.back();
  bool isClosed = isRing(m_chains[first]);
  while (!isClosed) {
    const std::size_t next = std::min(earliestAt(tail), earliestAt(head));
    if (next == kNone) return;
    m_isFree[next] = false;
    VertexChain& chain = m_chains[next];
    const bool joinsTail = meet(tail, chain.points.front()) || meet(tail, chain.points.back());
    const bool isBackward =
        joinsTail ? !meet(tail, chain.points.front()) : !meet(head, chain.points.back());
    if (isBackward) reverseChain(chain);
    if (joinsTail) {
      m_row.push_back(next);
      tail = chain.points.back();
    } else {
      m_row.push_front(next);
      head = chain.points.front();
    }
    isClosed = meet(head, tail);
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

std::vector<VertexChain> ChainJoiner::run() {
  std::vector<VertexChain> joined;
  for (std::size_t first = 0; first < m_chains.size(); ++first) {
    const bool isTaken = !m_isFree[first] && !isRing(m_chains[first]);
    if (isTaken) continue;
    m_isFree[first] = false;
    grow(first);
    joined.push_back(assembled(first));
  }
  return joined;
}

}  // namespace

std::vector<VertexChain> joinedChains(std::vector<VertexChain> chains) {
  if (chains.size() < 2) return chains;
  return ChainJoiner(std::move(chains)).run();
}

}  // namespace qdr
