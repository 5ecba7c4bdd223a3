// Windows printer font metrics as an AFM file (conversion 3).
#pragma once

#include <cstdio>

#include "base/result.h"
#include "fonts/pfm_reader.h"

namespace zeapi {

// Writes the whole file to a stream opened as text. What does not get into the stream shows in its
// error flag.
void WriteAfm(const PfmMetrics& metrics, std::FILE* stream);

}  // namespace zeapi
