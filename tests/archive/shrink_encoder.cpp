#include "archive/shrink_encoder.h"

#include <algorithm>
#include <map>
#include <vector>

#include "archive/bit_writer.h"

namespace zeapi::testing {
namespace {

constexpr unsigned kOrder = 256;
constexpr unsigned kFirst = 257;
constexpr unsigned kEnd = 8192;
constexpr unsigned kNone = kEnd;

struct Entry {
  bool used = false;
  bool sound = false;  // its parent was there when it was made, and so its string is known
  unsigned parent = kNone;
  std::string text;
};

class Shrinker {
 public:
  Shrinker(std::string_view plain, const ShrinkHabits& habits, Random& random, ShrinkFacts* facts)
      : rest_(plain), habits_(habits), random_(random), facts_(facts), entries_(kFirst) {}

  std::string Run() {
    while (!rest_.empty()) {
      if (previous_ != kNone && OneIn(habits_.clearOneIn)) Clear();
      if (habits_.clearOneIn == 0 && NextFree() == kEnd) Clear();
      unsigned code = Longest();
      if (width_ < 13 && OneIn(habits_.widenOneIn)) Widen();
      while (code >= 1U << width_) Widen();
      if (code >= entries_.size()) entries_.resize(code + 1);
      const bool isNew = code >= kFirst && !entries_[code].used;
      facts_->newest += isNew;
      bits_.Put(code, width_);
      const char first = rest_[0];
      if (previous_ != kNone) Add(first);
      rest_.remove_prefix(TextOf(code).size());
      previous_ = code;
    }
    return bits_.bytes();
  }

 private:
  bool OneIn(unsigned n) { return n != 0 && Below(random_, n) == 0; }

  std::string TextOf(unsigned code) const {
    return code < kOrder ? std::string(1, static_cast<char>(code)) : entries_[code].text;
  }

  unsigned NextFree() {
    while (nextFree_ < entries_.size() && entries_[nextFree_].used) ++nextFree_;
    return nextFree_;
  }

  bool IsSound(unsigned code) const { return code < kOrder || entries_[code].sound; }

  unsigned Longest() {
    const auto byte = static_cast<unsigned char>(rest_[0]);
    if (previous_ == kNone) return byte;
    unsigned best = byte;
    std::size_t length = 1;
    for (std::size_t size = 2; size <= std::min(rest_.size(), longest_); ++size) {
      const auto found = codes_.find(rest_.substr(0, size));
      if (found == codes_.end()) continue;
      if (OneIn(habits_.shortOneIn)) break;
      best = found->second;
      length = size;
    }
    const unsigned next = NextFree();
    if (next < kEnd && IsSound(previous_)) {
      const std::string text = TextOf(previous_) + rest_[0];
      if (text.size() > length && text == rest_.substr(0, text.size())) best = next;
    }
    return best;
  }

  void Add(char first) {
    const unsigned code = NextFree();
    if (code == kEnd) return;
    if (code >= entries_.size()) entries_.resize(code + 1);
    Entry& entry = entries_[code];
    entry.used = true;
    entry.parent = previous_;
    entry.sound = IsSound(previous_) && previous_ != code;
    if (!entry.sound) return;
    entry.text = TextOf(previous_) + first;
    longest_ = std::max(longest_, entry.text.size());
    codes_[entry.text] = code;
  }

  void Widen() {
    Order(1);
    facts_->widest = ++width_;
  }

  void Clear() {
    Order(2);
    ++facts_->clears;
    ++facts_->clearedAt[width_];
    std::vector<bool> isParent(kEnd);
    for (unsigned code = kFirst; code < entries_.size(); ++code) {
      if (entries_[code].used) isParent[entries_[code].parent] = true;
    }
    for (unsigned code = kFirst; code < entries_.size(); ++code) {
      if (!entries_[code].used || isParent[code]) continue;
      const auto known = codes_.find(entries_[code].text);
      if (known != codes_.end() && known->second == code) codes_.erase(known);
      entries_[code] = Entry();
    }
    nextFree_ = kFirst;
  }

  void Order(unsigned order) {
    bits_.Put(kOrder, width_);
    bits_.Put(order, width_);
  }

  std::string_view rest_;
  const ShrinkHabits& habits_;
  Random& random_;
  ShrinkFacts* facts_;
  std::vector<Entry> entries_;
  std::map<std::string, unsigned, std::less<>> codes_;
  std::size_t longest_ = 1;
  unsigned nextFree_ = kFirst;
  unsigned width_ = 9;
  unsigned previous_ = kNone;
  BitWriter bits_;
};

}  // namespace

std::string Shrink(std::string_view plain, const ShrinkHabits& habits, Random& random,
                   ShrinkFacts* facts) {
  ShrinkFacts unused;
  return Shrinker(plain, habits, random, facts == nullptr ? &unused : facts).Run();
}

}  // namespace zeapi::testing
