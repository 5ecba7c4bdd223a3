// Panel configuration files that are loaded, shared by all callers of the process.
#pragma once

#include <cstdint>

#include "config/ini_file.h"

namespace zeapi {

// Longest file name of a panel, with its terminator: a negative identifier has ten digits.
inline constexpr std::size_t kPanelFileNameRoom = 18;

void OpcFileName(std::int16_t panel, char* name);

// The panel's file, loaded once and counted for each call. Null when the file does not open and when all
// five places are taken.
IniFile* OpcRegister(std::int16_t panel, const char* directory);

// Ends one use; the last one closes the file. False for a file that is not registered or does not
// close.
bool OpcUnregister(const void* file);

}  // namespace zeapi
