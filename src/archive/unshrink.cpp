// Codes: 0 to 255 are bytes, 256 announces an order in the next code (1: codes are one bit wider from
// here on; 2: clear in part), 257 up are strings: a string known before (the parent) and one byte more.
//
// Each code but the first makes a new string of the one before it and its own first byte, under the
// lowest free number. Orders make none. Clearing frees every string that is no other's parent; the
// string of the code before may be among them, and the next one made then still names it.
#include "archive/unshrink.h"

#include <algorithm>
#include <bitset>
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
constexpr std::uint16_t kFree = 0xFFFF;

class Unshrinker {
 public:
  Unshrinker(BlockSource& source, Window& window) : bits_(source), window_(window) {
    std::fill(std::begin(parent_), std::end(parent_), kFree);
  }

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
      if (previous_ != kFree) Add();
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

  void Clear() {
    std::bitset<kCodes> isParent;
    for (unsigned code = kFirstString; code < kCodes; ++code) {
      if (parent_[code] != kFree) isParent.set(parent_[code]);
    }
    for (unsigned code = kFirstString; code < kCodes; ++code) {
      if (!isParent[code]) parent_[code] = kFree;
    }
    nextFree_ = kFirstString;
  }

  // kCodes when the table is full.
  unsigned NextFree() {
    while (nextFree_ < kCodes && parent_[nextFree_] != kFree) ++nextFree_;
    return nextFree_;
  }

  // Puts the string of a code into text_.
  bool Spell(unsigned code) {
    end_ = kCodes;
    if (code < kOrder || (previous_ != kFree && parent_[code] != kFree)) return SpellKnown(code);
    // A code that this very step is to make: the string before and its first byte once more.
    if (previous_ == kFree || code != NextFree() || !SpellKnown(previous_)) return false;
    text_[end_++] = text_[start_];
    return true;
  }

  // Last byte first. A string can lead to a number that is free, or round to itself: no valid data asks
  // for one that does.
  bool SpellKnown(unsigned code) {
    start_ = kCodes;
    for (; code >= kFirstString; code = parent_[code]) {
      if (parent_[code] == kFree || start_ == 1) return false;
      text_[--start_] = last_[code];
    }
    text_[--start_] = static_cast<std::uint8_t>(code);
    return true;
  }

  void Add() {
    const unsigned code = NextFree();
    if (code == kCodes) return;
    parent_[code] = previous_;
    last_[code] = text_[start_];
  }

  BitReader bits_;
  Window& window_;
  unsigned width_ = kLeastBits;
  unsigned nextFree_ = kFirstString;
  std::uint16_t previous_ = kFree;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
  std::uint16_t parent_[kCodes];
  std::uint8_t last_[kCodes] = {};
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
