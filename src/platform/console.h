// The process's standard output, for the one text that the library shows there.
#pragma once

#include <string_view>

namespace zeapi::platform {

void ConsoleWrite(std::string_view text);

}  // namespace zeapi::platform
