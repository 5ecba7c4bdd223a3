// Tables of web addresses.
#pragma once

#include <cstdint>

namespace zeapi {

// Words of the topics in addresses; INI files have them in upper case.
inline constexpr const char* kWebTopics[] = {"drivers",     "firmware",     "homepage",
                                             "quorview",    "registration", "supplies",
                                             "techsupport", "publications"};

// The one word that is another in queries.
inline constexpr char kTechSupportInQueries[] = "support";

// Numbers of printers by the caller's code; 0: the code stands for no printer. From 26 on the code
// is the number.
inline constexpr std::uint8_t kWebPrinters[26] = {8, 7, 0, 4, 9, 6,  3,  5,  4,  0,  1,  0,  0,
                                                  0, 0, 0, 0, 2, 11, 11, 20, 21, 22, 23, 24, 1};

// Codes of the languages by primary Windows language.
struct WebLanguage {
  std::uint16_t primary;
  std::uint8_t code;
};

inline constexpr std::uint16_t kChinese = 4;
inline constexpr std::uint16_t kSimplified = 2;  // sub-language
inline constexpr unsigned kSimplifiedChineseCode = 13;
inline constexpr unsigned kChineseCode = 14;

inline constexpr WebLanguage kWebLanguages[] = {
    {6, 5},    // Danish
    {7, 2},    // German
    {9, 0},    // English
    {10, 4},   // Spanish
    {11, 9},   // Finnish
    {12, 1},   // French
    {16, 3},   // Italian
    {17, 12},  // Japanese
    {19, 7},   // Dutch
    {20, 6},   // Norwegian
    {21, 20},  // Polish
    {22, 21},  // Portuguese
    {25, 22},  // Russian
    {29, 8},   // Swedish
};

}  // namespace zeapi
