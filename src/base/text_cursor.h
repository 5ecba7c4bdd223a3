// Characters of a text stream, one of which can be looked at ahead.
#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <span>
#include <string_view>

namespace zeapi {

// What cannot be read counts as the end of the file. That stays the end until Rewind(): whoever
// goes on behind a failed read would go on in the middle of something.
class TextCursor {
 public:
  explicit TextCursor(std::FILE* stream) : stream_(stream) {}

  // The next character, or EOF.
  int Peek() {
    if (next_ == end_ && !Refill()) return EOF;
    return static_cast<unsigned char>(*next_);
  }
  // Passes over the character that Peek() showed.
  void Skip() { ++next_; }

  // What has been read ahead from the next character on; empty only at the end of the file.
  std::string_view Ahead() {
    if (next_ == end_) Refill();
    return {next_, static_cast<std::size_t>(end_ - next_)};
  }
  // Passes over characters that Ahead() showed.
  void SkipAhead(std::size_t count) { next_ += count; }

  // Passes over everything before the next `stop`, which Peek() then shows (or EOF). What `room`
  // has space for of it is stored there; returns how many characters.
  std::size_t TakeUpTo(char stop, std::span<char> room);

  // Back to the start of the file.
  void Rewind();

 private:
  bool Refill();

  std::FILE* stream_;
  bool ended_ = false;
  std::array<char, 16384> room_;
  const char* next_ = room_.data();
  const char* end_ = room_.data();
};

}  // namespace zeapi
