// The searches for what can be downloaded.
#pragma once

#include <cstdint>

#include "files/found_files.h"

namespace zeapi {

// Lists the files of a folder that are no system files. See FindFiles for `recurse` and `count`.
FoundFiles FindDemos(const char* folder, bool recurse, std::int16_t* count);

// Lists the files of a folder that may be stored as macros of the language `kind`, each with the
// record that its validation leaves.
FoundFiles FindMacros(const char* folder, std::uint32_t kind, bool recurse, std::int16_t* count);

}  // namespace zeapi
