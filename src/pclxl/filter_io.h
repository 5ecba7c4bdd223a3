// What the byte filters of this folder read and write through: single bytes out of an open file,
// with bytes given back, and single bytes into the output queue, in blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>

#include "base/c_heap.h"
#include "output/ZeQue.h"

namespace zeapi::filter {

// Both read and write blocks have this size.
inline constexpr std::size_t kBlockSize = 1024;

// Bytes of an open file, from its current position on.
class PushBackReader {
 public:
  // Bytes that can be given back beyond what was read since; more than the longest look-ahead, which is for
  // a universal exit.
  static constexpr std::size_t kPushBackSize = 64;

  // Takes the buffers. Returns 0, 1 (no file) or 11. The file stays the caller's.
  Result Open(std::FILE* source);

  // Frees the buffers; nothing more can be read.
  void Close();

  // The next byte. At the end of the input it is 0 and AtEnd() is true: ask after every read.
  std::uint8_t Read() {
    if (depth_ != 0) return pushedBack_[--depth_];
    if (position_ == fill_ && !Refill()) return 0;
    return block_[position_++];
  }

  // Set by a read that finds nothing, cleared by whatever is given back.
  bool AtEnd() const { return atEnd_; }

  // Gives bytes back; they will be read again in their order. False, and nothing is given back,
  // when there is no room for them.
  bool PushBack(std::span<const std::uint8_t> bytes);
  bool PushBack(std::uint8_t byte) { return PushBack({&byte, 1}); }

  // What can be searched before Read() goes to the file again; Skip() takes some of it. Empty at
  // the end, and while bytes that were given back wait: then Read() tells.
  std::span<const std::uint8_t> AtHand();
  void Skip(std::size_t count) { position_ += count; }

  // True when the input ended because the file could not be read.
  bool Failed() const { return failed_; }

 private:
  bool Refill();

  std::FILE* source_ = nullptr;
  CHeapPtr<std::uint8_t[]> block_;
  std::size_t position_ = 0;
  std::size_t fill_ = 0;
  CHeapPtr<std::uint8_t[]> pushedBack_;  // a stack; the top is read next
  std::size_t depth_ = 0;
  bool atEnd_ = false;
  bool failed_ = false;
};

// Where a writer's blocks go.
class FilterSink {
 public:
  virtual ~FilterSink() = default;
  virtual void Take(std::span<const std::uint8_t> block) = 0;
};

// The output queue as a sink. A failed write shows in the context's `error`.
class QueueSink final : public FilterSink {
 public:
  explicit QueueSink(GenQueContext* ctx) : ctx_(ctx) {}
  void Take(std::span<const std::uint8_t> block) override {
    GenQueWrite(block.data(), static_cast<std::uint32_t>(block.size()), ctx_);
  }

 private:
  GenQueContext* ctx_;
};

// Hands bytes on in blocks of kBlockSize, the rest when it is closed.
class BlockWriter {
 public:
  // Takes the buffer. Returns 0 or 11.
  Result Open(FilterSink* sink);

  // Writes what is left and frees the buffer.
  void Close();

  void Write(std::uint8_t byte) {
    block_[fill_++] = byte;
    if (fill_ == kBlockSize) Flush();
  }
  void Write(std::span<const std::uint8_t> bytes);

 private:
  void Flush();

  FilterSink* sink_ = nullptr;
  CHeapPtr<std::uint8_t[]> block_;
  std::size_t fill_ = 0;
};

}  // namespace zeapi::filter
