// Where the decoders take packed bytes from and put plain ones.
#pragma once

#include <cstdint>
#include <span>

namespace zeapi {

class BlockSource {
 public:
  virtual ~BlockSource() = default;
  // The next bytes, valid until the next call; none when there are no more.
  virtual std::span<const std::uint8_t> Next() = 0;
};

class BlockSink {
 public:
  virtual ~BlockSink() = default;
  // False when not all of it could be written.
  virtual bool Write(std::span<const std::uint8_t> bytes) = 0;
};

}  // namespace zeapi
