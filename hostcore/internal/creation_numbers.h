#pragma once

#include <cstdint>

class CQdrDbDatabase;

namespace qdr {

/// The largest creation number of the records and entities of a drawing; 0 for none.
std::uint64_t largestNumber(CQdrDbDatabase& database);

}  // namespace qdr
