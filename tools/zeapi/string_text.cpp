#include "string_text.h"

namespace tool {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

int DigitValue(char c) {
  if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
  const auto at = kHexDigits.find(c);
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

// The byte that two digits at `at` spell; -1 when there are no two digits.
int ByteAt(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) return -1;
  const int high = DigitValue(text[at]);
  const int low = DigitValue(text[at + 1]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

struct Escape {
  char letter;
  char byte;
};

constexpr Escape kEscapes[] = {{'n', '\n'}, {'r', '\r'},   {'t', '\t'},
                               {'f', '\f'}, {'e', '\x1B'}, {'\\', '\\'}};

}  // namespace

std::string BytesOfHex(std::string_view text) {
  std::string bytes;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == ' ') {
      ++at;
      continue;
    }
    const int byte = ByteAt(text, at);
    if (byte < 0)
      throw BadText("\"" + std::string(text.substr(at, 2)) + "\" is no pair of hexadecimal digits");
    bytes += static_cast<char>(byte);
    at += 2;
  }
  return bytes;
}

std::string BytesOfEscapes(std::string_view text) {
  std::string bytes;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] != '\\') {
      bytes += text[at++];
      continue;
    }
    const std::string_view sequence = text.substr(at, 2);
    const char letter = sequence.size() == 2 ? sequence[1] : '\0';
    at += 2;
    if (letter == 'x') {
      const int byte = ByteAt(text, at);
      if (byte < 0) throw BadText("\"\\x\" needs two hexadecimal digits");
      bytes += static_cast<char>(byte);
      at += 2;
      continue;
    }
    const Escape* known = nullptr;
    for (const Escape& escape : kEscapes) {
      if (escape.letter == letter) known = &escape;
    }
    if (known == nullptr)
      throw BadText("\"" + std::string(sequence) + "\" is no escape; there are " +
                    "\\n \\r \\t \\f \\e \\\\ and \\xHH");
    bytes += known->byte;
  }
  return bytes;
}

std::string HexOfBytes(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 0x0F];
  }
  return text;
}

}  // namespace tool
