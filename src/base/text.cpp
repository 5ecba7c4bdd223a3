#include "base/text.h"

#include <algorithm>
#include <cstring>

namespace zeapi {

std::size_t BoundedLength(const char* text, std::size_t limit) {
  const void* end = std::memchr(text, '\0', limit);
  return end == nullptr ? limit : static_cast<std::size_t>(static_cast<const char*>(end) - text);
}

char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return x == y || AsciiUpper(x) == AsciiUpper(y); });
}

}  // namespace zeapi
