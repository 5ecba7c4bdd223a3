// Streams an open file into the queue, as it is or as hexadecimal text.
#pragma once

#include <cstdint>
#include <cstdio>

#include "output/ZeQue.h"

namespace zeapi {

enum StreamEncoding : int { kRawBytes = 0, kHexadecimal = 1 };

// Writes the rest of `file` in blocks of at most 2048 bytes (raw) or 2048 characters (hexadecimal).
// The caller positions the file. Returns 0, 6 (read error), 11, 32 (unknown encoding), or the
// context's `error` after a failed write.
Result SendStream(std::FILE* file, GenQueContext* ctx, StreamEncoding encoding);

}  // namespace zeapi
