#pragma once

#include <string_view>

#include "hostcore/internal/script_directives.h"

namespace qdr {

/// "NAME VALUE": a setting of the drawing.
DirectiveAnswer playSetting(ScriptStage& stage, std::wstring_view words);

/// "NAME [COLOUR [LINETYPE]]": makes a layer current, and first makes it when there is none of that
/// name.
DirectiveAnswer playLayer(ScriptStage& stage, std::wstring_view words);

}  // namespace qdr
