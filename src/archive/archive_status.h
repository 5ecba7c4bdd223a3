// How the pass over an archive went, in the engine's own numbers: 0 and 1 are success and warning, and
// of two statuses the higher is the worse.
#pragma once

#include <algorithm>

#include "base/result.h"

namespace zeapi {

enum ArchiveStatus : int {
  kArchiveOk = 0,
  kArchiveWarning = 1,
  kArchiveBad = 2,           // offsets, signatures or packed data are wrong
  kArchiveBadStructure = 3,  // no way on: no directory, or a name that cannot be a path
  kArchiveNoMemory = 5,
  kArchiveCannotOpen = 9,
  kArchiveBadParameter = 10,
  kArchiveNothingFound = 11,  // several disks, or no member matches
  kArchiveCannotCreate = 40,
  kArchiveDiskFull = 50,
  kArchiveUnexpectedEnd = 51,
};

inline ArchiveStatus Worse(ArchiveStatus a, ArchiveStatus b) { return std::max(a, b); }

// The library's word for it.
Result ResultOf(ArchiveStatus status);

}  // namespace zeapi
