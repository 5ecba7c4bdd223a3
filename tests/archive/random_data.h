// Plain data that packing methods like or dislike, the same for a seed on every host.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace zeapi::testing {

using Random = std::minstd_rand;

// 0 to below - 1.
inline unsigned Below(Random& random, unsigned below) {
  return static_cast<unsigned>(random() >> 3) % below;
}

// Up to `most` bytes of one of many kinds: noise, few letters, runs, periods, repeats of 3 to 330 bytes
// from near and far, zeros.
std::string RandomData(Random& random, unsigned most);

}  // namespace zeapi::testing
