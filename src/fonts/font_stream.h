// Font files as streams, and their bytes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

namespace zeapi {

// Reads up to `room` from where the stream stands. Returns the bytes that were there.
std::span<const std::uint8_t> ReadUpTo(std::FILE* stream, std::span<std::uint8_t> room);

// Positions a stream at an offset from the start of the file; false when it cannot be.
bool SeekTo(std::FILE* stream, std::uint32_t offset);

// Size of an open file that is positioned at its start, and stays so. 0 when it cannot be told.
std::uint32_t StreamSize(std::FILE* stream);

}  // namespace zeapi
