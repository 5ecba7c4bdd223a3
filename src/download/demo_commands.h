// What a demo download says to the printer, as printf formats.
#pragma once

namespace zeapi::demo {

// Opens the file %device%name and copies hexadecimal data into it, up to the ">" of the epilogue. With
// stored_file::kExtensionOff and kExtensionBack.
inline constexpr char kPostScriptPrologue[] =
    "%s/wf (%%%s%%%s) (w) file def\n"
    "/rf currentfile (ASCIIHexDecode) filter def\n"
    "{ rf read\n"
    "not { exit } if\n"
    "wf exch write } loop\n";
inline constexpr char kPostScriptEpilogue[] =
    ">\n"
    "%s\n";

inline constexpr char kOpenFile[] = "@PJL LOPENFILE DEVICE=%s FILENAME=\"%s\" ACCESS=%s\n";
inline constexpr char kWriteOnly[] = "WO";
inline constexpr char kWriteFile[] = "@PJL LWRITEFILE DEVICE=%s FILENAME=\"%s\" START=%lu \n";
inline constexpr char kEndOfData[] = "@PJL END DATA\n";
inline constexpr char kCloseFile[] = "@PJL LCLOSEFILE DEVICE=%s FILENAME=\"%s\"\n";

inline constexpr char kOpenDemoFile[] = "@PJL LOPENDEMOFILE NAME=\"%s\"\n";
inline constexpr char kCloseDemoFile[] =
    "\x1B"
    "M@PJL LCLOSEDEMOFILE\n";

}  // namespace zeapi::demo
