// Names of one folder, kept while a search goes through it.
#pragma once

#include <cstddef>

namespace zeapi::platform {

enum class KeptName { kUnknown, kMissing, kMatched };

// Replaces `name` by the first name of the folder that equals it but for case. kUnknown when the
// names of that folder are not kept; `folder` is a host path that ends in "/".
KeptName MatchKeptName(const char* folder, std::size_t folderLength, char* name);

// Spells the folder whose names are kept as it is, where `path` begins with it as it was written. Returns how
// much of the path that is.
std::size_t CorrectKeptFolder(char* path);

}  // namespace zeapi::platform
