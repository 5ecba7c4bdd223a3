// Intellifont metrics: tagged font metrics (TFM files of PCL printers).
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace zeapi {

// A pair of rows and what they move together by, in design units.
struct IntellifontKernPair {
  std::uint16_t first;
  std::uint16_t second;
  std::int16_t amount;
};

// What a file says of its first typeface. Each character is a row of the arrays; measures are in
// design units. What is missing is 0 or empty.
struct IntellifontMetrics {
  std::string typeface;
  std::string vendor;  // "VGC", "ITC", "LSC" or "L&C"; empty for others
  std::uint32_t unitsPerEm = 0;
  int posture = 0;       // 0 upright
  int slant = 0;         // hundredths of a degree
  int structure = 0;     // of the PCL style word
  int appearance = 0;    // width class of the PCL style word
  int strokeWeight = 0;  // -7 to 7
  bool fixedPitch = false;
  int serifStyle = 0;
  int typefaceNumber = 0;  // of PCL
  int wordSpacing = 0;
  int capHeight = 0;
  int xHeight = 0;
  int ascent = 0;
  int descent = 0;
  int lowerCaseAscent = 0;
  int lowerCaseDescent = 0;
  int underscoreDepth = 0;
  int underscoreThickness = 0;
  std::vector<std::uint16_t> escapements;
  std::vector<IntellifontKernPair> kernPairs;

  bool hasUnicode = false;             // in symbols; else numbers of the master symbol list
  std::vector<std::uint16_t> symbols;  // by row
  // Rows by code of the symbol set that was asked for; kNoRow for a code without a character.
  std::vector<std::uint16_t> rows;
  bool hasSymbolSet = false;
};

inline constexpr std::uint16_t kNoRow = 0xFFFF;

// Reads the file at whose start `stream` stands, with the symbol set of a code text such as "8U" (may
// be empty). False when it is not such a file, lacks a name, the em or the widths, or has more rows
// than numbers below kNoRow can tell.
bool ReadIntellifont(std::FILE* stream, std::string_view symbolSet, IntellifontMetrics* metrics);

}  // namespace zeapi
