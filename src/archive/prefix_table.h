// Look-up tables for the codes of Deflate and Implode, in which no code begins another.
//
// A table has 2^mainBits entries, indexed by the next bits of the data; codes longer than that lead to
// a table of their own behind it, indexed by the bits that follow. An entry:
//
//   bits 0-7    bits to drop: those of the code and the extra bits behind it
//   bits 8-11   those of the code alone
//   bit 13      end of the block (kEntryEnd)
//   bit 14      leads to a table (kEntryTable), whose start is in bits 16-30 and whose index has as
//               many bits as bits 8-11 say
//   bit 15      anything but a value (kEntrySpecial); without bits 13 and 14: no such code
//   bits 16-30  the value of the symbol: a literal, or the least length or distance
//   bit 31      the value is a literal (kEntryLiteral)
#pragma once

#include <cstdint>
#include <span>

namespace zeapi {

inline constexpr std::uint32_t kEntryEnd = 1U << 13;
inline constexpr std::uint32_t kEntryTable = 1U << 14;
inline constexpr std::uint32_t kEntrySpecial = 1U << 15;
inline constexpr std::uint32_t kEntryLiteral = 1U << 31;

constexpr unsigned EntryDrop(std::uint32_t entry) { return entry & 0xFF; }
constexpr unsigned EntryCodeBits(std::uint32_t entry) { return entry >> 8 & 0xF; }
constexpr std::uint32_t EntryValue(std::uint32_t entry) { return entry >> 16 & 0x7FFF; }

// What the entries of a symbol have in common; its extra bits are counted in the low byte.
constexpr std::uint32_t SymbolEntry(std::uint32_t value, unsigned extraBits,
                                    std::uint32_t flags = 0) {
  return value << 16 | extraBits | flags;
}

enum class CodeOrder {
  kUp,    // Deflate: shorter codes first, counting up from zeros
  kDown,  // Implode: the same codes with every bit the other way round
};

inline constexpr unsigned kLongestCode = 16;

struct PrefixCode {
  std::span<const std::uint8_t> lengths;   // bits of each symbol's code; 0: it has none
  std::span<const std::uint32_t> symbols;  // SymbolEntry of each
  unsigned mainBits;
  CodeOrder order = CodeOrder::kUp;
  bool mayBeSparse = false;  // one code of one bit, or none at all, will do
};

// False when the lengths make no code in which every sequence of bits means something, or when the
// table has not enough entries.
bool BuildPrefixTable(const PrefixCode& code, std::span<std::uint32_t> table);

}  // namespace zeapi
