#include "archive/member_output.h"

namespace zeapi {

MemberOutput::~MemberOutput() {
  if (file_ != platform::kNoFileHandle) platform::HandleClose(file_);
}

bool MemberOutput::Write(std::span<const std::uint8_t> bytes) {
  const auto size = static_cast<std::uint32_t>(bytes.size());
  crc_.Update(bytes);
  size_ += size;
  ok_ = ok_ && platform::HandleWrite(file_, bytes.data(), size) == static_cast<std::int32_t>(size);
  return ok_;
}

bool MemberOutput::Close() {
  ok_ = platform::HandleClose(file_) && ok_;
  file_ = platform::kNoFileHandle;
  return ok_;
}

}  // namespace zeapi
