// Intellifont metrics made to measure.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zeapi::testing {

// Intellifont metrics with a directory of tags, in either byte order.
struct TfmFile {
  bool bigEndian = false;
  std::string typeface = "Univers";
  std::string source = "AGFA";
  std::uint16_t symbolType = 0;                       // 0 numbers of the symbol list, 2 Unicode
  std::vector<std::uint16_t> symbols = {34, 67, 99};  // A, a, Agrave
  std::vector<std::uint16_t> escapements = {6000, 5000, 6001};
  std::uint32_t units = 8782;
  std::uint8_t strokeWeight = 120;  // medium
  std::uint16_t spacing = 0;        // 0 proportional
  std::int16_t slant = 0;           // hundredths of a degree
  std::string symbolSet = "8U";     // the one set of the directory
  // Row by code; by default A, a and Agrave at their places in Roman-8.
  std::vector<std::pair<unsigned, std::uint16_t>> rows = {{65, 0}, {97, 1}, {161, 2}};
  struct Pair {
    std::uint16_t first;
    std::uint16_t second;
    std::int16_t amount;
  };
  std::vector<Pair> pairs = {{0, 1, -300}};
  std::vector<std::uint16_t> without;  // tags to leave out

  std::string File() const;
};

}  // namespace zeapi::testing
