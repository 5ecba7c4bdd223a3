// Windows printer font metrics as they are read to be turned into an AFM file.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "fonts/afm_reader.h"

namespace zeapi {

struct PfmMetrics {
  std::string copyright;
  std::uint16_t ascent = 0;
  std::uint16_t weight = 0;
  std::uint8_t characterSet = 0;  // 0: Windows codes
  std::uint8_t pitchAndFamily = 0;
  std::uint16_t averageWidth = 0;
  std::uint16_t maximumWidth = 0;
  std::uint8_t first = 0;
  std::uint8_t last = 0;
  bool hasFace = false;
  std::string face;
  std::string name;  // of the PostScript font
  std::uint16_t capHeight = 0;
  std::uint16_t xHeight = 0;
  std::uint16_t lowerCaseAscent = 0;
  std::uint16_t lowerCaseDescent = 0;          // below the baseline positive
  std::array<std::uint16_t, 256> widths = {};  // 0 outside first to last
  bool hasKerning = false;
  std::vector<AfmKernPair> kernPairs;
};

// Reads the file at whose start `stream` stands. What it has none of (an offset of 0) is empty or
// zero; without an extent table every character is as wide as the average. False when the file is
// not valid or an offset leads out of it.
bool ReadPfmMetrics(std::FILE* stream, PfmMetrics* metrics);

}  // namespace zeapi
