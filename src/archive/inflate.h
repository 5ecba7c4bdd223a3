// Unpacks Deflate (RFC 1951), method 8.
#pragma once

#include "archive/archive_status.h"
#include "archive/block_io.h"
#include "archive/window.h"

namespace zeapi {

// Unpacks up to the code that ends the data and flushes the window. Gives kArchiveBad for data that is
// not valid or ends before that code (what came out until then is in the window's sink), and
// kArchiveNoMemory.
ArchiveStatus Inflate(BlockSource& source, Window& window);

}  // namespace zeapi
