// Small helpers for text from callers and files.
#pragma once

#include <cstddef>
#include <string_view>

#include "zeapi.h"

namespace zeapi {

// Length of `text`, or `limit` when it is at least that long. Reads no further than `limit` bytes.
std::size_t BoundedLength(const char* text, std::size_t limit);

// True for a file or printer name longer than the interface allows.
inline bool NameTooLong(const char* name) {
  return BoundedLength(name, ZE_MAX_NAME + 1) > ZE_MAX_NAME;
}

// Upper case of "a" to "z"; every other byte as it is. In any locale: a host program that sets one
// must not change what a text means.
char AsciiUpper(char c);

// True for texts that differ in the case of "a" to "z" at most.
bool SameText(std::string_view a, std::string_view b);

}  // namespace zeapi
