// Scripts of typed lines, picks and directives, played on a host without windows.

#include <cstddef>
#include <cstdint>

#include "fuzz/script_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qdr_fuzz::tryScript({reinterpret_cast<const char*>(data), size});
  return 0;
}
