// The archive on disk, read in blocks of 2048 bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/handle_files.h"

namespace zeapi {

class ArchiveFile {
 public:
  static constexpr std::size_t kBlock = 2048;
  static constexpr std::size_t kSpare = 4;

  // `buffer` is kBlock + kSpare bytes and outlives this.
  explicit ArchiveFile(std::span<std::uint8_t> buffer) : buffer_(buffer) {}
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  bool Open(const char* path);
  std::int64_t size() const { return size_; }
  platform::FileHandle handle() const { return file_; }

  // Where the next byte comes from. Any place will do, read or not: asking there tells.
  void Seek(std::int64_t position) { position_ = position; }
  std::int64_t position() const { return position_; }

  // Up to `most` bytes from the position on, which then moves behind them; none at the end of the file
  // and where it cannot be read. Valid until the next call.
  std::span<const std::uint8_t> Next(std::size_t most);

  // False when fewer bytes are left.
  bool Read(std::span<std::uint8_t> bytes);

 private:
  bool Fill();

  std::span<std::uint8_t> buffer_;
  platform::FileHandle file_ = platform::kNoFileHandle;
  std::int64_t size_ = 0;
  std::int64_t position_ = 0;
  std::int64_t filePosition_ = 0;  // where the system reads on
  std::int64_t start_ = 0;         // place of the buffer's first byte
  std::size_t filled_ = 0;
};

}  // namespace zeapi
