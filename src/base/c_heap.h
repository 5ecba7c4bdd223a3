// Blocks of the C heap: what crosses the interface, and buffers whose failure has a code of its
// own.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace zeapi {

struct CHeapFree {
  void operator()(void* block) const { std::free(block); }
};

template <typename T>
using CHeapPtr = std::unique_ptr<T, CHeapFree>;

// A block of `size` bytes, zero-filled; null when there is no memory, and then only: one of no bytes is
// a block too.
template <typename T>
CHeapPtr<T[]> CHeapBytes(std::size_t size) {
  static_assert(sizeof(T) == 1);
  return CHeapPtr<T[]>(static_cast<T*>(std::calloc(std::max<std::size_t>(size, 1), 1)));
}

}  // namespace zeapi
