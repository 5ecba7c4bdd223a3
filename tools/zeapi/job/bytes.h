// Bounds-checked reading of a job's bytes: a question about what lies beyond the end gets "no".
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tool {

class Bytes {
 public:
  explicit Bytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::size_t Size() const { return bytes_.size(); }

  // The byte at `at`, or -1 beyond the end.
  int At(std::size_t at) const { return at < bytes_.size() ? bytes_[at] : -1; }

  bool StartsWith(std::size_t at, std::string_view text) const {
    const auto slice = Slice(at, text.size());
    return slice.size() == text.size() &&
           std::equal(slice.begin(), slice.end(), text.begin(), Same);
  }

  // Where `text` begins at or after `from`; the end when it does not come.
  std::size_t Find(std::size_t from, std::string_view text) const {
    const auto rest = Slice(from, bytes_.size());
    const auto found = std::search(rest.begin(), rest.end(), text.begin(), text.end(), Same);
    return std::min(from, Size()) + static_cast<std::size_t>(found - rest.begin());
  }

  // At most `length` bytes from `at`, fewer at the end.
  std::span<const std::uint8_t> Slice(std::size_t at, std::size_t length) const {
    at = std::min(at, bytes_.size());
    return bytes_.subspan(at, std::min(length, bytes_.size() - at));
  }

  std::string Text(std::size_t at, std::size_t length) const {
    const auto slice = Slice(at, length);
    return std::string(slice.begin(), slice.end());
  }

 private:
  static bool Same(std::uint8_t byte, char c) { return byte == static_cast<std::uint8_t>(c); }

  std::span<const std::uint8_t> bytes_;
};

}  // namespace tool
