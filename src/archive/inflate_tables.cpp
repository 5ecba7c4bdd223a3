#include "archive/inflate_tables.h"

#include <algorithm>

namespace zeapi {
namespace {

constexpr unsigned kMostLiterals = 286;
constexpr unsigned kMostDistances = 30;

struct Repeat {
  unsigned least;
  unsigned extraBits;
};
constexpr Repeat kRepeats[] = {{3, 2}, {3, 3}, {11, 7}};  // symbols 16, 17 and 18
constexpr unsigned kRepeatPrevious = 16;

}  // namespace

bool InflateTables::Build(std::span<const std::uint8_t> literals,
                          std::span<const std::uint8_t> distances) {
  fixed_ = false;
  const PrefixCode literalCode = {literals, kDeflateLiteralEntries, kLiteralBits, CodeOrder::kUp,
                                  true};
  const PrefixCode distanceCode = {distances, kDeflateDistanceEntries, kDistanceBits,
                                   CodeOrder::kUp, true};
  return BuildPrefixTable(literalCode, literals_) && BuildPrefixTable(distanceCode, distances_);
}

void InflateTables::UseFixed() {
  if (fixed_) return;
  Lengths lengths;
  const auto at = lengths.begin();
  std::fill(at, at + 144, std::uint8_t{8});
  std::fill(at + 144, at + 256, std::uint8_t{9});
  std::fill(at + 256, at + 280, std::uint8_t{7});
  std::fill(at + 280, at + kDeflateLiterals, std::uint8_t{8});
  std::fill(at + kDeflateLiterals, lengths.end(), std::uint8_t{5});
  const std::span<const std::uint8_t> all(lengths);
  Build(all.first(kDeflateLiterals), all.subspan(kDeflateLiterals));
  fixed_ = true;
}

bool InflateTables::Read(BitReader& bits) {
  bits.Refill();
  const unsigned literalCount = bits.Take(5) + 257;
  const unsigned distanceCount = bits.Take(5) + 1;
  const unsigned lengthCount = bits.Take(4) + 4;
  if (literalCount > kMostLiterals || distanceCount > kMostDistances) return false;
  std::array<std::uint8_t, kDeflateCodeLengths> ownLengths = {};
  for (unsigned i = 0; i < lengthCount; ++i)
    ownLengths[kDeflateLengthOrder[i]] = static_cast<std::uint8_t>(bits.Bits(3));
  const PrefixCode ownCode = {ownLengths, kDeflateLengthEntries, kLengthBits};
  if (!BuildPrefixTable(ownCode, lengthCode_)) return false;

  Lengths lengths;
  if (!ReadLengths(bits, &lengths, literalCount + distanceCount)) return false;
  if (lengths[kDeflateEndOfBlock] == 0) return false;
  const std::span<const std::uint8_t> all(lengths);
  return Build(all.first(literalCount), all.subspan(literalCount, distanceCount));
}

// One list for both codes: a repeat may run from the first into the second.
bool InflateTables::ReadLengths(BitReader& bits, Lengths* lengths, unsigned count) {
  for (unsigned have = 0; have < count;) {
    bits.Refill();
    const std::uint32_t entry = lengthCode_[bits.Peek(kLengthBits)];
    bits.Drop(EntryDrop(entry));
    const unsigned symbol = EntryValue(entry);
    if (symbol < kRepeatPrevious) {
      (*lengths)[have++] = static_cast<std::uint8_t>(symbol);
      continue;
    }
    const Repeat& repeat = kRepeats[symbol - kRepeatPrevious];
    const unsigned times = repeat.least + bits.Take(repeat.extraBits);
    if (!bits.ok() || times > count - have) return false;
    if (symbol == kRepeatPrevious && have == 0) return false;
    const std::uint8_t length = symbol == kRepeatPrevious ? (*lengths)[have - 1] : std::uint8_t{0};
    std::fill_n(lengths->begin() + have, times, length);
    have += times;
  }
  return bits.ok();
}

}  // namespace zeapi
