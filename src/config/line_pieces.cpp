#include "config/line_pieces.h"

#include <algorithm>
#include <cstring>

namespace zeapi {

void LinePieces::Refill() {
  std::copy(room_.data() + begin_, room_.data() + end_, room_.data());
  end_ -= begin_;
  begin_ = 0;
  const std::size_t count = std::fread(room_.data() + end_, 1, room_.size() - end_, stream_);
  ended_ = count < room_.size() - end_;
  end_ += count;
  // Looked for once a block: hardly any file has one.
  hasZeros_ = std::memchr(room_.data(), '\0', end_) != nullptr;
}

bool LinePieces::Next(std::string_view* piece) {
  if (end_ - begin_ < kLongestPiece && !ended_) Refill();
  if (begin_ == end_) return false;
  const char* start = room_.data() + begin_;
  std::size_t length = std::min(end_ - begin_, kLongestPiece);
  if (const void* newline = std::memchr(start, '\n', length)) {
    length = static_cast<std::size_t>(static_cast<const char*>(newline) - start) + 1;
  }
  begin_ += length;
  *piece = {start, length};
  if (hasZeros_) *piece = piece->substr(0, piece->find('\0'));
  return true;
}

}  // namespace zeapi
