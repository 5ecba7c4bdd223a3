#include "output/hex_text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace zeapi::testing {
namespace {

TEST(HexText, EveryLengthExpandsInPlace) {
  for (std::size_t count = 0; count <= 70; ++count) {
    // Exactly the room that is asked for, so that the sanitizer sees a byte too far.
    std::vector<std::uint8_t> block(2 * count);
    std::string expected;
    for (std::size_t i = 0; i < count; ++i) {
      block[i] = static_cast<std::uint8_t>(i * 37 + count);
      char digits[3];
      std::snprintf(digits, sizeof(digits), "%02X", static_cast<unsigned>(block[i]));
      expected += digits;
    }
    ExpandToHex(block.data(), count);
    EXPECT_EQ(std::string(block.begin(), block.end()), expected) << count;
  }
}

TEST(HexText, EveryByteHasItsDigits) {
  for (unsigned value = 0; value < 256; ++value) {
    std::uint8_t block[2] = {static_cast<std::uint8_t>(value), 0};
    ExpandToHex(block, 1);
    EXPECT_EQ(HexDigitValue(static_cast<char>(block[0])) * 16 +
                  HexDigitValue(static_cast<char>(block[1])),
              static_cast<int>(value));
  }
}

TEST(HexText, DigitsOfEitherCaseHaveValuesAndNothingElseHas) {
  const std::string digits = "0123456789ABCDEFabcdef";
  for (int c = 0; c < 256; ++c) {
    const std::size_t at = digits.find(static_cast<char>(c));
    int expected = -1;
    if (c != 0 && at != std::string::npos) expected = static_cast<int>(at < 16 ? at : at - 6);
    EXPECT_EQ(HexDigitValue(static_cast<char>(c)), expected) << c;
  }
}

}  // namespace
}  // namespace zeapi::testing
