// ZeZipExplode() below the interface.
#pragma once

#include <string>

#include "base/result.h"

namespace zeapi {

// The file that an archive's name means: with ".zip" unless there is a file of the name as it stands.
std::string ArchivePath(const char* archive);

// The arguments have been checked; an empty pattern takes every member.
Result ExtractArchive(const char* archive, const char* pattern, ZeZipProgress progress);

}  // namespace zeapi
