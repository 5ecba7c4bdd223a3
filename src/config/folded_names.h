// Names of INI files: sections, keys and values, which are the same in either case of "a" to "z".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zeapi {

// Both depend on no locale: a host program that sets one must not change what a file says.
bool SameFolded(std::string_view a, std::string_view b);
std::uint32_t FoldedHash(std::string_view name);

// Finds the first of several items of one name. Keeps pointers; an item's name must not change,
// but for its case, while it is in here.
template <typename Item, std::string_view (*NameOf)(const Item&)>
class FirstByName {
 public:
  // Leaves an earlier item of the same name in its place.
  void Add(Item* item) {
    if (2 * (count_ + 1) > slots_.size()) Grow();
    const std::uint32_t hash = FoldedHash(NameOf(*item));
    Slot& slot = SlotFor(hash, NameOf(*item));
    if (slot.item != nullptr) return;
    slot = {item, hash};
    ++count_;
  }

  Item* Find(std::string_view name) {
    return slots_.empty() ? nullptr : SlotFor(FoldedHash(name), name).item;
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

  // The slot that holds the name, or the free one where it belongs.
  Slot& SlotFor(std::uint32_t hash, std::string_view name) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].item != nullptr &&
           (slots_[at].hash != hash || !SameFolded(NameOf(*slots_[at].item), name))) {
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
