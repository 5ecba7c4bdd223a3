// The queue's back end that writes the job to a plain file, or to a port that opens like one.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

// Opens `name` in the job's file mode. Returns 0 or 3.
Result OpenFile(const char* name, GenQueContext* ctx);

// Writes and flushes, so that the file always holds all that was written so far.
std::uint32_t WriteFile(const void* data, std::uint32_t length, GenQueContext* ctx);

// Returns 0 or 4.
Result CloseFile(GenQueContext* ctx);

}  // namespace zeapi
