// ZeZipExplode() below the interface.
#pragma once

#include "base/result.h"

namespace zeapi {

// The arguments have been checked; an empty pattern takes every member.
Result ExtractArchive(const char* archive, const char* pattern, ZeZipProgress progress);

}  // namespace zeapi
