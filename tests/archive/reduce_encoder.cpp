#include "archive/reduce_encoder.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <vector>

#include "archive/bit_writer.h"
#include "archive/match_finder.h"

namespace zeapi::testing {
namespace {

constexpr char kMarker = '\x90';

// The upper layer: repeats marked.
std::string MarkRepeats(std::string_view plain, unsigned factor, Random& random) {
  const unsigned lengthBits = 8 - factor;
  const std::size_t mask = (1U << lengthBits) - 1;
  const std::size_t farthest = std::size_t{1} << (8 + factor);
  MatchFinder finder(plain, farthest, mask + 255 + 3);
  std::string marked;
  for (std::size_t at = 0; at < plain.size();) {
    const Match match = finder.Find(at, random);
    const std::size_t length = match.length - 3;
    const std::size_t distance = match.distance - 1;
    const std::size_t low = match.length < 3 ? 0 : std::min(length, mask);
    const std::size_t value = distance / 256 << lengthBits | low;
    if (match.length >= 3 && value != 0) {
      marked += kMarker;
      marked += static_cast<char>(value);
      if (low == mask) marked += static_cast<char>(length - mask);
      marked += static_cast<char>(distance % 256);
      at += match.length;
      continue;
    }
    marked += plain[at];
    if (plain[at] == kMarker) marked += '\0';
    ++at;
  }
  return marked;
}

using FollowerSets = std::array<std::vector<char>, 256>;

FollowerSets ChooseFollowers(const std::string& marked, const ReduceHabits& habits,
                             Random& random) {
  std::vector<std::bitset<256>> seen(256);
  unsigned char before = 0;
  for (const char c : marked) {
    seen[before].set(static_cast<unsigned char>(c));
    before = static_cast<unsigned char>(c);
  }
  FollowerSets sets;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const unsigned most = Below(random, habits.mostFollowers + 1);
    if (seen[byte].none()) continue;
    for (std::size_t c = 0; c < 256 && sets[byte].size() < most; ++c) {
      if (seen[byte][c]) sets[byte].push_back(static_cast<char>(c));
    }
  }
  return sets;
}

unsigned IndexBits(std::size_t count) {
  unsigned bits = 1;
  while (std::size_t{1} << bits < count) ++bits;
  return bits;
}

}  // namespace

std::string Reduce(std::string_view plain, unsigned factor, const ReduceHabits& habits,
                   Random& random) {
  const std::string marked = MarkRepeats(plain, factor, random);
  const FollowerSets sets = ChooseFollowers(marked, habits, random);
  BitWriter bits;
  for (std::size_t byte = 256; byte-- > 0;) {
    bits.Put(static_cast<unsigned>(sets[byte].size()), 6);
    for (const char c : sets[byte]) bits.Put(static_cast<unsigned char>(c), 8);
  }
  unsigned char before = 0;
  for (const char c : marked) {
    const std::vector<char>& set = sets[before];
    before = static_cast<unsigned char>(c);
    if (set.empty()) {
      bits.Put(before, 8);
      continue;
    }
    const auto found = std::find(set.begin(), set.end(), c);
    const bool plainly = habits.plainOneIn != 0 && Below(random, habits.plainOneIn) == 0;
    if (found == set.end() || plainly) {
      bits.Put(1, 1);
      bits.Put(before, 8);
    } else {
      bits.Put(0, 1);
      bits.Put(static_cast<unsigned>(found - set.begin()), IndexBits(set.size()));
    }
  }
  return bits.bytes();
}

}  // namespace zeapi::testing
