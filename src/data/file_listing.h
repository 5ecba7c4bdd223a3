// Configuration and setup files of a directory, with the descriptions in their first lines.
#pragma once

#include <cstdint>

#include "zeapi.h"

namespace zeapi {

// Lists the files that have a description; `count` receives their number. Null for none.
ZeDatFileInfo* DatQueryFiles(const char* directory, std::uint32_t kind, std::uint16_t* count);

void DatQueryFilesFree(ZeDatFileInfo* list);

}  // namespace zeapi
