// Polylines given as text, and what is done with them.

#include <cstddef>
#include <cstdint>

#include "fuzz/shape_text_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qdr_fuzz::tryShapes({reinterpret_cast<const char*>(data), size});
  return 0;
}
