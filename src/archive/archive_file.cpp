#include "archive/archive_file.h"

#include <algorithm>

namespace zeapi {

ArchiveFile::~ArchiveFile() {
  if (file_ != platform::kNoFileHandle) platform::HandleClose(file_);
}

bool ArchiveFile::Open(const char* path) {
  file_ = platform::HandleOpen(path, platform::FileAccess::kRead);
  if (file_ == platform::kNoFileHandle) return false;
  filePosition_ = size_ = platform::HandleSeek(file_, 0, platform::SeekOrigin::kEnd);
  return size_ >= 0;
}

bool ArchiveFile::Fill() {
  filled_ = 0;
  if (position_ < 0 || position_ >= size_) return false;
  if (filePosition_ != position_) {
    filePosition_ = platform::HandleSeek(file_, position_, platform::SeekOrigin::kStart);
    if (filePosition_ != position_) return false;
  }
  const std::int32_t count = platform::HandleRead(file_, buffer_.data(), kBlock);
  if (count <= 0) {
    filePosition_ = -1;  // nobody knows where a failed read left it
    return false;
  }
  start_ = position_;
  filled_ = static_cast<std::size_t>(count);
  filePosition_ += count;
  return true;
}

std::span<const std::uint8_t> ArchiveFile::Next(std::size_t most) {
  const bool buffered =
      position_ >= start_ && position_ - start_ < static_cast<std::int64_t>(filled_);
  if (!buffered && !Fill()) return {};
  const auto from = static_cast<std::size_t>(position_ - start_);
  const std::size_t count = std::min(most, filled_ - from);
  position_ += static_cast<std::int64_t>(count);
  return buffer_.subspan(from, count);
}

bool ArchiveFile::Read(std::span<std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto part = Next(bytes.size());
    if (part.empty()) return false;
    std::copy(part.begin(), part.end(), bytes.begin());
    bytes = bytes.subspan(part.size());
  }
  return true;
}

}  // namespace zeapi
