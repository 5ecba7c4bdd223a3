// What a font file is.
#pragma once

#include "base/result.h"

namespace zeapi {

// Fills the record of a font file: see ZeFonQueryInfo(). `info` is not null.
Result FonQueryInfo(const char* fontFile, ZeFontInfo* info, std::uint32_t queryOption,
                    bool includeMetricFiles);

}  // namespace zeapi
