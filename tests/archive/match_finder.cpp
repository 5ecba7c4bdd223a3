#include "archive/match_finder.h"

#include <algorithm>

namespace zeapi::testing {

std::size_t MatchFinder::LengthAt(std::size_t at, std::size_t distance) const {
  const std::size_t most = std::min(longest_, plain_.size() - at);
  std::size_t length = 0;
  while (length < most) {
    const std::size_t here = at + length;
    const char before = here >= distance ? plain_[here - distance] : '\0';
    if (before != plain_[here]) break;
    ++length;
  }
  return length;
}

std::size_t& MatchFinder::LastLike(std::size_t at) {
  std::size_t sum = 0;
  for (std::size_t i = at; i < std::min(at + 3, plain_.size()); ++i)
    sum = sum * 31 + static_cast<unsigned char>(plain_[i]);
  return last_[sum % last_.size()];
}

Match MatchFinder::Find(std::size_t at, Random& random) {
  Match best;
  const auto look = [&](std::size_t distance) {
    const std::size_t length = LengthAt(at, distance);
    if (length > best.length) best = {length, distance};
  };
  std::size_t& last = LastLike(at);
  if (last < at && at - last <= farthest_) look(at - last);
  last = at;
  look(1);
  look(1 + Below(random, 24));
  look(1 + Below(random, static_cast<unsigned>(farthest_)));
  if (plain_[at] == '\0') look(farthest_);
  if (best.length > 0 && Below(random, 4) == 0)
    best.length = 1 + Below(random, static_cast<unsigned>(best.length));
  return best;
}

}  // namespace zeapi::testing
