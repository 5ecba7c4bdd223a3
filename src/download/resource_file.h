// Files that are sent to be kept by a printer, or checked for that: macros and demos.
#pragma once

#include "base/result.h"
#include "base/stream.h"

namespace zeapi {

// Whether the file may be sent at all. Returns 0, 2 (no such file) or 27 (a system file).
Result CheckResourceFile(const char* path);

// Opens a file that may be sent. Returns 0 or 3.
Result OpenResourceFile(const char* path, Stream* file);

}  // namespace zeapi
