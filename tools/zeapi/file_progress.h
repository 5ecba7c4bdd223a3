// Progress through files, as one line of text.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// "[#####     ]  50% name", always of the same width: a longer name loses its middle, control characters
// become "?".
std::string FileProgressLine(std::uint64_t done, std::uint64_t whole, const std::string& name);

}  // namespace tool
