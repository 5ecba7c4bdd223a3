#include "support/input.h"

#include <algorithm>
#include <charconv>

namespace zeapi::fuzz {

std::string_view Input::Line() {
  const std::size_t end = std::min(rest_.find('\n'), rest_.size());
  const std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return line;
}

std::int64_t Numbers::Next() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
  std::int64_t number = 0;
  std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
  rest_.remove_prefix(std::min(rest_.find(' '), rest_.size()));
  return number;
}

unsigned Numbers::Below(unsigned limit) {
  return static_cast<unsigned>(static_cast<std::uint64_t>(Next()) % limit);
}

HeapText::HeapText(std::string_view text) : text_(new char[text.size() + 1]) {
  std::copy(text.begin(), text.end(), text_.get());
  text_[text.size()] = '\0';
}

std::string_view UpToZero(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace zeapi::fuzz
