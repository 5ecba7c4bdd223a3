// Numbers as bytes, in either order.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

namespace zeapi::testing {

inline std::string LittleEndian(std::int64_t value, int width) {
  std::string bytes;
  for (int i = 0; i < width; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
  return bytes;
}

inline std::string BigEndian(std::int64_t value, int width) {
  std::string bytes = LittleEndian(value, width);
  std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

inline std::string Byte(std::uint32_t value) { return LittleEndian(value, 1); }
inline std::string Le16(std::uint32_t value) { return LittleEndian(value, 2); }
inline std::string Le32(std::uint32_t value) { return LittleEndian(value, 4); }
inline std::string Be16(std::uint32_t value) { return BigEndian(value, 2); }
inline std::string Be32(std::uint32_t value) { return BigEndian(value, 4); }

}  // namespace zeapi::testing
