#include "config/text_numbers.h"

#include <algorithm>
#include <limits>

#include "output/hex_text.h"

namespace zeapi {
namespace {

std::string_view WithoutLeadingSpace(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

}  // namespace

std::int32_t DecimalAtStart(std::string_view text) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
  text = WithoutLeadingSpace(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    value = std::min(value * 10 + (c - '0'), kLargest + 1);
  }
  return static_cast<std::int32_t>(negative ? -value : std::min(value, kLargest));
}

std::uint16_t HexAtStart(std::string_view text) {
  text = WithoutLeadingSpace(text);
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    text.remove_prefix(2);
  }
  std::uint32_t value = 0;
  for (const char c : text) {
    const int digit = HexDigitValue(c);
    if (digit < 0) break;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return static_cast<std::uint16_t>(value);
}

}  // namespace zeapi
