// What the processor can do for a CRC-32 (reflected polynomial 0xEDB88320).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi::platform {

// True when the processor multiplies without carry.
bool CanFoldCrc32();

// Fewer bytes than these cannot be folded.
inline constexpr std::size_t kLeastFold = 128;
inline constexpr std::size_t kFolded = 16;

// Folds the start of the bytes, and the register before them, into kFolded bytes: a CRC that starts
// with the register 0 and goes over these has the same register afterwards. Returns how many bytes
// that start has; the others are to follow.
std::size_t FoldCrc32(std::uint32_t crc, std::span<const std::uint8_t> bytes, std::uint8_t* folded);

}  // namespace zeapi::platform
