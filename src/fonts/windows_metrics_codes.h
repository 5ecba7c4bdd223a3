// What Windows metrics call the symbol set and the weight of a PCL font.
#pragma once

#include <cstdint>

namespace zeapi {

struct WindowsSymbolSet {
  std::uint8_t characterSet;
  std::uint8_t translationClass;
  const char* faceSuffix;  // appended to the face name; may be empty
};

// `fontType` is the descriptor's font type byte.
WindowsSymbolSet WindowsSymbolSetOf(std::uint16_t symbolSet, std::uint8_t fontType);

// 100 to 900; 0 for a stroke weight outside -7 to 7.
std::uint16_t WindowsWeight(std::int8_t strokeWeight);

}  // namespace zeapi
