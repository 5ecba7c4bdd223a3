// Small helpers for zero-terminated text from callers.
#pragma once

#include <cstddef>

#include "zeapi.h"

namespace zeapi {

// Length of `text`, or `limit` when it is at least that long. Reads no further than `limit` bytes.
std::size_t BoundedLength(const char* text, std::size_t limit);

// True for a file or printer name longer than the interface allows.
inline bool NameTooLong(const char* name) {
  return BoundedLength(name, ZE_MAX_NAME + 1) > ZE_MAX_NAME;
}

// True for texts that differ in the case of "a" to "z" at most.
bool SameText(const char* a, const char* b);

// Upper case of "a" to "z", in any locale; every other byte as it is.
char AsciiUpper(char c);

}  // namespace zeapi
