#include "archive/match_finder.h"

#include <algorithm>

namespace zeapi::testing {
namespace {

std::size_t MatchLength(std::string_view plain, std::size_t at, std::size_t distance,
                        std::size_t longest) {
  const std::size_t most = std::min(longest, plain.size() - at);
  std::size_t length = 0;
  while (length < most) {
    const std::size_t here = at + length;
    const char before = here >= distance ? plain[here - distance] : '\0';
    if (before != plain[here]) break;
    ++length;
  }
  return length;
}

}  // namespace

Match FindMatch(std::string_view plain, std::size_t at, std::size_t farthest, std::size_t longest,
                Random& random) {
  Match best;
  const auto look = [&](std::size_t distance) {
    const std::size_t length = MatchLength(plain, at, distance, longest);
    if (length > best.length) best = {length, distance};
  };
  for (std::size_t distance = 1; distance <= std::min<std::size_t>(farthest, 24); ++distance)
    look(distance);
  for (int i = 0; i < 12; ++i) look(1 + Below(random, static_cast<unsigned>(farthest)));
  const std::size_t last = plain.substr(0, at).rfind(plain.substr(at, 3));
  if (last != plain.npos && at - last <= farthest) look(at - last);
  if (plain[at] == '\0') look(farthest);
  // Any length up to the longest there is: encoders need not be greedy.
  if (best.length > 0 && Below(random, 4) == 0)
    best.length = 1 + Below(random, static_cast<unsigned>(best.length));
  return best;
}

}  // namespace zeapi::testing
