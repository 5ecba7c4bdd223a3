// Rewriting a text file line by line.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// Hands each line of a text file to the callback and replaces the file by what the callback left of
// them. Returns 0, 3, 4, 6, 7, 11, 26 or a code of FilCopy.
Result FilModify(const char* path, std::uint32_t value, ZeModifyCallback callback);

}  // namespace zeapi
