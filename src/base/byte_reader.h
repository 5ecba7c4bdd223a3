// The one way by which readers of foreign bytes look at them: a cursor that never leaves its span.
//
// A read past the end yields 0 (or an empty span), fails the reader for good and moves it no
// further, so a record is read field by field and ok() is asked once at its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zeapi {

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  // False once anything was asked that the span does not hold.
  bool ok() const { return ok_; }
  std::size_t position() const { return position_; }
  std::size_t remaining() const { return bytes_.size() - position_; }

  std::uint8_t U8() { return static_cast<std::uint8_t>(LittleEndian(1)); }
  std::int8_t S8() { return static_cast<std::int8_t>(U8()); }
  std::uint16_t U16Le() { return static_cast<std::uint16_t>(LittleEndian(2)); }
  std::uint32_t U32Le() { return LittleEndian(4); }
  std::uint16_t U16Be() { return static_cast<std::uint16_t>(BigEndian(2)); }
  std::uint32_t U24Be() { return BigEndian(3); }
  std::uint32_t U32Be() { return BigEndian(4); }

  void Skip(std::size_t count) { Bytes(count); }

  // Moves to an offset from the start of the span; the offset of its end is allowed.
  void Seek(std::size_t offset) {
    if (!ok_ || offset > bytes_.size()) {
      ok_ = false;
      return;
    }
    position_ = offset;
  }

  // The next `count` bytes.
  std::span<const std::uint8_t> Bytes(std::size_t count) {
    if (!ok_ || count > remaining()) {
      ok_ = false;
      return {};
    }
    const auto taken = bytes_.subspan(position_, count);
    position_ += count;
    return taken;
  }

  // A reader of the next `count` bytes alone. One of bytes that are not there has failed already.
  ByteReader Sub(std::size_t count) {
    ByteReader part(Bytes(count));
    part.ok_ = ok_;
    return part;
  }

 private:
  std::uint32_t LittleEndian(std::size_t count) {
    std::uint32_t value = 0;
    unsigned shift = 0;
    for (const std::uint8_t byte : Bytes(count)) {
      value |= std::uint32_t{byte} << shift;
      shift += 8;
    }
    return value;
  }

  std::uint32_t BigEndian(std::size_t count) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : Bytes(count)) value = value << 8 | byte;
    return value;
  }

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
  bool ok_ = true;
};

}  // namespace zeapi
