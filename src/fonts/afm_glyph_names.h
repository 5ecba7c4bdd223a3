// Glyph names of AFM files.
#pragma once

#include <string_view>

namespace zeapi {

// Windows code of a glyph name; -1 for a name that is not read.
int WindowsCodeOfGlyph(std::string_view name);

}  // namespace zeapi
