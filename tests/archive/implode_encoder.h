// Packs with Implode, in each of its four forms.
#pragma once

#include <vector>

#include "archive/bit_writer.h"
#include "archive/random_data.h"
#include "archive/unimplode.h"

namespace zeapi::testing {

enum class TreeShape { kRandom, kFlat, kDeep };

// Lengths of a code in which every symbol has a place, at most 16 bits each.
std::vector<unsigned> RandomTree(unsigned symbols, TreeShape shape, Random& random);

// A tree as the data states it.
void PutTree(const std::vector<unsigned>& lengths, BitWriter* bits);

// The code of each symbol, highest of `length` bits first.
std::vector<unsigned> ImplodeCodes(const std::vector<unsigned>& lengths);

std::string Implode(std::string_view plain, ImplodeForm form, TreeShape shape, Random& random);

}  // namespace zeapi::testing
