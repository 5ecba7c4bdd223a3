// The queries of a panel configuration file, each with a room of the exact size.
//
// Input: a line of numbers (control, sub-index, page, size in bytes), the content of the file.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "support/ini_model.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::int16_t kTooSmall = -1;
constexpr std::int16_t kMissing = -2;
constexpr std::size_t kLongestValue = 3999;

// A block that ends where a caller's would, so that a sanitizer sees every byte stored beyond it.
struct Room {
  explicit Room(std::int32_t bytes)
      : size(static_cast<std::size_t>(std::max(bytes, 0))),
        memory(std::make_unique_for_overwrite<char[]>(size)) {
    std::memset(memory.get(), '#', size);
  }
  std::string Text() const { return {memory.get(), size}; }

  std::size_t size;
  std::unique_ptr<char[]> memory;
};

// What a page of the file says, read once more and as plainly as possible.
class Page {
 public:
  Page(testing::IniModel* model, std::int32_t page) : model_(model) {
    name_ = Value("Dialogs", std::to_string(page)).substr(0, 64);
  }

  bool missing() const { return name_.empty(); }
  std::int64_t Count(const std::string& key) const { return Decimal(Value(name_, key)); }

  // What stands between the separators, in a room that was full of "#".
  std::string Defaults(std::size_t size) const {
    std::string bytes(size, '#');
    const std::vector<std::string> pieces = Pieces(Value(name_, "Defaults"), ';');
    const auto count = static_cast<std::size_t>(std::max<std::int64_t>(Count("NumCtrls"), 0));
    for (std::size_t i = 0; i < std::min(pieces.size(), 2 * count); ++i) {
      const auto number =
          static_cast<std::uint32_t>(i % 2 == 0 ? Hexadecimal(pieces[i]) : Decimal(pieces[i]));
      const std::size_t width = i % 2 == 0 ? 2 : 4;
      for (std::size_t at = 0; at < width; ++at) {
        bytes.at(i / 2 * 6 + i % 2 * 2 + at) = static_cast<char>(number >> (8 * at));
      }
    }
    return bytes;
  }

  std::string Variables(std::size_t size, std::int16_t* stored) const {
    std::string bytes;
    for (const std::string& piece : Pieces(Value(name_, "OMVAR"), ' ')) {
      if (bytes.size() + 2 > size) break;
      const std::int64_t number = Hexadecimal(piece);
      bytes += static_cast<char>(number >> 8);
      bytes += static_cast<char>(number);
    }
    *stored = static_cast<std::int16_t>(bytes.size() / 2);
    bytes.resize(size, '#');
    return bytes;
  }

 private:
  std::string Value(const std::string& section, const std::string& key) const {
    return model_->Read(&section, &key).substr(0, kLongestValue);
  }

  static std::vector<std::string> Pieces(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::istringstream stream(text);
    for (std::string piece; std::getline(stream, piece, separator);) {
      if (!piece.empty()) pieces.push_back(piece);
    }
    return pieces;
  }

  static std::int64_t Decimal(const std::string& text) {
    return std::clamp<std::int64_t>(std::strtoll(text.c_str(), nullptr, 10), INT32_MIN, INT32_MAX);
  }

  // The last four digits of the first number.
  static std::int64_t Hexadecimal(const std::string& text) {
    std::string number = text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (number.starts_with("0x") || number.starts_with("0X")) number[1] = '0';
    number.resize(std::min(number.find_first_not_of("0123456789abcdefABCDEF"), number.size()));
    return std::strtol(
        number.substr(number.size() - std::min<std::size_t>(number.size(), 4)).c_str(), nullptr,
        16);
  }

  testing::IniModel* model_;
  std::string name_;
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

// A room that is too small holds the bytes needed, if it has two for them.
std::string TooSmall(std::int64_t needed, std::size_t size) {
  std::string bytes(size, '#');
  const auto word = static_cast<std::uint16_t>(needed);
  if (size >= sizeof(word)) std::memcpy(bytes.data(), &word, sizeof(word));
  return bytes;
}

struct Answer {
  std::int16_t code;
  std::string bytes;
};

template <typename Query>
void CheckPage(Query query, void* handle, std::int32_t page, std::int16_t size, std::int64_t needed,
               bool missing, const Answer& whole) {
  const std::int16_t asked = query(handle, page, nullptr, 0);
  const Room room(size);
  const std::int16_t answer = query(handle, page, room.memory.get(), size);
  Answer expected = whole;
  if (missing) {
    expected = {kMissing, std::string(room.size, '#')};
  } else if (needed > size) {
    expected = {kTooSmall, TooSmall(needed, room.size)};
  }
  Check(asked == (missing ? kMissing : static_cast<std::int16_t>(needed)),
        "a null room asks for the bytes needed");
  Check(answer == expected.code, "a list is counted, missing, or too long for the room");
  Check(room.Text() == expected.bytes, "a room holds what the file says");
}

void CheckPages(const Page& reference, void* handle, std::int32_t page, std::int16_t size) {
  const auto room = static_cast<std::size_t>(std::max<int>(size, 0));
  const std::int64_t controls = reference.Count("NumCtrls");
  Answer whole = {static_cast<std::int16_t>(controls), ""};
  if (controls * 6 <= size) whole.bytes = reference.Defaults(room);
  CheckPage(ZeOpcGetPageDefaults, handle, page, size, controls * 6, reference.missing(), whole);
  whole.bytes = reference.Variables(room, &whole.code);
  CheckPage(ZeOpcGetPageOmVars, handle, page, size, reference.Count("NumOMVAR") * 2,
            reference.missing(), whole);
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
  zeapi::testing::IniModel model;
  model.Load(TextOf(input.Rest()), true);
  CheckPages(Page(&model, page), handle, page, room);
  Check(ZeOpcUnregisterCfg(handle) == 1 && ZeOpcUnregisterCfg(handle) == 1, "uses are counted");
  Check(ZeOpcUnregisterCfg(handle) == 0, "a file that is closed is unknown");
  Check(descriptors == OpenDescriptors(), "every file is closed");
  return 0;
}
