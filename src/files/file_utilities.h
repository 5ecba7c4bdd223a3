// Small operations on files: existence, size, copy and backup.
#pragma once

#include <cstdint>

#include "base/result.h"

namespace zeapi {

// True when the path exists and can be read. A null or empty path does not exist.
bool FilExists(const char* path);

// Size (low 32 bits) of the first entry that matches a path with wildcards; 0 when there is none.
std::uint32_t FilQuerySize(const char* path);

// Copies over the destination. Returns 0 or the code that stands for the system's error.
Result FilCopy(const char* source, const char* destination);

// The code that stands for a system error of a copy, in the numbering of Windows.
Result CopyErrorResult(std::uint32_t systemError);

// Copies a file to the first free name of "base.001" to "base.998" beside it. `backupName` has room
// for ZE_MAX_NAME + 1 bytes and receives the last name that was tried. Returns 0, 27, 37 or a code
// of FilCopy.
Result FilBackup(const char* source, char* backupName);

}  // namespace zeapi
