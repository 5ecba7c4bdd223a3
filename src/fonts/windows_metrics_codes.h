// What Windows metrics call the symbol set and the weight of a PCL font.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zeapi {

struct WindowsSymbolSet {
  std::uint8_t characterSet;
  std::uint8_t translationClass;
  const char* faceSuffix;  // appended to the face name; may be empty
};

// `fontType` is the descriptor's font type byte.
WindowsSymbolSet WindowsSymbolSetOf(std::uint16_t symbolSet, std::uint8_t fontType);

// A face name with a suffix behind a blank, unless that is empty. The name is cut so that the whole
// has 31 characters, as many as Windows takes.
std::string WindowsFace(std::string_view name, std::string_view suffix);

// 100 to 900; 0 for a stroke weight outside -7 to 7.
std::uint16_t WindowsWeight(std::int8_t strokeWeight);

}  // namespace zeapi
