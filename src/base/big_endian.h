// Numbers that are stored with their high byte first.
#pragma once

#include <array>
#include <cstdint>

namespace zeapi {

constexpr std::array<std::uint8_t, 2> BigEndianBytes(std::uint16_t value) {
  return {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

}  // namespace zeapi
