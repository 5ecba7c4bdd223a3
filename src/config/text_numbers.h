// Numbers in the values of configuration files.
#pragma once

#include <cstdint>
#include <string_view>

namespace zeapi {

// The decimal number at the start of a text, behind blanks and with a sign if it has one. 0 when
// there is none; a number beyond 32 bits is the nearest that they can hold.
std::int32_t DecimalAtStart(std::string_view text);

// The 16-bit identifier in hexadecimal at the start of a text, behind blanks and "0x" if it has them. 0 when
// there is none, also behind a sign; of more digits the last four count.
std::uint16_t HexAtStart(std::string_view text);

}  // namespace zeapi
