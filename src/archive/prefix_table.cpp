#include "archive/prefix_table.h"

#include <algorithm>
#include <array>

namespace zeapi {
namespace {

constexpr std::size_t kMostSymbols = 288;

using Counts = std::array<std::uint16_t, kLongestCode + 1>;

Counts CountLengths(std::span<const std::uint8_t> lengths) {
  Counts counts = {};
  for (const std::uint8_t length : lengths) ++counts[length];
  counts[0] = 0;
  return counts;
}

unsigned LongestOf(const Counts& counts) {
  unsigned longest = kLongestCode;
  while (longest > 0 && counts[longest] == 0) --longest;
  return longest;
}

// What is left of the space of codes, in codes of the longest length; negative: too many codes.
int SpaceLeft(const Counts& counts) {
  int left = 1;
  for (unsigned length = 1; length <= kLongestCode; ++length) {
    left = left * 2 - counts[length];
    if (left < 0) return left;
  }
  return left;
}

// Bits of a table for the codes that begin like the next one of `length` bits: as few as hold all of
// them. `counts` has the codes that are still to come.
unsigned TableBits(const Counts& counts, unsigned length, unsigned longest, unsigned mainBits) {
  unsigned bits = length - mainBits;
  int left = 1 << bits;
  while (bits + mainBits < longest) {
    left -= counts[bits + mainBits];
    if (left <= 0) break;
    ++bits;
    left *= 2;
  }
  return bits;
}

// The next code of the same length, or with zeros appended the next longer one; codes are held with
// their first bit lowest.
std::uint32_t NextCode(std::uint32_t code, unsigned length) {
  std::uint32_t bit = 1U << (length - 1);
  while ((code & bit) != 0) bit >>= 1;
  return bit == 0 ? 0 : (code & (bit - 1)) | bit;
}

class Builder {
 public:
  Builder(const PrefixCode& code, std::span<std::uint32_t> table)
      : code_(code), table_(table), left_(CountLengths(code.lengths)) {}

  bool Build() {
    if (table_.size() < std::size_t{1} << code_.mainBits || !LengthsWillDo()) return false;
    Sort();
    FillMain();
    return FillOthers();
  }

 private:
  bool LengthsWillDo() {
    longest_ = LongestOf(left_);
    const int space = SpaceLeft(left_);
    return space == 0 || (space > 0 && code_.mayBeSparse && longest_ <= 1);
  }

  void Sort() {
    Counts starts = {};
    for (unsigned length = 1; length < kLongestCode; ++length)
      starts[length + 1] = static_cast<std::uint16_t>(starts[length] + left_[length]);
    for (std::size_t symbol = 0; symbol < code_.lengths.size(); ++symbol) {
      const std::uint8_t length = code_.lengths[symbol];
      if (length == 0) continue;
      sorted_[starts[length]++] = static_cast<std::uint16_t>(symbol);
      ++codes_;
    }
  }

  std::uint32_t Place(unsigned length) const {
    return code_.order == CodeOrder::kUp ? bits_ : ~bits_ & ((1U << length) - 1);
  }

  std::uint32_t Entry(std::uint16_t symbol, unsigned length) const {
    return code_.symbols[symbol] + length + (length << 8);
  }

  // The table for each length is the one for the length before, twice, and the codes of that length. So
  // at last each entry stands wherever the bits behind its code do not matter.
  void FillMain() {
    table_[0] = kEntrySpecial;
    for (unsigned length = 1; length <= code_.mainBits; ++length) {
      const auto half = static_cast<std::ptrdiff_t>(std::size_t{1} << (length - 1));
      std::copy(table_.begin(), table_.begin() + half, table_.begin() + half);
      for (; left_[length] > 0; --left_[length]) {
        table_[Place(length)] = Entry(sorted_[next_++], length);
        bits_ = NextCode(bits_, length);
      }
    }
  }

  // Codes that begin alike follow one another.
  bool FillOthers() {
    std::size_t used = std::size_t{1} << code_.mainBits;
    std::span<std::uint32_t> current;
    std::uint32_t currentStart = 0;
    while (next_ < codes_) {
      const std::uint16_t symbol = sorted_[next_++];
      const unsigned length = code_.lengths[symbol];
      const std::uint32_t place = Place(length);
      const std::uint32_t start = place & ((1U << code_.mainBits) - 1);
      if (current.empty() || start != currentStart) {
        const unsigned bits = TableBits(left_, length, longest_, code_.mainBits);
        const std::size_t size = std::size_t{1} << bits;
        if (table_.size() - used < size) return false;
        current = table_.subspan(used, size);
        currentStart = start;
        table_[start] = static_cast<std::uint32_t>(used) << 16 | kEntrySpecial | kEntryTable |
                        bits << 8 | code_.mainBits;
        used += size;
      }
      const unsigned rest = length - code_.mainBits;
      for (std::size_t i = place >> code_.mainBits; i < current.size(); i += std::size_t{1} << rest)
        current[i] = Entry(symbol, rest);
      --left_[length];
      bits_ = NextCode(bits_, length);
    }
    return true;
  }

  const PrefixCode& code_;
  std::span<std::uint32_t> table_;
  Counts left_;  // codes of each length that are not in the table yet
  std::array<std::uint16_t, kMostSymbols> sorted_;
  std::size_t codes_ = 0;
  std::size_t next_ = 0;    // in sorted_
  std::uint32_t bits_ = 0;  // the next code, as an index of kUp
  unsigned longest_ = 0;
};

}  // namespace

bool BuildPrefixTable(const PrefixCode& code, std::span<std::uint32_t> table) {
  return Builder(code, table).Build();
}

}  // namespace zeapi
