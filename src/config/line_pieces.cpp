#include "config/line_pieces.h"

#include <algorithm>

namespace zeapi {

void LinePieces::Refill() {
  std::copy(room_.data() + begin_, room_.data() + end_, room_.data());
  end_ -= begin_;
  begin_ = 0;
  const std::size_t count = std::fread(room_.data() + end_, 1, room_.size() - end_, stream_);
  ended_ = count < room_.size() - end_;
  end_ += count;
}

bool LinePieces::Next(std::string_view* piece) {
  if (end_ - begin_ < kLongestPiece && !ended_) Refill();
  if (begin_ == end_) return false;
  std::string_view line(room_.data() + begin_, std::min(end_ - begin_, kLongestPiece));
  line = line.substr(0, line.find('\n') == line.npos ? line.npos : line.find('\n') + 1);
  begin_ += line.size();
  *piece = line.substr(0, line.find('\0'));
  return true;
}

}  // namespace zeapi
