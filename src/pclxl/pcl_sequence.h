// The letters of PCL escape sequences that the filter and the check of macros share.
//
// A parameterised sequence is ESC, two characters, and groups of a value and a letter; a letter in
// lower case says that another group follows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi::filter {

inline constexpr std::uint8_t kEscape = 0x1B;
inline constexpr std::uint8_t kFormFeed = 0x0C;
inline constexpr std::size_t kPrefixLength = 3;

inline bool IsDigit(std::uint8_t c) { return c >= '0' && c <= '9'; }

// Values hold nothing else; the first other character is the letter.
inline bool IsValueCharacter(std::uint8_t c) {
  return IsDigit(c) || c == '+' || c == '-' || c == '.';
}

// Whether another group follows the letter's.
inline bool LetterContinues(std::uint8_t letter) { return letter >= 0x60 && letter <= 0x7E; }

// Offset of the first character from `at` on that belongs to no value; the size when all do.
inline std::size_t EndOfValue(std::span<const std::uint8_t> bytes, std::size_t at) {
  while (at < bytes.size() && IsValueCharacter(bytes[at])) ++at;
  return at;
}

// A value as it is read character by character: the whole number before anything that is no digit.
class ValueReader {
 public:
  void Read(std::uint8_t c) {
    if (IsDigit(c) && !ended_) {
      const std::int64_t digit = c - '0';
      if (magnitude_ <= (kLargest - digit) / 10) {
        magnitude_ = 10 * magnitude_ + digit;
      } else {
        magnitude_ = kLargest;
      }
    } else if (first_ && (c == '+' || c == '-')) {
      negative_ = c == '-';
    } else {
      ended_ = true;
    }
    first_ = false;
  }
  std::int64_t value() const { return negative_ ? -magnitude_ : magnitude_; }

 private:
  static constexpr std::int64_t kLargest = std::int64_t{1} << 62;
  std::int64_t magnitude_ = 0;
  bool negative_ = false;
  bool first_ = true;
  bool ended_ = false;
};

// Adds what a value counts; a negative one counts nothing.
inline void AddCount(std::int64_t value, std::uint64_t* count) {
  constexpr std::uint64_t kLargest = std::uint64_t{1} << 63;
  if (value > 0) *count = std::min(*count + static_cast<std::uint64_t>(value), kLargest);
}

inline std::int64_t ValueOf(std::span<const std::uint8_t> text) {
  ValueReader reader;
  for (const std::uint8_t c : text) reader.Read(c);
  return reader.value();
}

}  // namespace zeapi::filter
