#include "config/folded_names.h"

#include <algorithm>

#include "base/text.h"

namespace zeapi {

bool SameFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return x == y || AsciiUpper(x) == AsciiUpper(y);
         });
}

// FNV-1a of the upper-case name; the low bits are mixed once more, since tables use these.
std::uint32_t FoldedHash(std::string_view name) {
  std::uint32_t hash = 2166136261;
  for (const char c : name) {
    hash = (hash ^ static_cast<std::uint8_t>(AsciiUpper(c))) * 16777619;
  }
  return hash ^ (hash >> 15);
}

}  // namespace zeapi
