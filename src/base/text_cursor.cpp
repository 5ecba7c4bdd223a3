#include "base/text_cursor.h"

#include <algorithm>
#include <cstring>

namespace zeapi {

bool TextCursor::Refill() {
  if (ended_) return false;
  const std::size_t count = std::fread(room_.data(), 1, room_.size(), stream_);
  next_ = room_.data();
  end_ = next_ + count;
  ended_ = count == 0;
  return !ended_;
}

std::size_t TextCursor::TakeUpTo(char stop, std::span<char> room) {
  std::size_t taken = 0;
  while (Peek() != EOF) {
    const void* found = std::memchr(next_, stop, static_cast<std::size_t>(end_ - next_));
    const char* until = found == nullptr ? end_ : static_cast<const char*>(found);
    const std::size_t part = std::min(static_cast<std::size_t>(until - next_), room.size() - taken);
    std::copy_n(next_, part, room.data() + taken);
    taken += part;
    next_ = until;
    if (found != nullptr) break;
  }
  return taken;
}

void TextCursor::Rewind() {
  std::rewind(stream_);
  ended_ = false;
  next_ = end_ = room_.data();
}

}  // namespace zeapi
