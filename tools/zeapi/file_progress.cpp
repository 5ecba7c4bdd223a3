#include "file_progress.h"

#include <algorithm>

namespace tool {
namespace {

constexpr std::size_t kBarWidth = 24;
constexpr std::size_t kNameWidth = 46;

std::string Shortened(std::string name) {
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ' || c == 127) c = '?';
  }
  if (name.size() > kNameWidth) {
    const std::size_t half = (kNameWidth - 3) / 2;
    name = name.substr(0, half) + "..." + name.substr(name.size() - (kNameWidth - 3 - half));
  }
  name.resize(kNameWidth, ' ');
  return name;
}

}  // namespace

std::string FileProgressLine(std::uint64_t done, std::uint64_t whole, const std::string& name) {
  // An archive whose size is not known, or one whose directory says more than it holds.
  done = whole == 0 ? 0 : std::min(done, whole);
  const std::size_t full = whole == 0 ? 0 : static_cast<std::size_t>(done * kBarWidth / whole);
  const std::string percent = std::to_string(whole == 0 ? 0 : done * 100 / whole);
  return "[" + std::string(full, '#') + std::string(kBarWidth - full, ' ') + "] " +
         std::string(3 - percent.size(), ' ') + percent + "% " + Shortened(name);
}

}  // namespace tool
