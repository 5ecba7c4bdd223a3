// Windows metrics of PCL soft fonts (conversions 5 and 17).
#pragma once

#include "fonts/pcl_characters.h"
#include "fonts/pfm_writer.h"

namespace zeapi {

// False for a font none of whose characters Windows has.
bool DescribePclSoftFont(const PclSoftFont& softFont, WindowsMetrics* metrics);

}  // namespace zeapi
