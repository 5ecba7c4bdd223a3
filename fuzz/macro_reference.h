// The macro fixup once more, as plain as its rules: on a text in memory, a sequence at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zeapi::fuzz {

// What the fixup makes of a file. `overlayHeader` may be null.
std::string FixedUp(std::string_view file, std::int32_t language, std::uint32_t options,
                    const char* overlayHeader);

}  // namespace zeapi::fuzz
