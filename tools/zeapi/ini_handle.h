// INI files of the library, closed at the end of their scope.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "zeapi.h"

namespace tool {

struct IniCloser {
  void operator()(void* handle) const { ZeIniClose(handle); }
};
using IniHandle = std::unique_ptr<void, IniCloser>;

struct IniValue {
  std::uint32_t result;  // of ZeIniRead2()
  std::string text;
};

// Reads a value of any length; `fallback` may be null.
IniValue ReadValue(void* ini, const std::string& section, const std::string& key,
                   const char* fallback);

}  // namespace tool
