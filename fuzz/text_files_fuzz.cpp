// The text files of a host: linetypes, command names, messages.

#include <cstddef>
#include <cstdint>

#include "fuzz/text_files_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qdr_fuzz::tryTextFiles({reinterpret_cast<const char*>(data), size});
  return 0;
}
