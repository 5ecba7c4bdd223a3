#include "job/excerpt.h"

#include <limits>

#include "string_text.h"

namespace tool {
namespace {

std::string Readable(std::uint8_t byte) {
  switch (byte) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    case '\f':
      return "\\f";
    case 0x1B:
      return "\\e";
    case '\\':
      return "\\\\";
    default:
      break;
  }
  const char c = static_cast<char>(byte);
  if (byte >= ' ' && byte <= '~') return std::string(1, c);
  return "\\x" + HexOfBytes(std::string_view(&c, 1));
}

}  // namespace

std::string Excerpt(std::span<const std::uint8_t> bytes, std::size_t limit) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    const std::string readable = Readable(byte);
    if (text.size() + readable.size() > limit) return text + "...";
    text += readable;
  }
  return text;
}

std::string Printable(const std::string& text) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  return Excerpt({bytes, text.size()}, std::numeric_limits<std::size_t>::max());
}

}  // namespace tool
