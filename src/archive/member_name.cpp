#include "archive/member_name.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace zeapi {
namespace {

constexpr char kLiteralNext = 22;
constexpr char kSeparators[] = "/\\";

bool Stays(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 32 && byte < 127) || (byte >= 128 && byte < 255);
}

// Where to go on after what begins at `at` and ends with `closing`.
std::size_t Behind(std::string_view text, std::size_t at, char closing) {
  return std::min(text.find(closing, at), text.size());
}

// Names that Windows takes for devices, with any extension; those of ports have a digit behind them,
// also one of the raised digits 1 to 3.
constexpr std::array<std::string_view, 7> kDevices = {"CON",    "PRN",     "AUX",   "NUL",
                                                      "CONIN$", "CONOUT$", "CLOCK$"};
constexpr std::array<std::string_view, 2> kPorts = {"COM", "LPT"};
constexpr std::string_view kPortDigits = "0123456789\xB9\xB2\xB3";

bool IsDevice(std::string_view component) {
  std::string base(component.substr(0, component.find('.')));
  base.erase(base.find_last_not_of(' ') + 1);
  std::transform(base.begin(), base.end(), base.begin(), AsciiUpper);
  if (std::find(kDevices.begin(), kDevices.end(), base) != kDevices.end()) return true;
  // The raised digits are two bytes in UTF-8.
  if (base.size() == 5 && base[3] == '\xC2') base.erase(3, 1);
  return base.size() == 4 && kPortDigits.find(base[3]) != std::string_view::npos &&
         std::find(kPorts.begin(), kPorts.end(), base.substr(0, 3)) != kPorts.end();
}

std::string MakeHarmless(std::string_view component) {
  std::string name(component);
  std::replace(name.begin(), name.end(), ':', '_');
  // Windows cuts these off, and so would find another name.
  for (std::size_t end = name.size(); end > 0 && (name[end - 1] == '.' || name[end - 1] == ' ');
       --end)
    name[end - 1] = '_';
  if (IsDevice(name)) name.insert(0, 1, '_');
  return name;
}

}  // namespace

std::string MapMemberName(std::string_view stored) {
  std::string mapped;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    const char c = stored[i];
    switch (c) {
      case '\\':
        mapped += '/';
        break;
      case ':':
        mapped += '_';
        break;
      case ';':
        return mapped;
      case '<':
        i = Behind(stored, i, '>');
        break;
      case '[':
        i = Behind(stored, i, ']');
        break;
      case kLiteralNext:
        // A zero byte taken as it is ends the name, as it ends every text here.
        if (++i == stored.size() || stored[i] == '\0') return mapped;
        mapped += stored[i];
        break;
      default:
        if (Stays(c)) mapped += c;
    }
  }
  return mapped;
}

LocalName MakeLocal(std::string_view mapped) {
  LocalName local;
  bool first = true;
  for (;; first = false) {
    const std::size_t separator = mapped.find_first_of(kSeparators);
    const std::string_view component = mapped.substr(0, separator);
    const bool climbs = component == "..";
    local.dropped |= climbs || (first && component.empty() && separator != std::string_view::npos);
    const bool stays = !climbs && !component.empty() && component != ".";
    if (separator == std::string_view::npos) {
      if (stays) local.file = MakeHarmless(component);
      local.usable = stays || (component.empty() && !first);
      return local;
    }
    if (stays) local.folder.append(MakeHarmless(component)).append("/");
    mapped.remove_prefix(separator + 1);
  }
}

}  // namespace zeapi
