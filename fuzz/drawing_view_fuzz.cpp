// Drawing files as a host shows them.

#include <cstddef>
#include <cstdint>

#include "fuzz/drawing_view_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qdr_fuzz::tryView({reinterpret_cast<const char*>(data), size});
  return 0;
}
