// Packs with Reduce, factor 1 to 4.
#pragma once

#include "archive/random_data.h"

namespace zeapi::testing {

struct ReduceHabits {
  unsigned mostFollowers = 32;  // of each byte; 0: none has any
  unsigned plainOneIn = 0;      // bytes of a set that are written out all the same
};

std::string Reduce(std::string_view plain, unsigned factor, const ReduceHabits& habits,
                   Random& random);

}  // namespace zeapi::testing
