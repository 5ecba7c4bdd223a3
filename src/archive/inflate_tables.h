// The two codes of a Deflate block.
#pragma once

#include <array>

#include "archive/bit_reader.h"
#include "archive/deflate_symbols.h"

namespace zeapi {

class InflateTables {
 public:
  static constexpr unsigned kLiteralBits = 11;
  static constexpr unsigned kDistanceBits = 8;

  // The codes that every reader knows.
  void UseFixed();

  // The codes that a block states at its start; false when they are no good.
  bool Read(BitReader& bits);

  const std::uint32_t* literals() const { return literals_.data(); }
  const std::uint32_t* distances() const { return distances_.data(); }

 private:
  // The most entries that any code needs with so many symbols and bits; longer ones are refused.
  static constexpr std::size_t kLiteralEntries = 2342;
  static constexpr std::size_t kDistanceEntries = 402;
  static constexpr unsigned kLengthBits = 7;

  using Lengths = std::array<std::uint8_t, kDeflateLiterals + kDeflateDistances>;

  bool ReadLengths(BitReader& bits, Lengths* lengths, unsigned count);
  bool Build(std::span<const std::uint8_t> literals, std::span<const std::uint8_t> distances);

  std::array<std::uint32_t, kLiteralEntries> literals_;
  std::array<std::uint32_t, kDistanceEntries> distances_;
  std::array<std::uint32_t, std::size_t{1} << kLengthBits> lengthCode_;
  bool fixed_ = false;
};

}  // namespace zeapi
