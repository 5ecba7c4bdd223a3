// What a font takes in a printer.
#pragma once

#include <cstdint>

namespace zeapi {

// Bytes of printer memory beside the font's own.
inline constexpr std::uint32_t kPrinterOverhead = 320;

}  // namespace zeapi
