// Packs with Shrink. The table is kept as a decoder keeps it, so every string that is used is one that
// the definition gives to a decoder at that moment.
#pragma once

#include "archive/random_data.h"

namespace zeapi::testing {

struct ShrinkHabits {
  unsigned clearOneIn = 0;  // partial clearing before one in so many codes; 0: only when full
  unsigned widenOneIn = 0;  // wider codes before they are needed
  unsigned shortOneIn = 0;  // a shorter string than the longest that there is
};

struct ShrinkFacts {
  unsigned widest = 9;
  unsigned clears = 0;
  unsigned clearedAt[14] = {};  // clears at each width
  unsigned newest = 0;          // codes used in the step that makes them
};

std::string Shrink(std::string_view plain, const ShrinkHabits& habits, Random& random,
                   ShrinkFacts* facts = nullptr);

}  // namespace zeapi::testing
