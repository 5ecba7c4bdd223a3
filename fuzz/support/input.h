// Inputs are mostly text, so that seeds and findings can be read and written by hand: lines of
// numbers, lines of names, and whatever follows as content.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace zeapi::fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  // What stands before the next newline, or the end.
  std::string_view Line();

  // What no Line() has taken.
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// Decimal numbers of a line, separated by blanks; 0 for whatever is missing or is none.
class Numbers {
 public:
  explicit Numbers(std::string_view line) : rest_(line) {}

  std::int64_t Next();

  // The next number, brought into 0 to `limit` - 1.
  unsigned Below(unsigned limit);

 private:
  std::string_view rest_;
};

// A zero-terminated copy that ends where its block of memory ends, so that a sanitizer sees every
// read beyond it.
class HeapText {
 public:
  explicit HeapText(std::string_view text);
  const char* get() const { return text_.get(); }

 private:
  std::unique_ptr<char[]> text_;
};

// The text up to its first zero byte, which is all that a callee sees of it.
std::string_view UpToZero(std::string_view text);

}  // namespace zeapi::fuzz
