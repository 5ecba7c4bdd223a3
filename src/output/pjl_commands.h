// What the library says to a printer's job language: PJL texts as printf formats, and the bracket-K
// sequences ("ESC [ K", a 16-bit count of parameters with the low byte first, the parameters).
#pragma once

#include <array>
#include <cstdint>

namespace zeapi::pjl {

inline constexpr char kUniversalExit[] = "\x1B%-12345X";
inline constexpr char kReadyMessage[] = "@PJL RDYMSG DISPLAY = \"%-.20s\"\n";
inline constexpr char kEnterLanguage[] = "@PJL ENTER LANGUAGE = %s\n";
// One write, hence one text.
inline constexpr char kTargetAndEnterLanguage[] =
    "@PJL SET LDOWNLOADTARGET = %s\n"
    "@PJL ENTER LANGUAGE = %s\n";
inline constexpr char kSetNumber[] = "@PJL SET %s = %i\n";
inline constexpr char kSetWord[] = "@PJL SET %s = %s\n";
inline constexpr char kReset[] = "@PJL RESET\n";
inline constexpr char kDeviceCommand[] = "@PJL %s DEVICE = %s\n";
inline constexpr char kPrintDirectory[] = "@PJL LPRINTDIRECTORY\n";

inline constexpr char kCopies[] = "COPIES";
inline constexpr char kDownloadTarget[] = "LDOWNLOADTARGET";
inline constexpr char kFormat[] = "LFORMAT";

// PCL copies.
inline constexpr char kPclCopies[] = "\x1B&l%huX";

// Storage devices by ZE_DEVICE_... number.
inline constexpr std::array<const char*, 7> kDeviceTable = {"",      "ram",   "flash1", "flash2",
                                                            "disk1", "disk2", ""};

// PJL names of the languages, by ZE_LANGUAGE_...; null: the job does not switch.
inline constexpr std::array<const char*, 7> kLanguageNames = {
    nullptr, nullptr, "PPDS", "POSTSCRIPT", "GL", "PCL", "PCL"};

// PCL XL by its own name: where a job enters it without being in PCL.
inline constexpr char kPclXl[] = "PCLXL";

using BracketKShort = std::array<std::uint8_t, 6>;
using BracketK = std::array<std::uint8_t, 8>;

inline constexpr BracketKShort kInitialConditions = {0x1B, '[', 'K', 0x01, 0x00, 0x01};
inline constexpr BracketKShort kEndOfJob = {0x1B, '[', 'K', 0x01, 0x00, 0x06};
inline constexpr BracketK kTargetDevice = {0x1B, '[', 'K', 0x03, 0x00, 0x06, 0xC0, 0x31};
inline constexpr BracketK kTargetMemory = {0x1B, '[', 'K', 0x03, 0x00, 0x06, 0xC0, 0x32};
inline constexpr BracketK kFormatDevice = {0x1B, '[', 'K', 0x03, 0x00, 0x06, 0xC0, 0x46};
inline constexpr BracketK kListDirectory = {0x1B, '[', 'K', 0x03, 0x00, 0x06, 0xC0, 0x50};

// Select-language sequences by ZE_LANGUAGE_... (0 has none). Byte 6 is the channel.
inline constexpr std::size_t kChannelByte = 6;
inline constexpr std::array<BracketK, 7> kSelectLanguage = {{
    {},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x00},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x01},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x08},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x03},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x02},
    {0x1B, '[', 'K', 0x03, 0x00, 0x06, '1', 0x02},
}};

}  // namespace zeapi::pjl
