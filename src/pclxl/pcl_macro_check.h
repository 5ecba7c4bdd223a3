// Whether a PCL file, after its fixup, can stand between the start and the stop of a definition.
#pragma once

#include <cstdio>

#include "base/result.h"

namespace zeapi {

// Reads the file from its current position and looks for what would end or nest the definition, or
// swallow what follows it: see ZeMacValidate in zeapi.h for the rule. Returns 0, 6, 11 or 27.
Result CheckPclMacroContent(std::FILE* file);

}  // namespace zeapi
