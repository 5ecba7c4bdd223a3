// The data begins with the lengths of two or three codes, then comes a bit for each literal (1) or
// match (0). A literal is a code or, without such a code, 8 bits. A match is the low bits of its
// distance, the code of the high bits, and the code of its length, the greatest of which is followed
// by 8 bits to be added.
#include "archive/unimplode.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "archive/bit_reader.h"
#include "archive/prefix_table.h"

namespace zeapi {
namespace {

constexpr unsigned kLiterals = 256;
constexpr unsigned kLengths = 64;
constexpr unsigned kDistances = 64;
constexpr unsigned kLiteralBits = 9;
constexpr unsigned kLengthBits = 7;
constexpr unsigned kDistanceBits = 7;
constexpr unsigned kLargeDistanceBits = 8;
constexpr std::uint64_t kLargeMember = 200000;
// The tables behind the main one follow one another by the lengths of their codes: none has more entries
// than the next one has codes, but the last, which has at most those of its index.
constexpr std::size_t MostEntries(unsigned indexBits, unsigned symbols) {
  return (std::size_t{1} << indexBits) + symbols + (std::size_t{1} << (kLongestCode - indexBits));
}
constexpr std::size_t kLiteralEntries = MostEntries(kLiteralBits, kLiterals);
constexpr std::size_t kSmallEntries =
    std::max(MostEntries(kLengthBits, kLengths), MostEntries(kLargeDistanceBits, kDistances));

constexpr std::array<std::uint32_t, kLiterals> SymbolEntries() {
  std::array<std::uint32_t, kLiterals> entries = {};
  for (unsigned symbol = 0; symbol < kLiterals; ++symbol) entries[symbol] = SymbolEntry(symbol, 0);
  return entries;
}
constexpr auto kSymbols = SymbolEntries();

class Unimploder {
 public:
  Unimploder(BlockSource& source, std::uint64_t packedSize, std::uint64_t size, Window& window)
      : bits_(source),
        window_(window),
        size_(size),
        distanceBits_(packedSize > kLargeMember ? kLargeDistanceBits : kDistanceBits) {}

  UnimplodeResult Run(ImplodeForm form) {
    if (form.literalTree && !ReadTree(kLiterals, kLiteralBits, literals_)) return kUnimplodeBadTree;
    if (!ReadTree(kLengths, kLengthBits, lengths_)) return kUnimplodeBadTree;
    if (!ReadTree(kDistances, distanceBits_, distances_)) return kUnimplodeBadTree;
    if (form.literalTree)
      form.largeWindow ? Loop<true, 7>() : Loop<true, 6>();
    else
      form.largeWindow ? Loop<false, 7>() : Loop<false, 6>();
    if (!bits_.ok()) return kUnimplodeOtherSize;
    bits_.Align();
    return bits_.Bytes(1).empty() ? kUnimploded : kUnimplodeOtherSize;
  }

 private:
  // A byte with the number of runs less one; each run is a byte with the length of its codes less one
  // and, above that, the number of its symbols less one.
  bool ReadTree(unsigned symbols, unsigned mainBits, std::span<std::uint32_t> table) {
    std::array<std::uint8_t, kLiterals> lengths;
    unsigned have = 0;
    for (unsigned runs = bits_.Bits(8) + 1; runs > 0; --runs) {
      bits_.Refill();
      const auto length = static_cast<std::uint8_t>(bits_.Take(4) + 1);
      const unsigned count = bits_.Take(4) + 1;
      if (!bits_.ok() || count > symbols - have) return false;
      std::fill_n(lengths.begin() + have, count, length);
      have += count;
    }
    if (have != symbols) return false;
    const PrefixCode code = {std::span(lengths).first(symbols), std::span(kSymbols).first(symbols),
                             mainBits, CodeOrder::kDown};
    return BuildPrefixTable(code, table);
  }

  unsigned Symbol(std::span<const std::uint32_t> table, unsigned mainBits) {
    std::uint32_t entry = table[bits_.Peek(mainBits)];
    if ((entry & kEntryTable) != 0) {
      bits_.Drop(EntryDrop(entry));
      entry = table[EntryValue(entry) + bits_.Peek(EntryCodeBits(entry))];
    }
    bits_.Drop(EntryDrop(entry));
    return EntryValue(entry);
  }

  template <bool literalTree, unsigned lowBits>
  void Loop() {
    constexpr unsigned kLeastLength = literalTree ? 3 : 2;
    while (window_.total() < size_ && window_.ok()) {
      // A match takes 1 + 7 + 16 + 16 + 8 bits at most.
      bits_.Refill();
      if (bits_.Take(1) != 0) {
        const unsigned byte = literalTree ? Symbol(literals_, kLiteralBits) : bits_.Take(8);
        if (!bits_.ok()) return;
        window_.Put(static_cast<std::uint8_t>(byte));
        continue;
      }
      const std::size_t low = bits_.Take(lowBits);
      const std::size_t distance =
          (std::size_t{Symbol(distances_, distanceBits_)} << lowBits | low) + 1;
      const unsigned symbol = Symbol(lengths_, kLengthBits);
      std::size_t length = symbol + kLeastLength;
      if (symbol == kLengths - 1) length += bits_.Take(8);
      if (!bits_.ok()) return;
      window_.Copy(distance, static_cast<std::size_t>(
                                 std::min<std::uint64_t>(length, size_ - window_.total())));
    }
  }

  BitReader bits_;
  Window& window_;
  std::uint64_t size_;
  unsigned distanceBits_;
  std::array<std::uint32_t, kLiteralEntries> literals_;
  std::array<std::uint32_t, kSmallEntries> lengths_;
  std::array<std::uint32_t, kSmallEntries> distances_;
};

}  // namespace

UnimplodeResult Unimplode(BlockSource& source, ImplodeForm form, std::uint64_t packedSize,
                          std::uint64_t size, Window& window) {
  const std::unique_ptr<Unimploder> unimploder(new (std::nothrow)
                                                   Unimploder(source, packedSize, size, window));
  if (unimploder == nullptr) return kUnimplodeNoMemory;
  const UnimplodeResult result = unimploder->Run(form);
  window.Flush();
  return result;
}

ArchiveStatus StatusOf(UnimplodeResult result) {
  switch (result) {
    case kUnimploded:
    case kUnimplodeOtherSize:
      return kArchiveOk;
    case kUnimplodeNoMemory:
      return kArchiveNoMemory;
    default:
      return kArchiveBad;
  }
}

}  // namespace zeapi
