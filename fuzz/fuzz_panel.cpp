// The queries of a panel configuration file, each with a room of the exact size.
//
// Input: a line of numbers (control, sub-index, page, size in bytes), the content of the file.

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::int16_t kTooSmall = -1;
constexpr std::int16_t kMissing = -2;

// A room of `size` bytes whose end a sanitizer watches. A null pointer of a query would ask for the size.
struct Room {
  explicit Room(std::int32_t bytes)
      : size(static_cast<std::size_t>(std::max(bytes, 0))),
        memory(std::make_unique<char[]>(size + 1)) {
    std::memset(memory.get(), '#', size + 1);
    edge = memory[size];
  }
  // What stands in front of the guard byte belongs to the caller.
  bool Whole() const { return memory[size] == edge; }
  std::uint16_t FirstWord() const {
    std::uint16_t word = 0;
    std::memcpy(&word, memory.get(), std::min<std::size_t>(size, sizeof(word)));
    return word;
  }

  std::size_t size;
  std::unique_ptr<char[]> memory;
  char edge;
};

void CheckTexts(void* handle, std::int32_t control, std::int32_t sub, std::int16_t size) {
  const std::int16_t needed = ZeOpcGetTextListing(handle, control, sub, nullptr, 0);
  Check(needed == kMissing || (needed >= 0 && needed % 2 == 0), "the bytes needed are whole words");
  // Aligned as a caller's array is.
  const auto words =
      std::make_unique<std::uint16_t[]>(static_cast<std::size_t>(std::max<int>(size, 0)) / 2);
  const std::int16_t count = ZeOpcGetTextListing(handle, control, sub, words.get(), size);
  if (needed == kMissing) {
    Check(count == kMissing, "a list that is missing is missing with a room too");
  } else if (size >= needed) {
    Check(count * 2 == needed, "a list that fits is stored whole");
  } else {
    Check(count == kTooSmall, "a list that does not fit says so");
    if (size >= 2) Check(words[0] == needed, "the first word tells the bytes needed");
  }
}

template <typename Query>
void CheckPage(Query query, void* handle, std::int32_t page, std::int16_t size, int itemSize) {
  const std::int16_t needed = query(handle, page, nullptr, 0);
  const Room room(size);
  const std::int16_t answer = query(handle, page, room.memory.get(), size);
  Check(room.Whole(), "nothing is stored beyond the room");
  if (needed == kMissing && answer == kMissing) return;
  if (answer == kTooSmall && needed != -itemSize) {
    if (size >= 2) {
      Check(room.FirstWord() == static_cast<std::uint16_t>(needed),
            "the first word tells the bytes needed");
    }
    return;
  }
  if (itemSize == 2) Check(answer * 2 <= std::max<int>(size, 0), "no more is stored than fits");
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const auto control = static_cast<std::int16_t>(numbers.Next());
  const auto sub = static_cast<std::int32_t>(numbers.Below(5));
  const auto page = static_cast<std::int16_t>(numbers.Next());
  const auto room = static_cast<std::int16_t>(numbers.Below(4200));
  WriteWhole(drives.Folder("c") / "opc007.cfg", input.Rest());

  const int descriptors = OpenDescriptors();
  void* handle = ZeOpcRegisterCfg(7, "c:");
  Check(handle != nullptr, "any file can be a panel's");
  Check(ZeOpcRegisterCfg(7, "c:\\") == handle, "a panel has one file");
  std::int32_t limits[3] = {};
  ZeOpcGetSpinControlLimits(handle, control, &limits[0], &limits[1], &limits[2]);
  Check(limits[0] != -1 || limits[1] == 0, "a minimum of -1 has no maximum");
  ZeOpcGetMaxEditLength(handle, control);
  CheckTexts(handle, control, sub, room);
  CheckPage(ZeOpcGetPageDefaults, handle, page, room, 6);
  CheckPage(ZeOpcGetPageOmVars, handle, page, room, 2);
  Check(ZeOpcUnregisterCfg(handle) == 1 && ZeOpcUnregisterCfg(handle) == 1, "uses are counted");
  Check(ZeOpcUnregisterCfg(handle) == 0, "a file that is closed is unknown");
  Check(descriptors == OpenDescriptors(), "every file is closed");
  return 0;
}
