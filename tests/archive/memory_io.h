// Decoders fed from memory, in blocks of odd sizes.
#pragma once

#include <algorithm>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "archive/block_io.h"
#include "archive/window.h"

namespace zeapi::testing {

inline std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Each block stands in memory of its own, so that a sanitizer sees every read beyond it.
class MemorySource : public BlockSource {
 public:
  // Blocks of at most `most` bytes, of random sizes for a seed that is not 0.
  explicit MemorySource(std::string_view packed, std::size_t most = 2048, unsigned seed = 0)
      : rest_(packed), most_(most), random_(seed), odd_(seed != 0) {}

  std::span<const std::uint8_t> Next() override {
    std::size_t size = std::min(most_, rest_.size());
    if (odd_ && size > 1) size = 1 + random_() % size;
    block_.reset(new std::uint8_t[size]);
    std::copy_n(rest_.begin(), size, block_.get());
    rest_.remove_prefix(size);
    return {block_.get(), size};
  }

  std::size_t left() const { return rest_.size(); }

 private:
  std::string_view rest_;
  std::size_t most_;
  std::minstd_rand random_;
  bool odd_;
  std::unique_ptr<std::uint8_t[]> block_;
};

class MemorySink : public BlockSink {
 public:
  explicit MemorySink(std::size_t room = SIZE_MAX) : room_(room) {}

  bool Write(std::span<const std::uint8_t> bytes) override {
    ++writes;
    if (bytes.size() > room_ - text.size()) return false;
    text.append(bytes.begin(), bytes.end());
    return true;
  }

  std::string text;
  int writes = 0;

 private:
  std::size_t room_;
};

// A window with its memory, and the sink behind it.
struct MemoryWindow {
  explicit MemoryWindow(std::size_t room = SIZE_MAX)
      : sink(room),
        bytes(new std::uint8_t[Window::kSize]),
        window(std::span<std::uint8_t, Window::kSize>(bytes.get(), Window::kSize), sink) {}

  MemorySink sink;
  std::unique_ptr<std::uint8_t[]> bytes;
  Window window;
};

}  // namespace zeapi::testing
