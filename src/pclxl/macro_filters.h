// The filters behind the macro fixup, a language each.
#pragma once

#include <cstdint>

#include "pclxl/filter_stream.h"

namespace zeapi::filter {

// Each passes the stream on to its end.
void FilterPclMacro(FilterStream* stream, std::uint32_t options);
void FilterPostScriptMacro(FilterStream* stream, const char* overlayHeader);

// A universal exit, and the start of a line of the printer's job language.
inline constexpr char kUniversalExit[] = "\x1B%-12345X";
inline constexpr char kPjl[] = "@PJL";

// Leaves out a bracket-K block ("ESC [ K", a 16-bit length with its low byte first, the bytes)
// with its header. False, and nothing happens, when the stream shows none.
bool DropBracketKBlock(FilterStream* stream);

}  // namespace zeapi::filter
