// What a text file holds for a reader, said once more and as plainly as possible.
#pragma once

#include <string>
#include <string_view>

namespace zeapi::fuzz {

// The text ends at the first Ctrl-Z; CR LF is a line feed; every other byte is itself.
std::string TextOf(std::string_view bytes);

}  // namespace zeapi::fuzz
