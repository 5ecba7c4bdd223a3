// Copies a member that is not packed, method 0.
#pragma once

#include <cstddef>

#include "archive/block_io.h"

namespace zeapi {

// Copies `size` bytes, or as many as there are, in pieces as large as the buffer. Returns how many were
// copied.
std::uint64_t CopyStored(BlockSource& source, std::uint64_t size, std::span<std::uint8_t> buffer,
                         BlockSink& sink);

}  // namespace zeapi
