// PCL soft fonts with characters, one for each header format.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/fonts.h"

namespace zeapi::testing {

// A whole soft font: the header command with its true count, the header, the characters in the order
// in which they were added.
//
//   SoftFont font(0);              // header format 0, 5, 9, 10, 11, 12, 15 or 20
//   font.descriptor.spacing = 1;   // any field of the descriptor
//   font.AddBitmap(65, 160, 30, 24, 30);
//   WriteFile("font.sfp", font.File());
class SoftFont {
 public:
  explicit SoftFont(std::uint8_t headerFormat);

  // A character of a bitmap: its code, its advance in quarter-dots, the top of its box above the
  // baseline, the box's width and height in dots. The pattern is one of stripes.
  void AddBitmap(unsigned code, int advance, int top, unsigned width, unsigned height);
  // Of the layouts of header formats 5, 9 and 12 nothing but the block's beginning is known.
  void AddOld(unsigned code, unsigned format);
  // An Intellifont outline whose escapement box goes from left to right; one made of components.
  void AddOutline(unsigned code, int left, int right);
  void AddCompound(unsigned code, int escapement);
  // A TrueType glyph; its advance stands in the header.
  void AddGlyph(unsigned code, unsigned glyph);
  // A block as it is, for the code of the last character command.
  void AddBlock(const std::string& block);
  void AddRaw(const std::string& bytes) { characters_ += bytes; }

  // Big-endian fields of the descriptor that it has no name for, by their offset.
  void Set8(std::size_t offset, unsigned value);
  void Set16(std::size_t offset, unsigned value);

  std::string File() const;

  PclFontFile descriptor;
  // What the header has behind the first 64 bytes. Formats 10, 11 and 15 begin it with 8782 or 2048
  // design units per em.
  std::string header;
  std::vector<std::uint16_t> glyphAdvances = {0, 1024, 2048};  // format 15

 private:
  void AddCode(unsigned code);
  std::string Header() const;

  std::vector<std::pair<std::size_t, std::string>> patches_;
  std::string characters_;
};

// The segments of a format 15 header and its last two bytes: a TrueType font cut down to the tables
// that tell how far its glyphs advance.
std::string TrueTypeSegments(const std::vector<std::uint16_t>& advances);

}  // namespace zeapi::testing
