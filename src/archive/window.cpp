#include "archive/window.h"

#include <algorithm>
#include <cstring>

#include "archive/match_copy.h"

namespace zeapi {

Window::Window(std::span<std::uint8_t, kSize> bytes, BlockSink& sink) : bytes_(bytes), sink_(sink) {
  std::fill(bytes_.begin(), bytes_.end(), std::uint8_t{0});
}

void Window::Copy(std::size_t distance, std::size_t length) {
  std::size_t from = (position_ + kSize - distance) % kSize;
  if (std::max(from, position_) + length + kCopySlack <= kSize && length > 0) {
    if (from < position_)
      CopyMatch(bytes_.data() + position_, distance, length);
    else
      CopyRound(bytes_.data(), kSize, position_, distance, length);
    position_ += length;
    return;
  }
  for (; length > 0; --length) {
    Put(bytes_[from]);
    from = (from + 1) % kSize;
  }
}

void Window::Append(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const std::size_t part = std::min(bytes.size(), kSize - position_);
    std::memcpy(bytes_.data() + position_, bytes.data(), part);
    position_ += part;
    bytes = bytes.subspan(part);
    if (position_ == kSize) Flush();
  }
}

void Window::Flush() {
  if (ok_ && position_ > 0) ok_ = sink_.Write(bytes_.first(position_));
  written_ += position_;
  position_ = 0;
}

}  // namespace zeapi
