// Finds the first of several items of one name, ignoring case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "config/name_hash.h"

namespace zeapi {

// Keeps pointers; an item's name must not change, but for its case, while it is in here. Whoever wrote the
// names cannot make look-ups slow: where an item lies hangs on a secret of this process.
template <typename Item, std::string_view (*nameOf)(const Item&)>
class FirstByName {
 public:
  // Leaves an earlier item of the same name in its place.
  void Add(Item* item) {
    if (2 * (count_ + 1) > slots_.size()) Grow();
    const std::uint32_t hash = HashOf(nameOf(*item));
    Slot& slot = SlotFor(hash, nameOf(*item));
    if (slot.item != nullptr) return;
    slot = {item, hash};
    ++count_;
  }

  Item* Find(std::string_view name) {
    return slots_.empty() ? nullptr : SlotFor(HashOf(name), name).item;
  }

  void Clear() {
    std::vector<Slot>().swap(slots_);
    count_ = 0;
  }

 private:
  struct Slot {
    Item* item = nullptr;
    std::uint32_t hash = 0;
  };

  static std::uint32_t HashOf(std::string_view name) {
    return static_cast<std::uint32_t>(NameHash(name, ProcessHashKey()));
  }

  // The slot that holds the name, or the free one where it belongs.
  Slot& SlotFor(std::uint32_t hash, std::string_view name) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].item != nullptr &&
           (slots_[at].hash != hash || !SameText(nameOf(*slots_[at].item), name))) {
      at = (at + 1) & mask;
    }
    return slots_[at];
  }

  void Grow() {
    std::vector<Slot> old(slots_.empty() ? kFirstSize : 2 * slots_.size());
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
      if (slot.item == nullptr) continue;
      std::size_t at = slot.hash & mask;
      while (slots_[at].item != nullptr) at = (at + 1) & mask;
      slots_[at] = slot;
    }
  }

  static constexpr std::size_t kFirstSize = 16;

  std::vector<Slot> slots_;  // a power of two, at most half full
  std::size_t count_ = 0;
};

}  // namespace zeapi
