#pragma once

#include <string>

namespace qdr {

/// Why a host did not do what it was asked.
enum class HostFault {
  none,
  busy,     ///< a command is running
  refused,  ///< there is nothing to do, or the arguments are out of range
  file      ///< a file cannot be read or written
};

/// What came of a request to the host; `reason` is a line for a person when it was not done.
struct HostAnswer {
  HostFault fault = HostFault::none;
  std::wstring reason;

  explicit operator bool() const { return fault == HostFault::none; }
};

}  // namespace qdr
