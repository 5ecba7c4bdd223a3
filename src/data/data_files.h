// Printer data files that are open, up to four in the process, and searching and counting their
// records.
#pragma once

#include <cstdint>

#include "zeapi.h"

namespace zeapi {

// Returns a handle from 0 on, -1, -2 or -5. Throws when there is no memory; nothing is open then.
std::int16_t DatOpenFile(const char* path, std::int32_t mode);

std::int16_t DatCloseFile(std::int16_t handle);

// The first record whose key begins with that of `record`, and the one behind the last that was
// found.
std::int16_t DatGetFirstKey(std::int16_t handle, ZeDatRecord* record);
std::int16_t DatGetNextKey(std::int16_t handle, ZeDatRecord* record);

std::int16_t DatQueryCount(const char* path, ZeDatRecord* record, std::int32_t mode);
std::int16_t DatQueryCounts(const char* path, ZeDatCounts* counts, std::int32_t mode);

}  // namespace zeapi
