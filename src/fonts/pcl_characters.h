// The characters of a PCL soft font, as far as their measures go.
#pragma once

#include <cstdint>
#include <cstdio>
#include <map>

#include "fonts/pcl_font.h"

namespace zeapi {

// Bitmaps: the advance in quarter-dots, the box in dots. Scalable fonts: design units, no box.
struct PclCharacter {
  int advance;
  int top;     // of the box, above the baseline
  int height;  // 0 without a box
};

struct PclCharacters {
  std::map<std::uint16_t, PclCharacter> byCode;  // the font's codes
  int pitch = 0;        // what a character without an advance of its own advances by
  int masterUnits = 0;  // design units per em; 0 for bitmaps
};

// A soft font with everything in it that has a measure.
struct PclSoftFont {
  PclFont font;
  PclCharacters characters;
  std::uint32_t fileSize = 0;
};

// Reads the font at whose header command `stream` stands, and lists its descriptor (ReadPclFont).
// The class of the descriptor selects the layout of the characters; one whose layout is not known is
// as wide as the pitch. False when it is not a soft font, a part is cut short, or it has no
// characters.
bool ReadPclSoftFont(std::FILE* stream, PclSoftFont* softFont);

}  // namespace zeapi
