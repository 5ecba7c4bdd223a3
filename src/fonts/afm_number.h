// Numbers of AFM and INF files.
#pragma once

#include <string_view>

namespace zeapi {

// A decimal number with an optional sign and fraction at the head of `text`, in tenths; further
// digits are cut off. 0 when there is none; limited to +-327670.
int TenthsOf(std::string_view text);

// The same, without its fraction.
inline int WholeOf(std::string_view text) { return TenthsOf(text) / 10; }

// A hexadecimal number, in angle brackets or bare. -1 when there is none or it does not fit.
int HexadecimalOf(std::string_view text);

}  // namespace zeapi
