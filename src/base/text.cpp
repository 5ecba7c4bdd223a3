#include "base/text.h"

#include <cstring>

namespace zeapi {

std::size_t BoundedLength(const char* text, std::size_t limit) {
  const void* end = std::memchr(text, '\0', limit);
  return end == nullptr ? limit : static_cast<std::size_t>(static_cast<const char*>(end) - text);
}

char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool SameText(const char* a, const char* b) {
  while (*a != '\0' && AsciiUpper(*a) == AsciiUpper(*b)) {
    ++a;
    ++b;
  }
  return AsciiUpper(*a) == AsciiUpper(*b);
}

}  // namespace zeapi
