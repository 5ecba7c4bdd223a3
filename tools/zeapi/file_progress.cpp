#include "file_progress.h"

#include <algorithm>
#include <vector>

namespace tool {
namespace {

constexpr std::size_t kBarWidth = 24;
constexpr std::size_t kNameWidth = 46;

unsigned char Byte(const std::string& text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// Bytes of the UTF-8 character at a place; 1 for a byte that begins none.
std::size_t CharacterSize(const std::string& text, std::size_t at) {
  const unsigned char lead = Byte(text, at);
  std::size_t size = 1;
  if (lead >= 0xC2 && lead <= 0xF4) size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  for (std::size_t i = 1; i < size; ++i) {
    if (at + i == text.size() || (Byte(text, at + i) & 0xC0) != 0x80) return 1;
  }
  return size;
}

// Of both sets, also where the second one stands as single bytes.
bool IsControl(const std::string& character) {
  const unsigned char last = Byte(character, character.size() - 1);
  if (character.size() == 1) return last < ' ' || (last >= 127 && last < 0xA0);
  return Byte(character, 0) == 0xC2 && last < 0xA0;
}

std::vector<std::string> Characters(const std::string& text) {
  std::vector<std::string> characters;
  for (std::size_t at = 0; at < text.size();) {
    const std::string character = text.substr(at, CharacterSize(text, at));
    at += character.size();
    characters.push_back(IsControl(character) ? "?" : character);
  }
  return characters;
}

std::string Shortened(const std::string& name) {
  std::vector<std::string> characters = Characters(name);
  if (characters.size() > kNameWidth) {
    const auto middle = characters.begin() + (kNameWidth - 3) / 2;
    const auto more = static_cast<std::ptrdiff_t>(characters.size() - kNameWidth);
    std::fill_n(middle, 3, ".");
    characters.erase(middle + 3, middle + 3 + more);
  }
  characters.resize(kNameWidth, " ");
  std::string shortened;
  for (const std::string& character : characters) shortened += character;
  return shortened;
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
