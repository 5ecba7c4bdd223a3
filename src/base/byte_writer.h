// Bytes of a file that the library composes: little-endian numbers, texts, and offsets that are
// known later.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace zeapi {

class ByteWriter {
 public:
  std::uint32_t position() const { return static_cast<std::uint32_t>(bytes_.size()); }

  void U8(std::uint8_t value) { bytes_.push_back(value); }
  void U16Le(std::uint16_t value) { LittleEndian(value, 2); }
  void S16Le(std::int16_t value) { LittleEndian(static_cast<std::uint16_t>(value), 2); }
  void U32Le(std::uint32_t value) { LittleEndian(value, 4); }

  // The text and its terminator.
  void Text(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    U8(0);
  }

  // The text in a field of `size` bytes, cut so that its terminator fits.
  void TextField(std::string_view text, std::size_t size) {
    const std::string_view kept = text.substr(0, size - 1);
    bytes_.insert(bytes_.end(), kept.begin(), kept.end());
    bytes_.resize(bytes_.size() + size - kept.size());
  }

  // Zeros up to a length; nothing when there is as much.
  void PadTo(std::size_t size) {
    if (bytes_.size() < size) bytes_.resize(size);
  }

  // Replaces four bytes that were written before.
  void PatchU32Le(std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
      bytes_.at(offset + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
  }

  std::vector<std::uint8_t> Take() { return std::move(bytes_); }

 private:
  void LittleEndian(std::uint32_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
  }

  std::vector<std::uint8_t> bytes_;
};

}  // namespace zeapi
