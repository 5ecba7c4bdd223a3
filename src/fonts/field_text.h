// Texts for the fixed fields of records.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zeapi {

// Stores a text, cut so that its terminator fits.
template <std::size_t size>
void SetField(char (&field)[size], std::string_view text) {
  const std::size_t length = std::min(text.size(), size - 1);
  *std::copy_n(text.begin(), length, field) = '\0';
}

// The text that begins at the first of these bytes and ends before a zero byte or with them.
inline std::string_view TextIn(std::span<const std::uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return text.substr(0, text.find('\0'));
}

}  // namespace zeapi
