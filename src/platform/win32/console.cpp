#include "platform/console.h"

#include <cstdio>

namespace zeapi::platform {

void ConsoleWrite(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

}  // namespace zeapi::platform
