#include "fonts/afm_number.h"

#include <algorithm>
#include <charconv>

namespace zeapi {
namespace {

constexpr int kLargest = 32767;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

int TenthsOf(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  int whole = 0;
  while (!text.empty() && IsDigit(text.front())) {
    whole = std::min(whole * 10 + (text.front() - '0'), kLargest);
    text.remove_prefix(1);
  }
  const bool hasTenth = text.size() > 1 && text[0] == '.' && IsDigit(text[1]) && whole < kLargest;
  const int tenths = whole * 10 + (hasTenth ? text[1] - '0' : 0);
  return negative ? -tenths : tenths;
}

int HexadecimalOf(std::string_view text) {
  if (text.starts_with('<')) text.remove_prefix(1);
  int number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number, 16);
  return std::max(number, -1);
}

}  // namespace zeapi
