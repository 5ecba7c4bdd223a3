// CRC-32 as archives use it: reflected polynomial 0xEDB88320, register all ones at the start,
// complemented at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi {

// A running CRC.
class Crc32 {
 public:
  void Update(std::span<const std::uint8_t> bytes);
  std::uint32_t Value() const { return ~register_; }

 private:
  std::uint32_t register_ = 0xFFFFFFFF;
};

// The two ways of carrying the register over some bytes, of which Crc32 takes the faster: with tables
// everywhere, and by folding where the processor can (platform::CanFoldCrc32()).
std::uint32_t Crc32WithTables(std::uint32_t crc, std::span<const std::uint8_t> bytes);
std::uint32_t Crc32ByFolding(std::uint32_t crc, std::span<const std::uint8_t> bytes);

}  // namespace zeapi
