// Windows metrics of Intellifont metrics (conversions 6 and 16).
#pragma once

#include <cstdint>
#include <string_view>

#include "fonts/intellifont_reader.h"
#include "fonts/pfm_writer.h"

namespace zeapi {

struct IntellifontTarget {
  std::uint32_t printerMemory;  // bytes
  std::string_view symbolSet;   // code text; may be empty
  std::string_view shortName;   // may be empty
};

// Describes a font in the symbol set of its target, or of Windows when that is empty. Where the metrics
// lack the symbol set, characters are found by their symbols. False when none is found.
bool DescribeIntellifont(const IntellifontMetrics& font, const IntellifontTarget& target,
                         WindowsMetrics* metrics);

}  // namespace zeapi
