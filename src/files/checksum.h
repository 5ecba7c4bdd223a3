// The 16-bit checksum of a file.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// The negated sum of a file's little-endian words, so that all words and the checksum add up to 0.
// `path` is opened; when it is null or empty the open file `handle` is used, and closed afterwards
// unless the path is null. `skip` is the 1-based number of a word to leave out, 0 for none. Returns
// 0, 1 (nothing to read), 3, 4 or 6; 1 and 3 leave `result` alone.
Result FilChecksum(const char* path, std::int32_t handle, std::uint16_t skip,
                   std::uint16_t* result);

}  // namespace zeapi
