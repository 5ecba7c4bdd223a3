// The last 32 KiB of a member's plain bytes: what packed data refers back to, and at the same time
// what waits to be written. It goes round: when it is full it is written and filled anew.
#pragma once

#include <cstddef>

#include "archive/block_io.h"

namespace zeapi {

class Window {
 public:
  static constexpr std::size_t kSize = 32768;

  // Begins a member. Bytes from before its start are zeros.
  Window(std::span<std::uint8_t, kSize> bytes, BlockSink& sink);

  // False once a write has failed; no more is written then.
  bool ok() const { return ok_; }
  // Bytes that the member has so far, and how many of them can be referred to.
  std::uint64_t total() const { return written_ + position_; }
  std::size_t history() const { return written_ != 0 ? kSize : position_; }

  void Put(std::uint8_t byte) {
    bytes_[position_++] = byte;
    if (position_ == kSize) Flush();
  }

  // Repeats `length` bytes from `distance` (1 to kSize) back; they may overlap what is being made.
  void Copy(std::size_t distance, std::size_t length);

  void Append(std::span<const std::uint8_t> bytes);

  // Writes what waits, at the end of the member.
  void Flush();

  // For a loop that fills the window itself; it must leave room for at least one byte.
  std::uint8_t* bytes() { return bytes_.data(); }
  std::size_t position() const { return position_; }
  void SetPosition(std::size_t position) { position_ = position; }

 private:
  std::span<std::uint8_t, kSize> bytes_;
  BlockSink& sink_;
  std::size_t position_ = 0;
  std::uint64_t written_ = 0;
  bool ok_ = true;
};

}  // namespace zeapi
