// The reader and the scanner of drawing files.

#include <cstddef>
#include <cstdint>

#include "fuzz/drawing_file_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qdr_fuzz::tryDrawing({reinterpret_cast<const char*>(data), size});
  return 0;
}
