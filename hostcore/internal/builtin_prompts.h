#pragma once

#include <string_view>

namespace qdr {

/// The message file that ships with the program, as it was when the program was built.
std::string_view builtinPrompts();

}  // namespace qdr
