#include "fonts/text_lines.h"

#include <algorithm>

namespace zeapi {
namespace {

// White space of C, and the zero byte at which a text ends.
constexpr std::string_view kWhiteSpace("\0 \t\n\v\f\r", 7);

}  // namespace

bool TextLines::Next(std::string_view* line) {
  std::size_t length = 0;
  int c = std::getc(stream_);
  if (c == EOF) return false;
  while (c != EOF && c != '\n' && c != '\r') {
    if (length < room_.size()) room_[length++] = static_cast<char>(c);
    c = std::getc(stream_);
  }
  if (c == '\r') {
    const int next = std::getc(stream_);
    if (next != '\n' && next != EOF) std::ungetc(next, stream_);
  }
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
