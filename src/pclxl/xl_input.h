// The byte source of the PCL XL reader: an open file, read a byte at a time, with positions to come
// back to.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>

namespace zeapi {

class XlInput {
 public:
  static constexpr int kEnd = -1;

  // Reads from the start of the file, which stays the caller's.
  explicit XlInput(std::FILE* file) : file_(file) {}

  // The next byte, or kEnd.
  int Read() {
    if (next_ == fill_ && !Refill()) return kEnd;
    return buffer_[next_++];
  }

  // Reads until `bytes` is full; returns how many there were.
  std::size_t Read(std::span<std::uint8_t> bytes) {
    if (bytes.size() > fill_ - next_) return ReadPieces(bytes);
    std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(next_), bytes.size(), bytes.begin());
    next_ += bytes.size();
    return bytes.size();
  }

  // What lies in memory to be read next; Skip() passes over some of it.
  std::span<const std::uint8_t> AtHand() const {
    return std::span(buffer_).subspan(next_, fill_ - next_);
  }

  // Gives back the byte that Read() returned last. Once.
  void PushBack() { --next_; }

  // Where the next byte comes from, counted from the start.
  std::uint64_t Position() const { return base_ + next_; }

  // Goes there, also beyond the end. False when the file cannot be positioned there.
  bool SetPosition(std::uint64_t position) {
    if (position < base_ || position - base_ > fill_) return Seek(position);
    next_ = static_cast<std::size_t>(position - base_);
    return true;
  }

  // Passes over bytes; false when there are fewer.
  bool Skip(std::uint64_t count);

  // True when an end came of a file that could not be read or positioned.
  bool Failed() const { return failed_; }

 private:
  bool Refill();
  std::size_t ReadPieces(std::span<std::uint8_t> bytes);
  bool Seek(std::uint64_t position);

  std::FILE* file_;
  std::uint64_t base_ = 0;  // position of the buffer's first byte
  std::size_t next_ = 0;
  std::size_t fill_ = 0;
  bool failed_ = false;
  // What was read last, so that going back a little needs no file, and before it what is kept.
  static constexpr std::size_t kBlock = 4096;
  std::array<std::uint8_t, 2 * kBlock> buffer_;
};

}  // namespace zeapi
