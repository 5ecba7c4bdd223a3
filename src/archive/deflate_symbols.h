// What the symbols of Deflate mean (RFC 1951, 3.2.5 and 3.2.7), as entries of its tables.
#pragma once

#include <array>

#include "archive/prefix_table.h"

namespace zeapi {

inline constexpr unsigned kDeflateLiterals = 288;
inline constexpr unsigned kDeflateDistances = 32;
inline constexpr unsigned kDeflateCodeLengths = 19;
inline constexpr unsigned kDeflateEndOfBlock = 256;

// The order in which a block states the lengths of the code for its code lengths.
inline constexpr std::array<std::uint8_t, kDeflateCodeLengths> kDeflateLengthOrder = {
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

constexpr std::array<std::uint32_t, kDeflateLiterals> DeflateLiteralEntries() {
  std::array<std::uint32_t, kDeflateLiterals> entries = {};
  for (unsigned literal = 0; literal < 256; ++literal)
    entries[literal] = SymbolEntry(literal, 0, kEntryLiteral);
  entries[kDeflateEndOfBlock] = SymbolEntry(0, 0, kEntrySpecial | kEntryEnd);
  unsigned length = 3;
  for (unsigned symbol = 257; symbol < 285; ++symbol) {
    const unsigned extraBits = symbol < 265 ? 0 : (symbol - 261) / 4;
    entries[symbol] = SymbolEntry(length, extraBits);
    length += 1U << extraBits;
  }
  entries[285] = SymbolEntry(258, 0);
  entries[286] = entries[287] = kEntrySpecial;
  return entries;
}

constexpr std::array<std::uint32_t, kDeflateDistances> DeflateDistanceEntries() {
  std::array<std::uint32_t, kDeflateDistances> entries = {};
  unsigned distance = 1;
  for (unsigned symbol = 0; symbol < 30; ++symbol) {
    const unsigned extraBits = symbol < 4 ? 0 : symbol / 2 - 1;
    entries[symbol] = SymbolEntry(distance, extraBits);
    distance += 1U << extraBits;
  }
  entries[30] = entries[31] = kEntrySpecial;
  return entries;
}

inline constexpr auto kDeflateLiteralEntries = DeflateLiteralEntries();
inline constexpr auto kDeflateDistanceEntries = DeflateDistanceEntries();

// The code lengths' own code: symbols 0 to 18 as they are.
constexpr std::array<std::uint32_t, kDeflateCodeLengths> DeflateLengthEntries() {
  std::array<std::uint32_t, kDeflateCodeLengths> entries = {};
  for (unsigned symbol = 0; symbol < kDeflateCodeLengths; ++symbol)
    entries[symbol] = SymbolEntry(symbol, 0);
  return entries;
}
inline constexpr auto kDeflateLengthEntries = DeflateLengthEntries();

}  // namespace zeapi
