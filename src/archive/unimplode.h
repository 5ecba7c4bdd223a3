// Unpacks Implode, method 6, in its four forms: with or without a code for literals, in a window of 4
// or 8 KiB.
#pragma once

#include "archive/archive_status.h"
#include "archive/block_io.h"
#include "archive/window.h"

namespace zeapi {

struct ImplodeForm {
  // General flag 4: literals have a code, and the shortest match has 3 bytes, else 2.
  bool literalTree;
  // General flag 2: distances have 7 low bits, else 6.
  bool largeWindow;
};

// The decoder's own words for how it went.
enum UnimplodeResult : int {
  kUnimploded = 0,
  kUnimplodeBadTree = 1,
  kUnimplodeNoMemory = 3,
  kUnimplodeOtherSize = 5,  // the packed data is longer or shorter than `size` bytes need
};

// Unpacks `size` bytes, or as many as the data holds, and flushes the window. `packedSize` is the
// member's compressed size.
UnimplodeResult Unimplode(BlockSource& source, ImplodeForm form, std::uint64_t packedSize,
                          std::uint64_t size, Window& window);

// Kept: a size that does not fit is no failure of the decoder; the member's CRC tells.
ArchiveStatus StatusOf(UnimplodeResult result);

}  // namespace zeapi
