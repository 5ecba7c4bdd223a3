// The font descriptor of a PCL soft font: the first 64 bytes of its header.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zeapi {

// As it stands in the file: numbers most significant byte first, but for the typeface.
using PclRawDescriptor = std::array<std::uint8_t, 64>;

// The fields that the library uses, in host order.
struct PclDescriptor {
  std::uint16_t size = 0;  // of the descriptor, in bytes
  std::uint8_t headerFormat = 0;
  std::uint8_t fontType = 0;
  std::uint16_t style = 0;     // style word; bits 0-1 are the posture
  std::uint16_t baseline = 0;  // dots, like the cell; of a scalable font its units
  std::uint16_t cellHeight = 0;
  std::uint8_t orientation = 0;    // 0 portrait
  std::uint8_t spacing = 0;        // 0 fixed; bit 0 proportional
  std::uint16_t symbolSet = 0;     // number * 32 + letter - 64
  std::uint16_t pitch = 0;         // quarter-dots; of a scalable font its units, of the space
  std::uint16_t height = 0;        // quarter-dots
  std::uint16_t xHeight = 0;       // quarter-dots; of a scalable font its units
  std::int8_t strokeWeight = 0;    // -7 to 7
  std::uint16_t typeface = 0;      // typeface word
  std::uint8_t pitchExtended = 0;  // 1/256 of the pitch's unit
  std::uint8_t heightExtended = 0;
  std::uint16_t capHeight = 0;          // of a scalable font, its units
  std::int8_t underlinePosition = 0;    // dots above the baseline
  std::uint8_t underlineThickness = 0;  // dots
  std::uint8_t vendorLetter = 0;        // of the font number, 7 bits
  std::uint32_t fontNumber = 0;         // 24 bits
  char name[17] = {};                   // 16 bytes as they are, and a terminator

  std::uint16_t TypefaceNumber() const { return typeface & 0x1FF; }
};

PclDescriptor ParsePclDescriptor(const PclRawDescriptor& raw);

}  // namespace zeapi
