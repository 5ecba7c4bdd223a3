// Hash numbers of names in INI files.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zeapi {

// A secret: who knows it can write names that all have one hash number.
using HashKey = std::array<std::uint64_t, 2>;

// SipHash-2-4 of the name in upper case: names that SameText takes for the same share it.
std::uint64_t NameHash(std::string_view name, const HashKey& key);

// Made at random once in a process.
const HashKey& ProcessHashKey();

}  // namespace zeapi
