#include "macro_reference.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr std::size_t kLongest = 248;  // nothing longer is recognised
constexpr long long kLarge = 1LL << 56;

bool IsValue(char c) { return (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.'; }

// Whole number at the start of a value text; large ones are all alike.
long long Number(std::string_view text) {
  bool negative = false;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    negative = text[0] == '-';
    text.remove_prefix(1);
  }
  long long number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    if (number < kLarge) number = 10 * number + (c - '0');
  }
  return negative ? -number : number;
}

// The entries of a prefix as the rules write them; none when it is not looked into.
std::optional<std::string> Entries(std::string_view prefix, std::uint32_t options) {
  const auto with = [options](std::uint32_t bit, const char* entries) {
    return (options & bit) != 0 ? std::string(entries) : std::string();
  };
  if (prefix == "&l") {
    return "F# P#" + with(0x004, " A#") + with(0x008, " H#") + with(0x010, " S#") +
           with(0x020, " O#") + with(0x040, " T1") + with(0x080, " X#") + with(0x100, " L#") +
           with(0x400, " G#");
  }
  if (prefix == "&a") return with(0x010, " G#");
  if (prefix == "&b") return "M#";
  if (prefix == "&f") return "X6 X7 X10" + with(0x800, " X0 X1");
  if (prefix == "&p") return "X!";
  if (prefix == "&r") return with(0x200, " F#");
  if (prefix == "(f" || prefix == "(s" || prefix == ")s") return "W!";
  if (prefix == "*b") return "W! V!";
  if (prefix == "*c") return "W! F0 F1";
  return std::nullopt;
}

enum class Fate { kKeep, kData, kDrop };

Fate FateOf(const std::string& entries, char letter, long long value) {
  if (letter >= 0x60 && letter <= 0x7E) letter = static_cast<char>(letter - 0x20);
  for (std::size_t at = 0; at < entries.size();) {
    const std::size_t end = std::min(entries.find(' ', at), entries.size());
    const std::string entry = entries.substr(at, end - at);
    at = end + 1;
    if (entry.empty() || entry[0] != letter) continue;
    if (entry[1] == '!') return Fate::kData;
    if (entry[1] == '#' || std::stoll(entry.substr(1)) == value) return Fate::kDrop;
  }
  return Fate::kKeep;
}

class Fixup {
 public:
  Fixup(std::string_view file, std::int32_t language, std::uint32_t options, const char* overlay)
      : in_(file), language_(language), options_(options), overlay_(overlay) {}

  std::string Run() {
    while (at_ < in_.size()) {
      if (language_ == ZE_LANGUAGE_PCL) {
        if (graphics_) {
          Graphics();
        } else {
          Pcl();
        }
      } else if (language_ == ZE_LANGUAGE_POSTSCRIPT) {
        PostScript();
      } else {
        Keep(1);
      }
    }
    return out_;
  }

 private:
  char At(std::size_t offset) const { return at_ + offset < in_.size() ? in_[at_ + offset] : '\0'; }
  std::size_t Left() const { return in_.size() - at_; }
  bool Next(std::string_view text) const { return in_.substr(at_, text.size()) == text; }
  void Keep(std::size_t count) {
    out_ += in_.substr(at_, count);
    Drop(count);
  }
  void Drop(std::size_t count) { at_ += std::min(count, Left()); }
  std::size_t Line() const {
    const std::size_t end = in_.find('\n', at_);
    return end == in_.npos ? Left() : end + 1 - at_;
  }

  // Length of "ESC % number LETTER", or 0.
  std::size_t Percent(char letter) const {
    if (!Next("\x1B%")) return 0;
    std::size_t end = 2;
    while (end < Left() && IsValue(At(end))) ++end;
    return end < Left() && end < kLongest && At(end) == letter ? end + 1 : 0;
  }

  bool DropBlock() {
    if (!Next("\x1B[K") || Left() < 5) return false;
    const std::size_t length =
        static_cast<std::uint8_t>(At(3)) + 256U * static_cast<std::uint8_t>(At(4));
    Drop(5 + length);
    return true;
  }

  void PostScript() {
    if (At(0) == 4) {
      Drop(1);
    } else if (Next("\x1B%-12345X")) {
      Drop(9);
    } else if (Next("%!PS")) {
      Keep(Line());
      if (overlay_ != nullptr) out_ += overlay_;
    } else if (Next("@PJL")) {
      Drop(Line());
    } else if (!DropBlock()) {
      Keep(1);
    }
  }

  void Optional(std::uint32_t bit, std::size_t count) {
    if ((options_ & bit) != 0) {
      Drop(count);
    } else {
      Keep(count);
    }
  }

  void Graphics() {
    if (const std::size_t length = Percent('A')) {
      graphics_ = false;
      Keep(length);
    } else if (Next("\x1B"
                    "E")) {
      graphics_ = false;
      Optional(0x001, 2);
    } else {
      Keep(1);
    }
  }

  void Pcl() {
    if (At(0) == '\f') return Optional(0x002, 1);
    if (Next("@PJL")) return Drop(Line());
    if (At(0) != 0x1B) return Keep(1);
    if (Next("\x1B%-12345X")) return Drop(9);
    if (const std::size_t length = Percent('B')) {
      graphics_ = true;
      return Keep(length);
    }
    if (Left() > 1 && At(1) == 'E') return Optional(0x001, 2);
    if (DropBlock()) return;
    if (Next("\x1B&n")) return AlphanumericId();
    const std::optional<std::string> entries =
        Left() < 3 ? std::nullopt : Entries(in_.substr(at_ + 1, 2), options_);
    if (!entries) return Keep(1);
    Sequence(*entries);
  }

  void AlphanumericId() {
    std::size_t end = 3;
    while (end < Left() && At(end) >= '0' && At(end) <= '9') ++end;
    if (end >= Left() || end >= kLongest) return Keep(1);
    const long long count = Number(in_.substr(at_ + 3, end - 3));
    if (count != 0 && At(end) == 'W') {
      Drop(end + 1);
      Drop(static_cast<std::size_t>(count));
    } else {
      Drop(1);
      Keep(end);
    }
  }

  struct Group {
    std::string text;  // with its letter
    bool kept;
  };

  void Sequence(const std::string& entries) {
    const std::string prefix(in_.substr(at_, 3));
    const std::size_t start = at_;
    std::vector<Group> groups;
    long long data = 0;
    bool ended = false;
    Drop(3);
    while (!ended) {
      std::size_t end = 0;
      while (end < Left() && IsValue(At(end))) ++end;
      if (end >= Left() || end >= kLongest) {
        if (end >= Left() && in_.size() - start < kLongest) {
          out_ += in_.substr(start);
          at_ = in_.size();
        } else {
          Write(prefix, groups, at_ < in_.size(), false);
        }
        return;
      }
      const char letter = At(end);
      const long long value = Number(in_.substr(at_, end));
      const Fate fate = FateOf(entries, letter, value);
      if (fate == Fate::kData && value > 0) data = std::min(data + value, kLarge);
      groups.push_back({std::string(in_.substr(at_, end + 1)), fate != Fate::kDrop});
      Drop(end + 1);
      ended = letter < 0x60 || letter > 0x7E;
    }
    Write(prefix, groups, false, !groups.back().kept);
    KeepData(data);
  }

  // The kept groups behind the prefix, which also stands alone when something follows it.
  void Write(const std::string& prefix, const std::vector<Group>& groups, bool prefixAlone,
             bool upperCaseEnd) {
    std::string kept;
    for (const Group& group : groups) {
      if (group.kept) kept += group.text;
    }
    if (kept.empty() && !prefixAlone) return;
    if (upperCaseEnd) kept.back() = static_cast<char>(kept.back() - 0x20);
    out_ += prefix + kept;
  }

  void KeepData(long long count) { Keep(static_cast<std::size_t>(count)); }

  const std::string_view in_;
  const std::int32_t language_;
  const std::uint32_t options_;
  const char* const overlay_;
  std::size_t at_ = 0;
  std::string out_;
  bool graphics_ = false;
};

}  // namespace

std::string FixedUp(std::string_view file, std::int32_t language, std::uint32_t options,
                    const char* overlayHeader) {
  return Fixup(file, language, options, overlayHeader).Run();
}

}  // namespace zeapi::fuzz
