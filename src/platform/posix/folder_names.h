// Names of one folder, kept while a search goes through it.
#pragma once

#include <cstddef>

namespace zeapi::platform {

enum class KeptName { kUnknown, kMissing, kMatched };

// Replaces `name` by the first name of the folder that equals it but for case. kUnknown when the
// names of that folder are not kept; `folder` is a host path that ends in "/".
KeptName MatchKeptName(const char* folder, std::size_t folderLength, char* name);

}  // namespace zeapi::platform
