// Repeats in plain data, for the encoders: the longest of a few candidates. Zeros from before the start
// count, as the methods define.
#pragma once

#include "archive/random_data.h"

namespace zeapi::testing {

struct Match {
  std::size_t length = 0;
  std::size_t distance = 0;
};

Match FindMatch(std::string_view plain, std::size_t at, std::size_t farthest, std::size_t longest,
                Random& random);

}  // namespace zeapi::testing
