// The texts by which the library names a PCL soft font.
#pragma once

#include "fonts/pcl_descriptor.h"
#include "zeapi.h"

namespace zeapi {

// Code text of a symbol set value, such as "8U" for 277.
struct SymbolSetText {
  char text[6];
};
SymbolSetText SymbolSetCode(std::uint16_t symbolSet);

// Weight and posture, such as "BdIt"; may be empty.
struct StyleText {
  char text[5];
};
StyleText StyleSuffix(const PclDescriptor& descriptor);

// Fills `description`, `symbolSet` and `detail`. `format` is set already, and `yResolution` (not 0)
// for a format that has one.
void DescribePclFont(const PclDescriptor& descriptor, ZeFontInfo* info);

// The name under which a font is stored: 16 characters, padded with blanks.
struct ShortName {
  char text[17];
};
ShortName ShortFontName(const PclRawDescriptor& raw);

// The escape sequence that selects the font.
struct SelectionText {
  char text[96];
};
SelectionText PclSelectionString(const PclDescriptor& descriptor);

}  // namespace zeapi
