// File name patterns, compared with the rules said recursively.
//
// Input: a name and a pattern, a line each.

#include <optional>
#include <string>
#include <vector>

#include "platform/posix/name_pattern.h"
#include "support/input.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

// Longer ones find nothing more, and the rules take a step for each pair of places.
constexpr std::size_t kLongest = 64;

bool IsWildcard(char c) { return c == '*' || c == '?'; }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

class Rules {
 public:
  Rules(std::string_view name, std::string_view pattern)
      : name_(name), pattern_(pattern), known_((name.size() + 1) * (pattern.size() + 1)) {}

  // Whether the pattern from place `p` on matches the name from place `n` on.
  bool Match(std::size_t n, std::size_t p) {
    std::optional<bool>& known = known_[n * (pattern_.size() + 1) + p];
    if (!known) known = Decide(n, p);
    return *known;
  }

 private:
  bool Decide(std::size_t n, std::size_t p) {
    const bool atEnd = n == name_.size();
    if (p == pattern_.size()) return atEnd;
    const char c = pattern_[p];
    if (c == '*') return Match(n, p + 1) || (!atEnd && Match(n + 1, p));
    if (!atEnd) return (c == '?' || Upper(c) == Upper(name_[n])) && Match(n + 1, p + 1);
    const bool dotAtEnd = c == '.' && (p + 1 == pattern_.size() || IsWildcard(pattern_[p + 1]));
    return (c == '?' || dotAtEnd) && Match(n, p + 1);
  }

  std::string_view name_;
  std::string_view pattern_;
  std::vector<std::optional<bool>> known_;
};

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const std::string_view name = UpToZero(input.Line()).substr(0, kLongest);
  const std::string_view pattern = UpToZero(input.Line()).substr(0, kLongest);
  const HeapText heapName(name);
  const HeapText heapPattern(pattern);
  const bool wildcard = zeapi::platform::HasWildcard(heapPattern.get());
  const bool matches = zeapi::platform::MatchesPattern(heapName.get(), heapPattern.get());
  Check(wildcard == (pattern.find_first_of("*?") != pattern.npos), "wildcards are * and ?");
  Check(matches == Rules(name, pattern).Match(0, 0), "a name matches by the rules");
  return 0;
}
