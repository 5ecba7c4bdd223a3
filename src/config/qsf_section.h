// Lists of option variables in INI files, one section a printer model and list.
#pragma once

#include <cstdint>

#include "base/c_heap.h"
#include "base/result.h"
#include "config/ini_file.h"

namespace zeapi {

// Reads list 1 required, 2 optional, 3 exclude or 4 order of a model; lists 3 and 4 of a model without a
// section are those of all models. Returns 0, 1 (another list), 11, 27 (not as many variables as the section
// says) or a code of IniRead2. Variables have two bytes, high byte first.
Result QsfReadSection(IniFile* file, std::uint32_t kind, std::uint8_t model,
                      CHeapPtr<std::uint8_t[]>* variables, std::uint16_t* count);

}  // namespace zeapi
