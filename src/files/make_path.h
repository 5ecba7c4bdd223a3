// Creating a chain of directories.
#pragma once

#include "base/result.h"

namespace zeapi {

// Creates every missing directory of a path, the last component included. `created` is null or
// receives "\name" for each directory made; room for as many bytes as `path` has. Returns 0 or 26.
Result FilMakePath(const char* path, char* created);

}  // namespace zeapi
