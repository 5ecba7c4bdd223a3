#include "config/panel_queries.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "base/big_endian.h"
#include "config/text_numbers.h"
#include "config/text_pieces.h"

namespace zeapi {
namespace {

constexpr std::uint32_t kValueRoom = 4000;
constexpr std::size_t kLongestPageName = 64;

// A value or `fallback`, cut to what the room holds beside its terminator.
std::string_view ReadText(IniFile* file, const char* section, const char* key,
                          const char* fallback) {
  std::string_view text;
  IniReadView(file, section, key, fallback, kValueRoom, &text);
  return text;
}

std::string_view Style(IniFile* file) { return ReadText(file, "Format", "Style", ""); }

// Styles from 2 on name controls in hexadecimal.
std::string ControlKey(IniFile* file, std::int16_t control, std::uint32_t subIndex = 0) {
  const std::string_view style = Style(file);
  const bool hexadecimal = !style.empty() && static_cast<unsigned char>(style[0]) >= '2';
  char key[16];
  std::snprintf(key, sizeof(key), hexadecimal ? "%04x" : "%u", static_cast<unsigned>(control));
  return subIndex == 0 ? key : std::string(key) + '-' + std::to_string(subIndex);
}

// Name of the page's own section; empty when there is none.
std::string PageSection(IniFile* file, std::int16_t page) {
  const std::string_view name = ReadText(file, "Dialogs", std::to_string(page).c_str(), "");
  return std::string(name.substr(0, kLongestPageName));
}

std::int64_t ReadCount(IniFile* file, const std::string& section, const char* key) {
  return DecimalAtStart(ReadText(file, section.c_str(), key, ""));
}

// Stores items one behind the other while there is room.
class RoomWriter {
 public:
  explicit RoomWriter(const OpcRoom& room)
      : bytes_(static_cast<char*>(room.bytes)),
        size_(room.size > 0 ? static_cast<std::size_t>(room.size) : 0) {}

  bool Fits(std::size_t size) const { return size <= size_ - used_; }

  void Store(const void* data, std::size_t size) {
    std::memcpy(bytes_ + used_, data, size);
    used_ += size;
  }

 private:
  char* bytes_;
  std::size_t size_;
  std::size_t used_ = 0;
};

std::int16_t TooSmall(const OpcRoom& room, std::int64_t needed) {
  const auto word = static_cast<std::uint16_t>(needed);
  RoomWriter writer(room);
  if (writer.Fits(sizeof(word))) writer.Store(&word, sizeof(word));
  return kOpcTooSmall;
}

}  // namespace

std::int16_t OpcStyle(IniFile* file) {
  return static_cast<std::int16_t>(DecimalAtStart(Style(file)));
}

OpcSpinLimits OpcSpinControlLimits(IniFile* file, std::int16_t control) {
  std::string_view rest = ReadText(file, "Spin Limits", ControlKey(file, control).c_str(), "");
  std::string_view piece;
  OpcSpinLimits limits;
  if (TakePiece(&rest, ';', &piece)) limits.minimum = DecimalAtStart(piece);
  // Behind a minimum of -1 comes no maximum.
  if (limits.minimum != -1 && TakePiece(&rest, ';', &piece)) {
    limits.maximum = DecimalAtStart(piece);
  }
  limits.hasThird = TakePiece(&rest, ';', &piece);
  if (limits.hasThird) limits.third = DecimalAtStart(piece);
  return limits;
}

std::int16_t OpcTextListing(IniFile* file, std::int16_t control, std::uint32_t subIndex,
                            const OpcRoom& room) {
  std::string_view rest = ReadText(file, "Combos", ControlKey(file, control, subIndex).c_str(), "");
  if (rest.empty()) return kOpcMissing;
  RoomWriter writer(room);
  std::string_view piece;
  int count = 0;
  bool overflow = false;
  for (; TakePiece(&rest, ';', &piece); ++count) {
    const auto text = static_cast<std::uint16_t>(DecimalAtStart(piece));
    overflow = overflow || !writer.Fits(sizeof(text));
    if (room.bytes != nullptr && !overflow) writer.Store(&text, sizeof(text));
  }
  if (room.bytes == nullptr) return static_cast<std::int16_t>(count * 2);
  return overflow ? TooSmall(room, std::int64_t{count} * 2) : static_cast<std::int16_t>(count);
}

std::int16_t OpcMaxEditLength(IniFile* file, std::int16_t control) {
  return static_cast<std::int16_t>(
      DecimalAtStart(ReadText(file, "Edit Lengths", ControlKey(file, control).c_str(), "0")));
}

std::int16_t OpcPageDefaults(IniFile* file, std::int16_t page, const OpcRoom& room) {
  const std::string section = PageSection(file, page);
  if (section.empty()) return kOpcMissing;
  const std::int64_t controls = ReadCount(file, section, "NumCtrls");
  const std::int64_t needed = controls * 6;
  if (room.bytes == nullptr) return static_cast<std::int16_t>(needed);
  if (needed > room.size) return TooSmall(room, needed);
  std::string_view rest = ReadText(file, section.c_str(), "Defaults", "");
  RoomWriter writer(room);
  std::string_view piece;
  for (std::int64_t i = 0; i < controls && TakePiece(&rest, ';', &piece); ++i) {
    const std::uint16_t control = HexAtStart(piece);
    writer.Store(&control, sizeof(control));
    if (!TakePiece(&rest, ';', &piece)) break;
    const std::int32_t setting = DecimalAtStart(piece);
    writer.Store(&setting, sizeof(setting));
  }
  return static_cast<std::int16_t>(controls);
}

std::int16_t OpcPageOmVars(IniFile* file, std::int16_t page, const OpcRoom& room) {
  const std::string section = PageSection(file, page);
  if (section.empty()) return kOpcMissing;
  const std::int64_t needed = ReadCount(file, section, "NumOMVAR") * 2;
  if (room.bytes == nullptr) return static_cast<std::int16_t>(needed);
  if (needed > room.size) return TooSmall(room, needed);
  // All that the file lists, not only as many as it says it has.
  std::string_view rest = ReadText(file, section.c_str(), "OMVAR", "");
  RoomWriter writer(room);
  std::string_view piece;
  std::int16_t stored = 0;
  while (writer.Fits(2) && TakePiece(&rest, ' ', &piece)) {
    const auto bytes = BigEndianBytes(HexAtStart(piece));
    writer.Store(bytes.data(), bytes.size());
    ++stored;
  }
  return stored;
}

}  // namespace zeapi
