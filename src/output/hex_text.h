// Bytes as hexadecimal text.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zeapi {

// Expands the first `count` bytes of a block into 2 * `count` uppercase digits, in place, high
// nibble first. The block has room for the digits.
void ExpandToHex(std::uint8_t* block, std::size_t count);

// The value of a hexadecimal digit of either case; -1 for any other character.
int HexDigitValue(char digit);

}  // namespace zeapi
