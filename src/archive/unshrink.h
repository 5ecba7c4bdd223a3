// Unpacks Shrink, method 1: dynamic LZW whose codes grow from 9 to 13 bits when the data says so, and
// whose table is cleared in part when the data says so.
#pragma once

#include "archive/archive_status.h"
#include "archive/block_io.h"
#include "archive/window.h"

namespace zeapi {

// Unpacks `size` bytes, or fewer where the data ends or is not valid, and flushes the window: the
// method marks no end, and the member's CRC tells what came of it. Gives kArchiveOk or
// kArchiveNoMemory.
ArchiveStatus Unshrink(BlockSource& source, std::uint64_t size, Window& window);

}  // namespace zeapi
