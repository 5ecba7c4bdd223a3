// Numbers of a keyed data file: their text in a line, their bytes in a record.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zeapi {

// How many characters of `text` are the plain number that it begins with: perhaps a "-", then digits
// and at most one point, 15 characters in all. 0 for none. None is out of the range of either
// precision; double precision gets the nearest.
inline std::size_t PlainNumberLength(std::string_view text) {
  constexpr std::size_t kLongest = 15;
  const char* at = text.data();
  const char* const end = at + std::min(text.size(), kLongest);
  if (at != end && *at == '-') ++at;
  bool digit = false;
  bool point = false;
  for (; at != end; ++at) {
    if (*at >= '0' && *at <= '9') {
      digit = true;
    } else if (*at == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  return digit ? static_cast<std::size_t>(at - text.data()) : 0;
}

// Each stores the number that the whole text is, of at most 24 characters and read the same in
// every locale: digits with a point or an exponent, no names. False when it is no such number, is
// too large for the field, or the field is none for such numbers. A number too small for the field
// is 0.

// In 2 or 4 bytes.
bool StoreWholeNumber(std::string_view text, std::span<std::uint8_t> field);

// In single (4 bytes) or double precision (8 bytes).
bool StoreRealNumber(std::string_view text, std::span<std::uint8_t> field);

}  // namespace zeapi
