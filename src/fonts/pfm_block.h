// Windows printer font metrics: the block at the head of a PFM file, or of each font in a cartridge
// file.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

#include "base/c_heap.h"

namespace zeapi {

// As much of a file as its header and names may lie in.
inline constexpr std::size_t kPfmBlock = 4096;

// The first bytes of a whole, valid file.
struct PfmBlock {
  CHeapPtr<std::uint8_t[]> room;
  std::span<const std::uint8_t> bytes;  // at most kPfmBlock
};

// Reads the block of the file at whose start `stream` stands. False when it is not valid, or when
// there is no memory.
bool ReadPfmBlock(std::FILE* stream, PfmBlock* block);

// A face name of at most 80 characters with " (It)" and " (Bd)" appended as the font is.
struct PfmName {
  char text[91];
};

// The font's name; empty when its face name is empty or does not lie within the block.
PfmName PfmFontName(std::span<const std::uint8_t> block);

// The name of the device that the font is for, wherever in the file it stands: as many characters
// as tell the devices apart. Empty when there is none.
std::string PfmDeviceName(std::FILE* stream, std::span<const std::uint8_t> block);

// The header's offset of the face name; 0 for a block that ends before it.
std::uint32_t PfmFaceOffset(std::span<const std::uint8_t> block);

// True for an offset at which a face name may stand: 35 to 2047.
bool FaceOffsetInRange(std::uint32_t offset);

// The header's size of the whole metrics in bytes; 0 for a block that ends before it.
std::uint32_t PfmSize(std::span<const std::uint8_t> block);

}  // namespace zeapi
