// The tables by which metrics of Windows become AFM files, whole.
#include "fonts/windows_characters.h"

#include <gtest/gtest.h>

namespace zeapi::testing {
namespace {

// 16 codes a block, from 0 to 255.
constexpr const char* kNames[256] = {
    // clang-format off
    "W00", "W01", "W02", "W03", "macron", "breve", "dotaccent", "W07", "ring", "W09", "W0a", "W0b",
    "W0c", "W0d", "W0e", "W0f",
    "hungarumlaut", "ogonek", "caron", "W13", "W14", "W15", "W16", "W17", "W18", "W19", "W1a",
    "W1b", "W1c", "W1d", "W1e", "W1f",
    "space", "exclam", "quotedbl", "numbersign", "dollar", "percent", "ampersand", "quotesingle",
    "parenleft", "parenright", "asterisk", "plus", "comma", "hyphen", "period", "slash",
    "zero", "one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "colon",
    "semicolon", "less", "equal", "greater", "question",
    "at", "A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M", "N", "O",
    "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "bracketleft", "backslash",
    "bracketright", "asciicircum", "underscore",
    "grave", "a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o",
    "p", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z", "braceleft", "bar", "braceright",
    "asciitilde", "W7f",
    "W80", "W81", "quotesinglbase", "W83", "quotedblbase", "ellipsis", "dagger", "daggerdbl",
    "asciicircum", "perthousand", "Scaron", "guilsinglleft", "OE", "W8d", "W8e", "W8f",
    "W90", "quoteleft", "quoteright", "quotedblleft", "quotedblright", "bullet1", "endash",
    "emdash", "asciitilde", "trademark", "scaron", "guilsinglright", "oe", "W9d", "W9e",
    "Ydieresis",
    "reqspace", "exclamdown", "cent", "sterling", "currency", "yen", "brokenbar", "section",
    "dieresis", "copyright", "ordfeminine", "guillemotleft", "logicalnot", "syllable", "registered",
    "overbar",
    "degree", "plusminus", "twosuperior", "threesuperior", "acute", "mu", "paragraph",
    "periodcentered", "cedilla", "onesuperior", "ordmasculine", "guillemotright", "onequarter",
    "onehalf", "threequarters", "questiondown",
    "Agrave", "Aacute", "Acircumflex", "Atilde", "Adieresis", "Aring", "AE", "Ccedilla", "Egrave",
    "Eacute", "Ecircumflex", "Edieresis", "Igrave", "Iacute", "Icircumflex", "Idieresis",
    "Eth", "Ntilde", "Ograve", "Oacute", "Ocircumflex", "Otilde", "Odieresis", "multiply", "Oslash",
    "Ugrave", "Uacute", "Ucircumflex", "Udieresis", "Yacute", "Thorn", "germandbls",
    "agrave", "aacute", "acircumflex", "atilde", "adieresis", "aring", "ae", "ccedilla", "egrave",
    "eacute", "ecircumflex", "edieresis", "igrave", "iacute", "icircumflex", "idieresis",
    "eth", "ntilde", "ograve", "oacute", "ocircumflex", "otilde", "odieresis", "divide", "oslash",
    "ugrave", "uacute", "ucircumflex", "udieresis", "yacute", "thorn", "ydieresis",
    // clang-format on
};

// 0: no standard code.
constexpr std::uint8_t kStandardCodes[256] = {
    // clang-format off
       0,    0,    0,    0, 0xC5, 0xC6, 0xC7,    0, 0xCA,    0, 0xCD, 0xCE, 0xCF,    0,    0,    0,
       0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0xA9, 0x28, 0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F,
    0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3A, 0x3B, 0x3C, 0x3D, 0x3E, 0x3F,
    0x40, 0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F,
    0x50, 0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5A, 0x5B, 0x5C, 0x5D, 0x5E, 0x5F,
    0xC1, 0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6A, 0x6B, 0x6C, 0x6D, 0x6E, 0x6F,
    0x70, 0x71, 0x72, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7A, 0x7B, 0x7C, 0x7D, 0x7E, 0x7F,
       0,    0, 0xB8,    0, 0xB9, 0xBC, 0xB2, 0xB3, 0x5E, 0xBD,    0, 0xAC, 0xEA,    0,    0,    0,
       0, 0x60,    0, 0xAA, 0xBA,    0, 0xB1, 0xD0, 0x7E,    0,    0, 0xAD, 0xFA,    0,    0,    0,
       0, 0xA1, 0xA2, 0xA3, 0xA8, 0xA5,    0, 0xA7, 0xC8,    0, 0xE3, 0xAB,    0,    0,    0,    0,
       0,    0,    0,    0, 0xC2,    0, 0xB6, 0xB4, 0xCB,    0, 0xEB, 0xBB,    0,    0,    0, 0xBF,
       0,    0,    0,    0,    0,    0, 0xE1,    0,    0,    0,    0,    0,    0,    0,    0,    0,
       0,    0,    0,    0,    0,    0,    0,    0, 0xE9,    0,    0,    0,    0,    0,    0, 0xFB,
       0,    0,    0,    0,    0,    0, 0xF1,    0,    0,    0,    0,    0,    0,    0,    0,    0,
       0,    0,    0,    0,    0,    0,    0,    0, 0xF9,    0,    0,    0,    0,    0,    0,    0,
    // clang-format on
};

constexpr char kKeepClasses[] =
    "00002220202220000000000000000000"
    "11111111111111111111111111111111"
    "11111111111111111111111111111111"
    "11111111111111111111111111111112"
    "00202222222220000332222222222002"
    "11111111111111111111111111111111"
    "11111111111111111111111111111111"
    "11111111111111111111111111111111";
static_assert(sizeof(kKeepClasses) == 257);

TEST(WindowsCharacters, EveryCodeHasItsName) {
  for (unsigned code = 0; code < 256; ++code)
    EXPECT_STREQ(GlyphNameOf(static_cast<std::uint8_t>(code)).text, kNames[code]) << code;
}

TEST(WindowsCharacters, EveryCodeHasItsStandardCodeOrNone) {
  for (unsigned code = 0; code < 256; ++code)
    EXPECT_EQ(StandardCodeOf(static_cast<std::uint8_t>(code)), kStandardCodes[code]) << code;
}

TEST(WindowsCharacters, EveryCodeHasItsKeepClass) {
  for (unsigned code = 0; code < 256; ++code) {
    const unsigned expected = static_cast<unsigned>(kKeepClasses[code] - '0');
    EXPECT_EQ(KeepClassOf(static_cast<std::uint8_t>(code)), expected) << code;
  }
}

}  // namespace
}  // namespace zeapi::testing
