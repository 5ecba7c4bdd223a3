// Characters of a text stream, read ahead in blocks.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <span>
#include <string_view>

namespace zeapi {

// A stream and what has been read ahead of it. What cannot be read counts as the end of the file. That
// stays the end until Rewind(): whoever goes on behind a failed read would go on in the middle of
// something.
class TextSource {
 public:
  explicit TextSource(std::FILE* stream) : stream_(stream) {}
  TextSource(const TextSource&) = delete;  // what is ahead lies in its room
  TextSource& operator=(const TextSource&) = delete;

  // Back to the start of the file. No cursor may be at work.
  void Rewind();

 private:
  friend class TextCursor;

  // The next characters; none only at the end of the file.
  std::string_view Refill();

  std::FILE* stream_;
  bool ended_ = false;
  std::array<char, 16384> room_;
  std::string_view ahead_;
};

// Reads on where the one before it on the same source stopped. Made where it is used, so that its
// place in what was read ahead is kept in registers.
class TextCursor {
 public:
  // A source has one cursor at a time.
  explicit TextCursor(TextSource* source)
      : source_(source), next_(source->ahead_.data()), end_(next_ + source->ahead_.size()) {}
  ~TextCursor() { source_->ahead_ = {next_, static_cast<std::size_t>(end_ - next_)}; }
  TextCursor(const TextCursor&) = delete;
  TextCursor& operator=(const TextCursor&) = delete;

  // The next character, or EOF.
  int Peek() { return Ahead().empty() ? EOF : static_cast<unsigned char>(*next_); }
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
  std::size_t TakeUpTo(char stop, std::span<char> room) {
    std::size_t taken = 0;
    for (;;) {
      const std::string_view ahead = Ahead();
      if (ahead.empty()) return taken;
      const std::size_t count = std::min(ahead.find(stop), ahead.size());
      const std::size_t part = std::min(count, room.size() - taken);
      std::copy_n(next_, part, room.data() + taken);
      taken += part;
      next_ += count;
      if (count < ahead.size()) return taken;
    }
  }

 private:
  void Refill() {
    const std::string_view text = source_->Refill();
    next_ = text.data();
    end_ = next_ + text.size();
  }

  TextSource* source_;
  const char* next_;
  const char* end_;
};

}  // namespace zeapi
