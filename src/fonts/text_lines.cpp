#include "fonts/text_lines.h"

#include <algorithm>

namespace zeapi {
namespace {

// White space of C, and the zero byte at which a text ends.
constexpr std::string_view kWhiteSpace("\0 \t\n\v\f\r", 7);

}  // namespace

bool TextLines::Fill() {
  if (begin_ < end_) return true;
  begin_ = 0;
  end_ = std::fread(block_.data(), 1, block_.size(), stream_);
  return end_ > 0;
}

bool TextLines::Next(std::string_view* line) {
  if (afterReturn_ && Fill() && block_[begin_] == '\n') ++begin_;
  afterReturn_ = false;
  if (!Fill()) return false;
  std::size_t length = 0;
  bool ended = false;
  while (!ended && Fill()) {
    const auto from = block_.begin() + static_cast<std::ptrdiff_t>(begin_);
    const auto to = block_.begin() + static_cast<std::ptrdiff_t>(end_);
    const auto reach =
        piece_ == 0 ? to - from : std::min(to - from, static_cast<std::ptrdiff_t>(piece_ - length));
    if (reach == 0) break;
    const auto stop =
        std::find_if(from, from + reach, [](char c) { return c == '\n' || c == '\r'; });
    const std::size_t found = static_cast<std::size_t>(stop - from);
    const std::size_t kept = std::min(found, room_.size() - length);
    std::copy_n(from, kept, room_.data() + length);
    length += kept;
    begin_ += found;
    ended = stop != from + reach;
  }
  if (ended) afterReturn_ = block_[begin_++] == '\r';
  *line = {room_.data(), length};
  return true;
}

std::string_view UpToWhiteSpace(std::string_view text) {
  return text.substr(0, text.find_first_of(kWhiteSpace));
}

std::string_view TakeWord(std::string_view* text) {
  const std::string_view word = UpToWhiteSpace(*text);
  text->remove_prefix(word.size());
  text->remove_prefix(std::min(text->find_first_not_of(kWhiteSpace), text->size()));
  return word;
}

}  // namespace zeapi
