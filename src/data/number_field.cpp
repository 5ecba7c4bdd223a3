#include "data/number_field.h"

#include <charconv>
#include <cstddef>
#include <cstring>
#include <system_error>
#include <type_traits>

namespace zeapi {
namespace {

// Both parts of the quotient are exact, so it is the nearest there is. Most numbers are plain, and this
// takes a fraction of the time.
bool ConvertPlain(std::string_view text, double* number) {
  static constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
  if (text.empty() || PlainNumberLength(text) != text.size()) return false;
  std::int64_t digits = 0;
  std::size_t fraction = 0;
  bool point = false;
  for (const char c : text) {
    if (c == '.') {
      point = true;
    } else if (c != '-') {
      digits = digits * 10 + (c - '0');
      if (point) ++fraction;
    }
  }
  const double value = static_cast<double>(digits) / kPowers[fraction];
  *number = text.starts_with('-') ? -value : value;
  return true;
}

// True for what is out of range because it is too small. 24 characters have too few digits to be
// that without an exponent below zero, or to be too large with one.
bool TooSmall(std::string_view text) {
  const std::size_t exponent = text.find_first_of("eE");
  return exponent != std::string_view::npos && text.substr(exponent + 1).starts_with('-');
}

template <typename Number>
bool Convert(std::string_view text, Number* number) {
  const bool plus = text.starts_with('+');
  if (plus) text.remove_prefix(1);
  const bool negative = !plus && text.starts_with('-');
  const std::size_t sign = negative ? 1 : 0;
  const char first = text.size() > sign ? text[sign] : '\0';
  if (first != '.' && (first < '0' || first > '9')) return false;
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, *number);
  if (result.ptr != end) return false;
  if constexpr (std::is_floating_point_v<Number>) {
    if (result.ec == std::errc::result_out_of_range && TooSmall(text)) {
      *number = negative ? -Number{0} : Number{0};
      return true;
    }
  }
  return result.ec == std::errc();
}

bool Convert(std::string_view text, double* number) {
  return ConvertPlain(text, number) || Convert<double>(text, number);
}

template <typename Number>
bool Store(std::string_view text, std::span<std::uint8_t> field) {
  Number number;
  if (!Convert(text, &number)) return false;
  std::memcpy(field.data(), &number, sizeof(number));
  return true;
}

}  // namespace

bool StoreWholeNumber(std::string_view text, std::span<std::uint8_t> field) {
  if (field.size() == sizeof(std::int16_t)) return Store<std::int16_t>(text, field);
  return field.size() == sizeof(std::int32_t) && Store<std::int32_t>(text, field);
}

bool StoreRealNumber(std::string_view text, std::span<std::uint8_t> field) {
  if (field.size() == sizeof(float)) return Store<float>(text, field);
  return field.size() == sizeof(double) && Store<double>(text, field);
}

}  // namespace zeapi
