// DLF download fonts: their header and their readable description.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace zeapi {

// Of an inch: what the divisor of a pitch divides.
inline constexpr std::uint32_t kDlfPitchUnits = 72000;

struct DlfFont {
  bool referenced = false;  // the short form, which refers to a font that the printer has
  bool fixedPitch = false;
  bool ps = false;  // of proportional fonts: "PS", else "Typo"
  std::uint16_t codePage = 0;
  std::uint32_t points = 0;   // size times 100; 0 in a referenced fixed-pitch font
  std::uint32_t divisor = 0;  // 72000 divided by it are the characters per inch; 0 in a referenced
                              // proportional font
  char codePageLetter = ' ';
  char name[25] = {};
};

// Reads the font at which `stream` stands; false when it is not a DLF font.
bool ReadDlfFont(std::FILE* stream, DlfFont* font);

// Describes the DLF font at which `stream` stands, in at most `size` bytes with the terminator (at
// least 1). The description is empty when it is not a DLF font.
void DescribeDlfFont(std::FILE* stream, char* description, std::size_t size);

}  // namespace zeapi
