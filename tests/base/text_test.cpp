#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zeapi::testing {
namespace {

TEST(Text, LengthIsBounded) {
  EXPECT_EQ(BoundedLength("abc", 10), 3U);
  EXPECT_EQ(BoundedLength("abc", 3), 3U);
  EXPECT_EQ(BoundedLength("abc", 2), 2U);
  EXPECT_EQ(BoundedLength("", 5), 0U);
  const std::vector<char> unterminated(4, 'x');
  EXPECT_EQ(BoundedLength(unterminated.data(), 4), 4U);
}

TEST(Text, NamesHaveAtMost260Characters) {
  EXPECT_FALSE(NameTooLong(""));
  EXPECT_FALSE(NameTooLong(std::string(260, 'n').c_str()));
  EXPECT_TRUE(NameTooLong(std::string(261, 'n').c_str()));
}

TEST(Text, UpperCaseIsThatOfAToZAlone) {
  for (int c = 0; c < 256; ++c) {
    const int expected = c >= 'a' && c <= 'z' ? c - 32 : c;
    EXPECT_EQ(AsciiUpper(static_cast<char>(c)), static_cast<char>(expected)) << c;
  }
}

TEST(Text, SameTextsDifferInCaseAtMost) {
  EXPECT_TRUE(SameText("", ""));
  EXPECT_TRUE(SameText("aZ[{\xE4", "Az[{\xE4"));
  EXPECT_FALSE(SameText("[", "{"));
  EXPECT_FALSE(SameText("\xE4", "\xC4"));
  EXPECT_FALSE(SameText("a", "ab"));
  EXPECT_FALSE(SameText("ab", "a"));
}

}  // namespace
}  // namespace zeapi::testing
