// CRC-32 as archives use it: reflected polynomial 0xEDB88320, register all ones at the start,
// complemented at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi {

// The register of a running CRC; `value` begins at all ones.
class Crc32 {
 public:
  void Update(std::span<const std::uint8_t> bytes);
  std::uint32_t Value() const { return ~register_; }

 private:
  std::uint32_t register_ = 0xFFFFFFFF;
};

// The ways of carrying the register over some bytes: with tables everywhere, and with the processor's
// carry-less multiplication where it has one. Crc32 takes the faster.
std::uint32_t Crc32WithTables(std::uint32_t crc, std::span<const std::uint8_t> bytes);
bool CanMultiplyWithoutCarry();
std::uint32_t Crc32WithMultiply(std::uint32_t crc, std::span<const std::uint8_t> bytes);

}  // namespace zeapi
