// The packed bytes of one member, no more than its header states.
#pragma once

#include "archive/archive_file.h"
#include "archive/block_io.h"

namespace zeapi {

class MemberSource : public BlockSource {
 public:
  // From the archive's position on.
  MemberSource(ArchiveFile& file, std::uint32_t size) : file_(file), left_(size) {}

  std::span<const std::uint8_t> Next() override {
    if (left_ == 0) return {};
    const auto block = file_.Next(left_);
    left_ -= static_cast<std::uint32_t>(block.size());
    archiveEnded_ = block.empty();
    return block;
  }

  // True once bytes were asked for that the header states and the archive does not have.
  bool ArchiveEnded() const { return archiveEnded_; }

 private:
  ArchiveFile& file_;
  std::uint32_t left_;
  bool archiveEnded_ = false;
};

}  // namespace zeapi
