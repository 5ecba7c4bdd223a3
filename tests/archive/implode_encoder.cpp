#include "archive/implode_encoder.h"

#include <algorithm>
#include <deque>
#include <numeric>

#include "archive/match_finder.h"

namespace zeapi::testing {
namespace {

constexpr unsigned kDeepest = 16;

struct Tree {
  Tree(unsigned symbols, TreeShape shape, Random& random)
      : lengths(RandomTree(symbols, shape, random)), codes(ImplodeCodes(lengths)) {}

  void Put(std::size_t symbol, BitWriter* bits) const {
    bits->PutCode(codes[symbol], lengths[symbol]);
  }

  std::vector<unsigned> lengths;
  std::vector<unsigned> codes;
};

}  // namespace

// Leaves are split in two until there are enough of them.
std::vector<unsigned> RandomTree(unsigned symbols, TreeShape shape, Random& random) {
  std::deque<unsigned> open = {0};
  std::vector<unsigned> leaves;  // those that are too deep to be split, in the end all
  while (open.size() + leaves.size() < symbols) {
    if (shape == TreeShape::kRandom)
      std::swap(open[Below(random, static_cast<unsigned>(open.size()))], open.back());
    const unsigned depth = 1 + (shape == TreeShape::kFlat ? open.front() : open.back());
    shape == TreeShape::kFlat ? open.pop_front() : open.pop_back();
    for (int half = 0; half < 2; ++half) {
      if (depth < kDeepest)
        open.push_back(depth);
      else
        leaves.push_back(depth);
    }
  }
  leaves.insert(leaves.end(), open.begin(), open.end());
  std::shuffle(leaves.begin(), leaves.end(), random);
  return leaves;
}

void PutTree(const std::vector<unsigned>& lengths, BitWriter* bits) {
  std::vector<unsigned> runs;
  for (std::size_t at = 0; at < lengths.size();) {
    std::size_t end = at;
    while (end < lengths.size() && lengths[end] == lengths[at] && end - at < 16) ++end;
    runs.push_back(static_cast<unsigned>((end - at - 1) << 4 | (lengths[at] - 1)));
    at = end;
  }
  bits->Put(static_cast<unsigned>(runs.size()) - 1, 8);
  for (const unsigned run : runs) bits->Put(run, 8);
}

// From the last of the symbols sorted by length to the first, each code is the one before and one more
// at the place of that one's last bit, in 16 bits.
std::vector<unsigned> ImplodeCodes(const std::vector<unsigned>& lengths) {
  std::vector<std::size_t> order(lengths.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return lengths[a] < lengths[b]; });
  std::vector<unsigned> codes(lengths.size());
  unsigned code = 0;
  unsigned step = 0;
  for (std::size_t i = order.size(); i-- > 0;) {
    code += step;
    step = 1U << (kDeepest - lengths[order[i]]);
    codes[order[i]] = code >> (kDeepest - lengths[order[i]]);
  }
  return codes;
}

std::string Implode(std::string_view plain, ImplodeForm form, TreeShape shape, Random& random) {
  const unsigned lowBits = form.largeWindow ? 7 : 6;
  const std::size_t least = form.literalTree ? 3 : 2;
  const Tree literals(256, shape, random);
  const Tree lengths(64, shape, random);
  const Tree distances(64, shape, random);
  BitWriter bits;
  if (form.literalTree) PutTree(literals.lengths, &bits);
  PutTree(lengths.lengths, &bits);
  PutTree(distances.lengths, &bits);
  MatchFinder finder(plain, std::size_t{64} << lowBits, least + 63 + 255);
  for (std::size_t at = 0; at < plain.size();) {
    const Match match = finder.Find(at, random);
    if (match.length < least) {
      const auto literal = static_cast<unsigned char>(plain[at++]);
      bits.Put(1, 1);
      form.literalTree ? literals.Put(literal, &bits) : bits.Put(literal, 8);
      continue;
    }
    const auto distance = static_cast<unsigned>(match.distance - 1);
    const std::size_t symbol = std::min<std::size_t>(match.length - least, 63);
    bits.Put(0, 1);
    bits.Put(distance & ((1U << lowBits) - 1), lowBits);
    distances.Put(distance >> lowBits, &bits);
    lengths.Put(symbol, &bits);
    if (symbol == 63) bits.Put(static_cast<unsigned>(match.length - least - 63), 8);
    at += match.length;
  }
  return bits.bytes();
}

}  // namespace zeapi::testing
