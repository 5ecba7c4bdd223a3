// The search of a folder for macro or demo files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "files/found_files.h"

namespace zeapi {

// Looks at one file: true when it is wanted. What it stores in `record`, if anything, is copied to
// the file's node.
using FileCheck = std::function<bool(const char* path, std::span<const std::byte>* record)>;

// Searches a folder of at most ZE_MAX_NAME characters. `*count` says how many files are wanted at
// most (0 or less: 32767) and is told how many were listed. With `recurse` the folders within are
// searched as well, but what is found there is not listed: it only passes the check, and each such
// search takes the count as its limit, begins it anew and leaves it for the rest of the outer
// search. A lack of memory ends the search with an empty list.
FoundFiles FindFiles(const char* folder, std::uint32_t kind, bool recurse, const FileCheck& check,
                     std::int16_t* count);

// As many as a list can have.
inline constexpr std::int16_t kMostFoundFiles = 32767;

}  // namespace zeapi
