// Windows metrics: files for conversion 3, and a look at those that the library wrote.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/fonts.h"

namespace zeapi::testing {

// A complete file of a PostScript font: header, extension, extended metrics, names, tables.
struct PostScriptPfm {
  std::string copyright = "(c) Nobody";
  std::string name = "Test-Bold";
  std::string face = "Test";
  std::uint16_t ascent = 700;
  std::uint16_t weight = 400;
  std::uint8_t charSet = 0;
  std::uint8_t pitchAndFamily = 0x11;
  std::uint16_t averageWidth = 500;
  std::uint16_t maximumWidth = 900;
  std::uint8_t first = 32;
  std::uint8_t last = 255;
  std::map<unsigned, std::uint16_t> widths;  // by code; others 0
  bool hasExtents = true;
  struct Pair {
    std::uint8_t first;
    std::uint8_t second;
    std::int16_t amount;
  };
  bool hasKerning = false;
  std::vector<Pair> pairs;
  std::uint16_t capHeight = 662;
  std::uint16_t xHeight = 450;
  std::uint16_t lowerCaseAscent = 683;
  std::uint16_t lowerCaseDescent = 217;
  std::size_t gap = 0;  // bytes between the extent table and the kerning

  std::string File() const;
};

// Reads fields of a file; what lies outside it reads as a failure of the test.
class MetricsView {
 public:
  explicit MetricsView(std::string bytes) : bytes_(std::move(bytes)) {}

  unsigned U8(std::size_t offset) const;
  unsigned U16(std::size_t offset) const;
  int S16(std::size_t offset) const;
  unsigned U32(std::size_t offset) const;
  std::string Text(std::size_t offset) const;  // up to its terminator

  std::string Device() const { return Text(U32(101)); }
  std::string Face() const { return Text(U32(105)); }
  bool HasWidthTable() const;
  std::size_t Extension() const;  // its offset
  std::size_t Extended() const { return U32(Extension() + 2); }
  int ExtendedField(std::size_t offset) const { return S16(Extended() + offset); }
  unsigned Extent(unsigned code) const;
  unsigned Width(unsigned code) const;  // of the width table
  std::vector<PostScriptPfm::Pair> Pairs() const;
  std::size_t DriverInfo() const { return U32(Extension() + 22); }
  std::string Selection() const { return Text(U32(DriverInfo() + 8)); }

  // The size is the file's, the face name is where readers look for it, all offsets lie inside.
  ::testing::AssertionResult IsWellFormed() const;

 private:
  std::string bytes_;
};

inline bool operator==(const PostScriptPfm::Pair& a, const PostScriptPfm::Pair& b) {
  return a.first == b.first && a.second == b.second && a.amount == b.amount;
}

}  // namespace zeapi::testing
