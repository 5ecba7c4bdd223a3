#include "fonts/pcl_translation.h"

#include <array>

namespace zeapi {
namespace {

// Index: Windows code less 128; 0 for a character that the set does not have.
constexpr std::array<std::uint8_t, 128> kRoman8 = {
    // clang-format off
    0x00, 0x00, 0x00, 0xBE, 0x00, 0x00, 0x00, 0x00, 0xAA, 0x00, 0xEB, 0x00, 0x00, 0x00, 0x00, 0x00,  // 80
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF6, 0xAC, 0x00, 0xEC, 0x00, 0x00, 0x00, 0x00, 0xEE,  // 90
    0xA0, 0xB8, 0xBF, 0xBB, 0xBA, 0xBC, 0x00, 0xBD, 0xAB, 0x00, 0xF9, 0xFB, 0x00, 0x00, 0x00, 0xB0,  // a0
    0xB3, 0xFE, 0x00, 0x00, 0xA8, 0xF3, 0xF4, 0xF2, 0x00, 0x00, 0xFA, 0xFD, 0xF7, 0xF8, 0xF5, 0xB9,  // b0
    0xA1, 0xE0, 0xA2, 0xE1, 0xD8, 0xD0, 0xD3, 0xB4, 0xA3, 0xDC, 0xA4, 0xA5, 0xE6, 0xE5, 0xA6, 0xA7,  // c0
    0xE3, 0xB6, 0xE8, 0xE7, 0xDF, 0xE9, 0xDA, 0x00, 0xD2, 0xAD, 0xED, 0xAE, 0xDB, 0xB1, 0xF0, 0xDE,  // d0
    0xC8, 0xC4, 0xC0, 0xE2, 0xCC, 0xD4, 0xD7, 0xB5, 0xC9, 0xC5, 0xC1, 0xCD, 0xD9, 0xD5, 0xD1, 0xDD,  // e0
    0xE4, 0xB7, 0xCA, 0xC6, 0xC2, 0xEA, 0xCE, 0x00, 0xD6, 0xCB, 0xC7, 0xC3, 0xCF, 0xB2, 0xF1, 0xEF,  // f0
    // clang-format on
};

// Index: Windows code less 32; 0 for a character without a number.
constexpr std::array<std::uint16_t, 224> kMasterSymbolList = {
    // clang-format off
    0, 1, 2, 3, 4, 5, 6, 329, 9, 10, 11, 12, 13, 14, 15, 16,  // 20
    17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32,  // 30
    33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48,  // 40
    49, 50, 51, 52, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64,  // 50
    107, 67, 68, 69, 70, 71, 72, 73, 74, 75, 76, 77, 78, 79, 80, 81,  // 60
    82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 93, 94, 95, 96, 0,  // 70
    0, 0, 1067, 127, 1019, 1028, 312, 327, 108, 1068, 172, 1092, 1091, 0, 0, 0,  // 80
    0, 66, 8, 1017, 1018, 331, 326, 325, 110, 313, 173, 1093, 1090, 0, 0, 175,  // 90
    0, 121, 128, 124, 123, 125, 192, 126, 109, 193, 186, 188, 194, 195, 196, 113,  // a0
    116, 191, 197, 198, 106, 180, 181, 302, 199, 200, 187, 190, 184, 185, 182, 122,  // b0
    99, 161, 100, 162, 153, 145, 148, 117, 101, 157, 102, 103, 167, 166, 104, 105,  // c0
    164, 119, 169, 168, 160, 170, 155, 201, 147, 111, 174, 112, 156, 114, 177, 159,  // d0
    137, 133, 129, 163, 141, 149, 152, 118, 138, 134, 130, 142, 154, 150, 146, 158,  // e0
    165, 120, 139, 135, 131, 171, 143, 202, 151, 140, 136, 132, 144, 115, 178, 176,  // f0
    // clang-format on
};

// Windows codes 0x80 to 0x9F; 0 for a code without a character.
constexpr std::array<std::uint16_t, 32> kUnicode = {
    // clang-format off
    0x0000, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x0000, 0x0000, 0x0000,  // 88
    0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0000, 0x0000, 0x0178,  // 98
    // clang-format on
};

constexpr unsigned kSpace = 32;

int OrNone(unsigned code) { return code != 0 ? static_cast<int>(code) : -1; }

}  // namespace

CharacterNumbers NumbersOfFont(std::uint8_t fontType, std::uint16_t translationClass) {
  if (fontType == 10) return CharacterNumbers::kMasterSymbolList;
  if (fontType == 11) return CharacterNumbers::kUnicode;
  switch (translationClass) {
    case 1:
      return CharacterNumbers::kRoman8;
    case 4:
      return CharacterNumbers::kAscii;
    case 16:
      return CharacterNumbers::kSevenBit;
    case 18:
      return CharacterNumbers::kLatin1;
    default:
      return CharacterNumbers::kEightBit;
  }
}

int NumberOfCharacter(CharacterNumbers numbers, std::uint8_t windowsCode) {
  const unsigned code = windowsCode;
  const bool printable = code >= kSpace && code != 127;
  switch (numbers) {
    case CharacterNumbers::kRoman8:
      if (code < 128) return printable ? windowsCode : -1;
      return OrNone(kRoman8[code - 128]);
    case CharacterNumbers::kAscii:
      return printable && code < 128 ? windowsCode : -1;
    case CharacterNumbers::kLatin1:
      return printable && (code < 128 || code >= 160) ? windowsCode : -1;
    case CharacterNumbers::kSevenBit:
      return code < 128 ? windowsCode : -1;
    case CharacterNumbers::kMasterSymbolList:
      return code >= kSpace ? OrNone(kMasterSymbolList[code - kSpace]) : -1;
    case CharacterNumbers::kUnicode:
      if (code >= 128 && code < 160) return OrNone(kUnicode[code - 128]);
      return printable ? windowsCode : -1;
    case CharacterNumbers::kEightBit:
      return windowsCode;
  }
  return -1;
}

}  // namespace zeapi
