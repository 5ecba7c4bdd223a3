// Windows face names and families of PCL typefaces.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zeapi {

// Windows font families, the high nibble of a pitch-and-family byte.
enum FontFamily : std::uint8_t {
  kFamilyDontCare = 0x00,
  kFamilyRoman = 0x10,
  kFamilySwiss = 0x20,
  kFamilyModern = 0x30,
  kFamilyScript = 0x40,
  kFamilyDecorative = 0x50
};

// Stores the face name of a typeface number, cut to `size` bytes with its terminator (at least 1),
// and returns its family. A number without an entry has an empty name and no family.
FontFamily TypefaceFace(unsigned number, char* face, std::size_t size);

}  // namespace zeapi
