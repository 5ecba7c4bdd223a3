// What AFM files made from Windows metrics call the characters of Windows.
#pragma once

#include <cstdint>

namespace zeapi {

// A glyph name, or "W" and two hexadecimal digits for a code without one.
struct GlyphName {
  char text[16];
};
GlyphName GlyphNameOf(std::uint8_t windowsCode);

// Code of the character in Adobe's standard encoding; 0 when it has none.
std::uint8_t StandardCodeOf(std::uint8_t windowsCode);

// Why a character without a standard code is kept, 0 to 3: class 0 is dropped unless it is as wide
// as the space, an even one when it is.
unsigned KeepClassOf(std::uint8_t windowsCode);

}  // namespace zeapi
