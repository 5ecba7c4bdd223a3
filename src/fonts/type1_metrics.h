// Windows metrics of Type 1 fonts (conversions 1 and 2).
#pragma once

#include "base/result.h"
#include "fonts/afm_reader.h"
#include "fonts/pfm_writer.h"

namespace zeapi {

// Describes a font for the PostScript device. Fonts with an encoding of their own keep their codes,
// lowest to highest; others have Windows codes 32 to 255. Returns 0, or 27 when the font has no name
// or no character with a code.
Result DescribeType1(const AfmMetrics& afm, WindowsMetrics* metrics);

// Turns that description into one for the PCL 5 device, where the font is selected by what its INF
// file says of it.
void AdjustToPclDevice(const AfmMetrics& afm, WindowsMetrics* metrics);

}  // namespace zeapi
