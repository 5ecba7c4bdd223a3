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
      : code_(code), table_(table), counts_(CountLengths(code.lengths)), left_(counts_) {}

  bool Build() {
    if (!LengthsWillDo()) return false;
    Sort();
    used_ = std::size_t{1} << code_.mainBits;
    if (used_ > table_.size()) return false;
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < codes_; ++i) {
      const std::uint16_t symbol = sorted_[i];
      const unsigned length = code_.lengths[symbol];
      if (!Enter(bits, length, code_.symbols[symbol])) return false;
      --left_[length];
      bits = NextCode(bits, length);
    }
    return true;
  }

 private:
  bool LengthsWillDo() {
    longest_ = LongestOf(counts_);
    const int left = SpaceLeft(counts_);
    if (left == 0) return true;
    if (left < 0 || !code_.mayBeSparse || longest_ > 1) return false;
    std::fill(table_.begin(), table_.end(), kEntrySpecial);
    return true;
  }

  void Sort() {
    Counts starts = {};
    for (unsigned length = 1; length < kLongestCode; ++length)
      starts[length + 1] = static_cast<std::uint16_t>(starts[length] + counts_[length]);
    for (std::size_t symbol = 0; symbol < code_.lengths.size(); ++symbol) {
      const std::uint8_t length = code_.lengths[symbol];
      if (length == 0) continue;
      sorted_[starts[length]++] = static_cast<std::uint16_t>(symbol);
      ++codes_;
    }
  }

  bool Enter(std::uint32_t bits, unsigned length, std::uint32_t symbol) {
    if (code_.order == CodeOrder::kDown) bits = ~bits & ((1U << length) - 1);
    if (length <= code_.mainBits) {
      Fill(table_.first(std::size_t{1} << code_.mainBits), bits, length, symbol);
      return true;
    }
    const std::uint32_t prefix = bits & ((1U << code_.mainBits) - 1);
    if (!haveTable_ || prefix != tablePrefix_) {
      const unsigned size = TableBits(left_, length, longest_, code_.mainBits);
      if (table_.size() - used_ < std::size_t{1} << size) return false;
      haveTable_ = true;
      tablePrefix_ = prefix;
      current_ = table_.subspan(used_, std::size_t{1} << size);
      table_[prefix] = static_cast<std::uint32_t>(used_) << 16 | kEntrySpecial | kEntryTable |
                       size << 8 | code_.mainBits;
      used_ += current_.size();
    }
    Fill(current_, bits >> code_.mainBits, length - code_.mainBits, symbol);
    return true;
  }

  static void Fill(std::span<std::uint32_t> table, std::uint32_t bits, unsigned length,
                   std::uint32_t symbol) {
    const std::uint32_t entry = symbol + length + (length << 8);
    for (std::size_t i = bits; i < table.size(); i += std::size_t{1} << length) table[i] = entry;
  }

  const PrefixCode& code_;
  std::span<std::uint32_t> table_;
  std::span<std::uint32_t> current_;
  Counts counts_;
  Counts left_;
  std::array<std::uint16_t, kMostSymbols> sorted_;
  std::size_t codes_ = 0;
  std::size_t used_ = 0;
  unsigned longest_ = 0;
  std::uint32_t tablePrefix_ = 0;
  bool haveTable_ = false;
};

}  // namespace

bool BuildPrefixTable(const PrefixCode& code, std::span<std::uint32_t> table) {
  return Builder(code, table).Build();
}

}  // namespace zeapi
