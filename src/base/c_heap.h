// Blocks of the C heap: what crosses the interface, and buffers whose failure has a code of its
// own.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace zeapi {

struct CHeapFree {
  void operator()(void* block) const { std::free(block); }
};

template <typename T>
using CHeapPtr = std::unique_ptr<T, CHeapFree>;

// A block of `size` bytes, zero-filled; null when there is no memory.
template <typename T>
CHeapPtr<T[]> CHeapBytes(std::size_t size) {
  static_assert(sizeof(T) == 1);
  return CHeapPtr<T[]>(static_cast<T*>(std::calloc(size, 1)));
}

}  // namespace zeapi
