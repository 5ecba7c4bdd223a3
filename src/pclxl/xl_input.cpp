#include "pclxl/xl_input.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace zeapi {

bool XlInput::Refill() {
  if (failed_) return false;
  const std::size_t kept = std::min(fill_, kBlock);
  std::memmove(buffer_.data(), buffer_.data() + (fill_ - kept), kept);
  base_ += fill_ - kept;
  next_ = kept;
  const std::size_t count = std::fread(buffer_.data() + kept, 1, kBlock, file_);
  fill_ = kept + count;
  // Nothing, and not the end: a failure, even of a stream that does not say so.
  if (count == 0 && std::feof(file_) == 0) failed_ = true;
  if (std::ferror(file_) != 0) failed_ = true;
  return count != 0;
}

std::size_t XlInput::ReadPieces(std::span<std::uint8_t> bytes) {
  std::size_t read = 0;
  while (read < bytes.size() && (next_ < fill_ || Refill())) {
    const std::size_t count = std::min(bytes.size() - read, fill_ - next_);
    std::memcpy(bytes.data() + read, buffer_.data() + next_, count);
    next_ += count;
    read += count;
  }
  return read;
}

bool XlInput::Seek(std::uint64_t position) {
  // No file that streams can be positioned in is that long.
  if (failed_ || position > LONG_MAX) return false;
  if (std::fseek(file_, static_cast<long>(position), SEEK_SET) != 0) {
    failed_ = true;
    return false;
  }
  base_ = position;
  next_ = fill_ = 0;
  return true;
}

// Looks whether the last byte is there instead of reading them all.
bool XlInput::Skip(std::uint64_t count) {
  if (count <= fill_ - next_) {
    next_ += static_cast<std::size_t>(count);
    return true;
  }
  return SetPosition(Position() + count - 1) && Read() != kEnd;
}

}  // namespace zeapi
