// The file that a member becomes: counts the CRC over every byte written.
#pragma once

#include "archive/block_io.h"
#include "archive/crc32.h"
#include "platform/handle_files.h"

namespace zeapi {

class MemberOutput : public BlockSink {
 public:
  // Takes over the file.
  explicit MemberOutput(platform::FileHandle file) : file_(file) {}
  ~MemberOutput() override;
  MemberOutput(const MemberOutput&) = delete;
  MemberOutput& operator=(const MemberOutput&) = delete;

  bool Write(std::span<const std::uint8_t> bytes) override;
  // False when the disk took less than it was given, ever.
  bool Close();

  std::uint32_t crc() const { return crc_.Value(); }
  // Bytes that it was given.
  std::int64_t size() const { return size_; }

 private:
  platform::FileHandle file_;
  Crc32 crc_;
  std::int64_t size_ = 0;
  bool ok_ = true;
};

}  // namespace zeapi
