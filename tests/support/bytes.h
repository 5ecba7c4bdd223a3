// Comparing byte streams so that a failure can be read.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zeapi::testing {

// Control characters, quotes and bytes above 126 as escapes, a new line after each line feed.
std::string Printable(std::string_view bytes);

// Shows both streams and where they part.
::testing::AssertionResult SameBytes(const char* actualText, const char* expectedText,
                                     std::string_view actual, std::string_view expected);

// A literal with zero bytes in it.
template <std::size_t size>
std::string Bytes(const char (&literal)[size]) {
  return std::string(literal, size - 1);
}

}  // namespace zeapi::testing

#define EXPECT_BYTES(actual, expected) \
  EXPECT_PRED_FORMAT2(::zeapi::testing::SameBytes, actual, expected)
