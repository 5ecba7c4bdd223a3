// What a handle of an INI file stands for, in the families that take one.
#pragma once

#include "config/ini_file.h"

namespace zeapi {

inline IniFile* IniFileOf(void* handle) { return static_cast<IniFile*>(handle); }

}  // namespace zeapi
