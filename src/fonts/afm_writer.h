// Windows printer font metrics as an AFM file (conversion 3).
#pragma once

#include <cstdio>

#include "base/result.h"
#include "fonts/pfm_reader.h"

namespace zeapi {

// Writes the whole file to a stream opened as text. False when a part of it could not be written.
bool WriteAfm(const PfmMetrics& metrics, std::FILE* stream);

}  // namespace zeapi
