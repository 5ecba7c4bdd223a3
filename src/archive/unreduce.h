// Unpacks Reduce, methods 2 to 5: repeats marked in the data, and below that bytes told by the one
// before them.
#pragma once

#include "archive/archive_status.h"
#include "archive/block_io.h"
#include "archive/window.h"

namespace zeapi {

// Unpacks `size` bytes with a compression factor of 1 to 4, or fewer where the data ends or is not
// valid, and flushes the window: the method marks no end, and the member's CRC tells what came of it.
// Gives kArchiveOk or kArchiveNoMemory.
ArchiveStatus Unreduce(BlockSource& source, unsigned factor, std::uint64_t size, Window& window);

}  // namespace zeapi
