#include "fonts/font_stream.h"

#include <limits>

namespace zeapi {

std::span<const std::uint8_t> ReadUpTo(std::FILE* stream, std::span<std::uint8_t> room) {
  return room.first(std::fread(room.data(), 1, room.size(), stream));
}

bool SeekTo(std::FILE* stream, std::uint32_t offset) {
  // A long has 32 bits on Windows.
  if (offset > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) return false;
  return std::fseek(stream, static_cast<long>(offset), SEEK_SET) == 0;
}

std::uint32_t StreamSize(std::FILE* stream) {
  if (std::fseek(stream, 0, SEEK_END) != 0) return 0;
  const long size = std::ftell(stream);
  if (size < 0 || size > std::numeric_limits<std::int32_t>::max()) return 0;
  return SeekTo(stream, 0) ? static_cast<std::uint32_t>(size) : 0;
}

}  // namespace zeapi
