// What the library's result codes mean in words, and the exit code that each gives the program.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// Exit codes that are not result codes.
inline constexpr int kExitUsage = 64;  // the command line is not understood
inline constexpr int kExitInternal =
    70;  // a result that no exit code can carry, or a fault of ours

// The meaning of a result code, as it follows a colon: "the file does not exist".
std::string ResultWords(std::uint32_t result);

// The exit code for a result: results below 64 stand for themselves.
int ExitCodeFor(std::uint32_t result);

}  // namespace tool
