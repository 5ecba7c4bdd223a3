// Pieces and numbers of the values of configuration files.
#pragma once

#include <cstdint>
#include <string_view>

namespace zeapi {

// Takes the next piece of `rest` that is not empty; pieces stand between runs of the separator.
// False when there is none left.
bool TakePiece(std::string_view* rest, char separator, std::string_view* piece);

// The decimal number at the start of a text, behind blanks and with a sign if it has one. 0 when
// there is none; a number beyond 32 bits is the nearest that they can hold.
std::int32_t DecimalAtStart(std::string_view text);

// The hexadecimal number at the start of a text, behind blanks and "0x" if it has them: its low 32
// bits. 0 when there is none.
std::uint32_t HexAtStart(std::string_view text);

}  // namespace zeapi
