// Numbers in memory whose lowest byte comes first, for loops that have checked where they read.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace zeapi {

// Eight bytes as a number, the first one lowest.
inline std::uint64_t LoadLe64(const std::uint8_t* bytes) {
  std::uint64_t value;
  std::memcpy(&value, bytes, sizeof(value));
  if constexpr (std::endian::native == std::endian::big) {
    std::uint64_t swapped = 0;
    for (int i = 0; i < 8; ++i) swapped |= (value >> 8 * i & 0xFF) << (56 - 8 * i);
    value = swapped;
  }
  return value;
}

}  // namespace zeapi
