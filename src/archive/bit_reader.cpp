#include "archive/bit_reader.h"

#include <algorithm>

namespace zeapi {

void BitReader::Join() {
  if (inJoint_ && cursor_.next - joint_ >= carried_) {
    cursor_.next = block_.data() + (cursor_.next - joint_ - carried_);
    cursor_.end = block_.data() + block_.size();
    inJoint_ = false;
  }
  if (cursor_.end - cursor_.next >= kPiece || inJoint_) return;
  carried_ = cursor_.end - cursor_.next;
  std::copy(cursor_.next, cursor_.end, joint_);
  block_ = source_.Next();
  const auto start = block_.first(std::min<std::size_t>(block_.size(), 2 * kPiece));
  cursor_.next = joint_;
  cursor_.end = std::copy(start.begin(), start.end(), joint_ + carried_);
  inJoint_ = true;
}

// The joint holds the start of a block that is not used up.
bool BitReader::NextBlock() {
  if (inJoint_) block_ = block_.subspan(static_cast<std::size_t>(cursor_.end - joint_ - carried_));
  if (!inJoint_ || block_.empty()) block_ = source_.Next();
  inJoint_ = false;
  cursor_.next = block_.data();
  cursor_.end = block_.data() + block_.size();
  return !block_.empty();
}

void BitReader::RefillBytes() {
  while (cursor_.count <= 56) {
    if (cursor_.next == cursor_.end && !NextBlock()) return;
    cursor_.buffer |= std::uint64_t{*cursor_.next++} << cursor_.count;
    cursor_.count += 8;
  }
}

std::span<const std::uint8_t> BitReader::Bytes(std::size_t most) {
  if (cursor_.count >= 8) {
    std::size_t held = 0;
    for (; held < most && cursor_.count >= 8; ++held)
      held_[held] = static_cast<std::uint8_t>(Take(8));
    return {held_, held};
  }
  // What the buffer knows of the bytes to come is not its own any more.
  cursor_.buffer = 0;
  cursor_.count = 0;
  if (cursor_.next == cursor_.end && !NextBlock()) return {};
  const std::size_t size = std::min(most, static_cast<std::size_t>(cursor_.end - cursor_.next));
  const std::span<const std::uint8_t> bytes(cursor_.next, size);
  cursor_.next += size;
  return bytes;
}

}  // namespace zeapi
