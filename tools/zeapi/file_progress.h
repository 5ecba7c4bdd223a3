// Progress through files, as one line of text.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// "[#####     ]  50% name", always of as many characters: a longer name loses its middle, control characters
// become "?". Names are UTF-8; bytes that are not stand for a character each.
std::string FileProgressLine(std::uint64_t done, std::uint64_t whole, const std::string& name);

}  // namespace tool
