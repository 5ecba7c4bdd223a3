// Numbers of a keyed data file: their text in a line, their bytes in a record.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zeapi {

// Each stores the number that the whole text is, of at most 24 characters and read the same in
// every locale: digits with a point or an exponent, no names. False when it is no such number, is
// too large for the field, or the field is none for such numbers. A number too small for the field
// is 0.

// In 2 or 4 bytes.
bool StoreWholeNumber(std::string_view text, std::span<std::uint8_t> field);

// In single (4 bytes) or double precision (8 bytes).
bool StoreRealNumber(std::string_view text, std::span<std::uint8_t> field);

}  // namespace zeapi
