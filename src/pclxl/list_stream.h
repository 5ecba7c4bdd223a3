// The listing of a file for people: what the reader makes of it, and why it refuses it.
#pragma once

#include <cstdint>
#include <cstdio>

#include "pclxl/xl_listing.h"

namespace zeapi {

struct XlListed {
  XlResult header = kXlOk;         // of the header line; the walk goes on whatever it says
  XlResult walk = kXlOk;           // of the session
  std::int32_t operatorCount = 0;  // operators and blocks of embedded data that were met
};

// Lists a job, from the start of the file: job control in front of the stream is passed over. A
// stream that is refused is listed up to there, then the error is reported. Throws for lack of
// memory.
XlListed XlListStream(std::FILE* file, XlListingSink* sink);

}  // namespace zeapi
