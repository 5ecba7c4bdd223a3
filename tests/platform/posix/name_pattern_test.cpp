#include "platform/posix/name_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace zeapi::testing {
namespace {

using platform::HasWildcard;
using platform::MatchesPattern;

struct Match {
  const char* name;
  const char* pattern;
  bool matches;
};

class NamePatternTest : public ::testing::TestWithParam<Match> {};

TEST_P(NamePatternTest, Matches) {
  EXPECT_EQ(MatchesPattern(GetParam().name, GetParam().pattern), GetParam().matches)
      << GetParam().name << " ~ " << GetParam().pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Names, NamePatternTest,
    ::testing::Values(
        Match{"name", "name", true}, Match{"name", "NAME", true}, Match{"name", "nam", false},
        Match{"nam", "name", false}, Match{"name.txt", "*.txt", true},
        Match{"name.txt", "*.TX?", true}, Match{"name.txt", "*.t", false}, Match{"name", "*", true},
        Match{"name", "*.*", true}, Match{".", "*.*", true}, Match{"..", "*", true},
        Match{"a.b.c", "*.c", true}, Match{"a.b.c", "*.b", false}, Match{"a.b.c", "a*c", true},
        Match{"name", "name.*", true}, Match{"name", "name.", true}, Match{"name", "name.?", true},
        Match{"a", "??.?", true}, Match{"a", "a.*.*", true}, Match{"name", "n??e", true},
        Match{"name", "????", true}, Match{"name", "?????", true}, Match{"name", "???", false},
        Match{"aaab", "*ab", true}, Match{"aaab", "a*a*b", true}, Match{"aaac", "a*a*b", false},
        Match{"abc", "**c", true}, Match{"name", "name.x", false}, Match{"", "*", true},
        Match{"", "", true}, Match{"", "x", false}, Match{"x", "", false}));

TEST(NamePattern, WildcardsAreStarAndQuestionMark) {
  EXPECT_TRUE(HasWildcard("a*b"));
  EXPECT_TRUE(HasWildcard("?"));
  EXPECT_FALSE(HasWildcard("name.txt"));
  EXPECT_FALSE(HasWildcard(""));
}

TEST(NamePattern, ManyStarsCostNoMoreThanTheLengthsMultiplied) {
  const std::string name(2000, 'a');
  std::string pattern;
  for (int i = 0; i < 1000; ++i) pattern += "*a";
  EXPECT_TRUE(MatchesPattern(name.c_str(), pattern.c_str()));
  EXPECT_FALSE(MatchesPattern(name.c_str(), (pattern + "b").c_str()));
}

}  // namespace
}  // namespace zeapi::testing
