// Codes: 0 to 255 are bytes, 256 announces an order in the next code (1: codes are one bit wider from
// here on; 2: clear in part), 257 up are strings: a string known before (the parent) and one byte more.
//
// Each code but the first makes a new string of the one before it and its own first byte, under the
// lowest free number. Orders make none. Clearing frees every string that is no other's parent; the
// string of the code before may be among them, and the next one made then still names it.
#include "archive/unshrink.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <new>

#include "archive/bit_reader.h"

namespace zeapi {
namespace {

constexpr unsigned kOrder = 256;
constexpr unsigned kFirstString = 257;
constexpr unsigned kLeastBits = 9;
constexpr unsigned kMostBits = 13;
constexpr unsigned kCodes = 1U << kMostBits;
constexpr std::uint16_t kNone = 0xFFFF;

// The numbers that no string has.
class FreeNumbers {
 public:
  FreeNumbers() {
    for (unsigned code = kFirstString; code < kCodes; ++code) Give(code);
  }

  void Give(unsigned code) {
    words_[code / 64] |= std::uint64_t{1} << code % 64;
    first_ = std::min<std::size_t>(first_, code / 64);
  }
  void Take(unsigned code) { words_[code / 64] &= ~(std::uint64_t{1} << code % 64); }
  bool Has(unsigned code) const { return (words_[code / 64] >> code % 64 & 1) != 0; }

  // kCodes when there is none.
  unsigned Lowest() {
    while (first_ < words_.size() && words_[first_] == 0) ++first_;
    if (first_ == words_.size()) return kCodes;
    return static_cast<unsigned>(first_ * 64) +
           static_cast<unsigned>(std::countr_zero(words_[first_]));
  }

 private:
  std::array<std::uint64_t, kCodes / 64> words_ = {};
  std::size_t first_ = kCodes / 64;  // words before it are empty
};

class Unshrinker {
 public:
  Unshrinker(BlockSource& source, Window& window) : bits_(source), window_(window) {}

  void Run(std::uint64_t size) {
    while (window_.total() < size && window_.ok()) {
      const unsigned code = bits_.Bits(width_);
      if (!bits_.ok()) return;
      if (code == kOrder) {
        if (!Obey()) return;
        continue;
      }
      if (!Spell(code)) return;
      const std::span<const std::uint8_t> string(text_ + start_, end_ - start_);
      window_.Append(string.first(static_cast<std::size_t>(
          std::min<std::uint64_t>(string.size(), size - window_.total()))));
      if (previous_ != kNone) Add();
      previous_ = static_cast<std::uint16_t>(code);
    }
  }

 private:
  bool Obey() {
    const unsigned order = bits_.Bits(width_);
    if (!bits_.ok()) return false;
    if (order == 1) return ++width_ <= kMostBits;
    if (order != 2) return false;
    Clear();
    return true;
  }

  // Costs what it frees and what was added since the last time: a hostile stream can ask for it after every
  // code. A parent whose last child goes is the next clearing's, so nothing is freed before all is judged.
  void Clear() {
    const auto isNoParent = [this](std::uint16_t code) { return children_[code] == 0; };
    const auto end = std::partition(leaves_.begin(), leaves_.begin() + leafCount_, isNoParent);
    auto next = leaves_.begin();
    for (auto leaf = leaves_.begin(); leaf != end; ++leaf) {
      const std::uint16_t parent = parent_[*leaf];
      free_.Give(*leaf);
      if (--children_[parent] == 0 && parent >= kFirstString && !free_.Has(parent))
        *next++ = parent;
    }
    leafCount_ = next - leaves_.begin();
  }

  // Puts the string of a code into text_.
  bool Spell(unsigned code) {
    end_ = kCodes;
    if (code < kOrder || (previous_ != kNone && !free_.Has(code))) return SpellKnown(code);
    // A code that this very step is to make: the string before and its first byte once more.
    if (previous_ == kNone || code != free_.Lowest() || !SpellKnown(previous_)) return false;
    text_[end_++] = text_[start_];
    return true;
  }

  // Last byte first. A string can lead to a number that is free, or round to itself: no valid data asks
  // for one that does.
  bool SpellKnown(unsigned code) {
    start_ = kCodes;
    for (; code >= kFirstString; code = parent_[code]) {
      if (free_.Has(code) || start_ == 1) return false;
      text_[--start_] = last_[code];
    }
    text_[--start_] = static_cast<std::uint8_t>(code);
    return true;
  }

  void Add() {
    const unsigned code = free_.Lowest();
    if (code == kCodes) return;
    free_.Take(code);
    parent_[code] = previous_;
    last_[code] = text_[start_];
    ++children_[previous_];
    leaves_[static_cast<std::size_t>(leafCount_++)] = static_cast<std::uint16_t>(code);
  }

  BitReader bits_;
  Window& window_;
  unsigned width_ = kLeastBits;
  std::uint16_t previous_ = kNone;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
  FreeNumbers free_;
  std::uint16_t parent_[kCodes];
  std::uint8_t last_[kCodes];
  // Strings that have it as their parent; a number that is free may have some.
  std::uint16_t children_[kCodes] = {};
  // Among them all strings that have none; each at most once.
  std::array<std::uint16_t, kCodes> leaves_;
  std::ptrdiff_t leafCount_ = 0;
  std::uint8_t text_[kCodes + 1];
};

}  // namespace

ArchiveStatus Unshrink(BlockSource& source, std::uint64_t size, Window& window) {
  const std::unique_ptr<Unshrinker> unshrinker(new (std::nothrow) Unshrinker(source, window));
  if (unshrinker == nullptr) return kArchiveNoMemory;
  unshrinker->Run(size);
  window.Flush();
  return kArchiveOk;
}

}  // namespace zeapi
