// Turning the metrics of a font into those of another format.
#pragma once

#include "base/result.h"

namespace zeapi {

// See ZeFonConvert().
Result FonConvert(const char* fontFile, const char* outputFile, const ZeFontInfo* option1,
                  std::uint32_t option2, std::uint32_t conversion);

}  // namespace zeapi
