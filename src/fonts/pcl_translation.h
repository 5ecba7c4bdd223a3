// How PCL fonts number the characters of Windows.
#pragma once

#include <cstdint>

namespace zeapi {

enum class CharacterNumbers {
  kSevenBit,  // Windows codes up to 127
  kEightBit,  // Windows codes
  kRoman8,
  kAscii,
  kLatin1,
  kMasterSymbolList,  // of unbound Intellifont fonts
  kUnicode
};

// `translationClass` is that of the font's symbol set in Windows metrics.
CharacterNumbers NumbersOfFont(std::uint8_t fontType, std::uint16_t translationClass);

// The number of a character; -1 when the font cannot have it.
int NumberOfCharacter(CharacterNumbers numbers, std::uint8_t windowsCode);

}  // namespace zeapi
