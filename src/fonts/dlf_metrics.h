// Windows metrics of DLF fonts (conversion 4).
#pragma once

#include "fonts/dlf_font.h"
#include "fonts/pfm_writer.h"

namespace zeapi {

// Describes a font from its header, which is what is known of the format: every character is as wide
// as the pitch, or as half the size where the font has none. False for a font without a name.
bool DescribeDlf(const DlfFont& font, std::uint32_t fileSize, WindowsMetrics* metrics);

}  // namespace zeapi
