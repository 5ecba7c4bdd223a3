// What macro management says to the printer, as printf formats.
#pragma once

#include <array>
#include <cstdint>

namespace zeapi::macro {

// PCL macro control: "ESC & f", the macro's number, letters.
inline constexpr char kStart[] = "\x1B&f%uy0X";
inline constexpr char kStartCalling[] = "\x1B&f%uy0X\x1B&f%uy3x%uY";  // calls the second number
inline constexpr char kStop[] = "\x1B&f1X";
inline constexpr char kMakePermanent[] = "\x1B&f%uy10X";
inline constexpr char kEnableOverlay[] = "\x1B&f%uy4X";
inline constexpr char kDisableOverlay[] = "\x1B&f%uy5X";
inline constexpr char kDelete[] = "\x1B&f%uy8X";

// Whatever the length of its text.
inline constexpr std::uint32_t kDeleteLength = 8;

// PPDS macro control: "ESC [ l", a 16-bit count with its low byte first, parameters.
inline constexpr std::size_t kPpdsSizeByte = 3;
inline constexpr std::size_t kPpdsNumberByte = 7;
// A zero byte stands where the high bytes of size and number were meant.
inline constexpr std::array<std::uint8_t, 8> kPpdsDefinition = {0x1B, '[', 'l', 0, 0, 1, 0, 0};
inline constexpr std::uint32_t kPpdsSizeLimit = 65536;
inline constexpr char kPpdsEnableOverlay[] = "\x1B[l\x03\x00\x05\x00";
inline constexpr char kPpdsDisableOverlay[] = "\x1B[l\x01\x00\x06";

// Ejects one page.
inline constexpr std::array<std::uint8_t, 2> kEjectPage = {0xFF, 0x0C};

// PostScript.
inline constexpr char kOverlayComment[] = "%%%%Velquist Overlay: %s\n";
inline constexpr char kProcedureStart[] = "serverdict begin 0 exitserver /%s {\n";
inline constexpr char kProcedureEnd[] = "\n} def\n";
inline constexpr char kDemoEnd[] = "\n%s ";  // with stored_file::kExtensionBack
// Copies what follows into the file %device%name, up to a byte 01.
inline constexpr char kFileWriter[] =
    "/writefile (%%%s%%%s) (w) file def\n"
    "{ currentfile read\n"
    "not { exit } if dup 1 eq { pop exit } if\n"
    "writefile exch write } loop\n";
inline constexpr char kFileEnd[] = "\x01\n";
inline constexpr char kHideShowPage[] = "userdict begin /showpage {} def end\n";
inline constexpr char kUndefineShowPage[] = "\nuserdict /showpage undef ";
inline constexpr char kShowPage[] = "\nshowpage ";

// PJL.
inline constexpr char kResourceDefault[] =
    "@PJL DEFAULT LRESOURCE:\"%s:%u.p5macro\" LDESCRIPTION = \"%s\"\n";

}  // namespace zeapi::macro
