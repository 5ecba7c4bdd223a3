// Repeats in plain data, for the encoders: the longest of a few candidates. Zeros from before the start
// count, as the methods define.
#pragma once

#include <array>

#include "archive/random_data.h"

namespace zeapi::testing {

struct Match {
  std::size_t length = 0;
  std::size_t distance = 0;
};

class MatchFinder {
 public:
  // Farthest distance and greatest length that there are.
  MatchFinder(std::string_view plain, std::size_t farthest, std::size_t longest)
      : plain_(plain), farthest_(farthest), longest_(longest) {}

  // A repeat for what stands at `at`; places are asked for in rising order. Any length up to the
  // longest there is: encoders need not be greedy.
  Match Find(std::size_t at, Random& random);

 private:
  std::size_t LengthAt(std::size_t at, std::size_t distance) const;
  std::size_t& LastLike(std::size_t at);

  std::string_view plain_;
  std::size_t farthest_;
  std::size_t longest_;
  std::array<std::size_t, 1024> last_ = {};  // where three bytes of the same sum stood last
};

}  // namespace zeapi::testing
