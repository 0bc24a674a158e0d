#pragma once

#include <cstdlib>

namespace qdr_fuzz {

/// Ends the process when a promise is broken.
inline void demand(bool holds) {
  if (!holds) std::abort();
}

}  // namespace qdr_fuzz
