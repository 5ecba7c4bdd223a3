// Bits of packed data, lowest bit of each byte first: the one order of all packing methods.
//
// After Refill() at least 57 bits stand ready unless the source has ended. What is asked beyond its end
// reads as 0 and fails the reader for good.
#pragma once

#include <cstddef>

#include "archive/block_io.h"
#include "base/little_endian.h"

namespace zeapi {

// The bits of a block that are taken and not yet used. `buffer` may hold more than `count` bits: then
// they are those of the bytes at `next`, which the next refill puts into the same place again.
//
// A loop may subtract whole table entries from `count`, whose low bits are what is to be dropped: only
// its low six bits mean anything until Tidy().
struct BitCursor {
  std::uint64_t buffer = 0;
  unsigned count = 0;
  const std::uint8_t* next = nullptr;
  const std::uint8_t* end = nullptr;

  // At least eight bytes must be left.
  void RefillWord() {
    buffer |= LoadLe64(next) << (count & 63);
    next += ~count >> 3 & 7;
    count |= 56;
  }
  void DropEntry(std::uint32_t entry) {
    buffer >>= entry & 63;
    count -= entry;
  }
  void Tidy() { count &= 63; }
  void Drop(unsigned bits) {
    buffer >>= bits;
    count -= bits;
  }
};

class BitReader {
 public:
  explicit BitReader(BlockSource& source) : source_(source) {}

  bool ok() const { return ok_; }

  void Refill() {
    if (cursor_.end - cursor_.next >= 8)
      cursor_.RefillWord();
    else
      RefillBytes();
  }

  // Refill() first; `bits` is at most 32.
  std::uint32_t Peek(unsigned bits) const {
    return static_cast<std::uint32_t>(cursor_.buffer & ((std::uint64_t{1} << bits) - 1));
  }
  void Drop(unsigned bits) {
    if (bits > cursor_.count) {
      ok_ = false;
      bits = cursor_.count;
    }
    cursor_.Drop(bits);
  }
  std::uint32_t Take(unsigned bits) {
    const std::uint32_t value = Peek(bits);
    Drop(bits);
    return value;
  }

  // Refill() and Take().
  std::uint32_t Bits(unsigned bits) {
    Refill();
    return Take(bits);
  }

  // Goes to the next byte's edge.
  void Align() { Drop(cursor_.count & 7); }

  // Up to `most` bytes from a byte's edge on, as they stand in the source; none at its end.
  std::span<const std::uint8_t> Bytes(std::size_t most);

  // For a loop that keeps the cursor in registers; it puts it back when it is done.
  const BitCursor& cursor() const { return cursor_; }
  void SetCursor(const BitCursor& cursor) { cursor_ = cursor; }

  // Lays kPiece bytes before the cursor in one piece, if the source has as many.
  static constexpr std::ptrdiff_t kPiece = 16;
  void Join();

 private:
  void RefillBytes();
  bool NextBlock();

  BlockSource& source_;
  BitCursor cursor_;
  // The end of one block with the start of the next; the cursor leaves it for the block behind.
  std::uint8_t joint_[3 * kPiece];
  std::ptrdiff_t carried_ = 0;  // bytes in joint_ that are of the block before
  std::span<const std::uint8_t> block_;
  bool inJoint_ = false;
  std::uint8_t held_[8] = {};
  bool ok_ = true;
};

}  // namespace zeapi
