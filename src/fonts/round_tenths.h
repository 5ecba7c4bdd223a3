// Point sizes and pitches with one decimal.
#pragma once

#include <cstdint>

namespace zeapi {

struct Tenths {
  std::uint32_t whole;
  std::uint32_t tenth;  // prints as a large number where it is negative, see RoundTenths
};

// The whole part is rounded to the nearest, and the tenth is what the value lies away from it. So a
// fraction of one half or more gives a negative tenth, which its unsigned type turns into a large
// number: 10.6 gives 11 and 4294967292. Font lists show these texts, and other programs compare
// them. `value` lies in 0 ... 2^31 - 1.
Tenths RoundTenths(double value);

}  // namespace zeapi
