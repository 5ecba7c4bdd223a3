#include "archive/wildcard.h"

#include <gtest/gtest.h>

#include <string>

namespace zeapi::testing {
namespace {

struct Case {
  const char* pattern;
  const char* name;
  bool matches;
};

constexpr Case kCases[] = {
    {"a.txt", "a.txt", true},
    {"a.txt", "a.tx", false},
    {"a.tx", "a.txt", false},
    {"A.TXT", "a.txt", true},
    {"a.txt", "A.Txt", true},
    {"\xC4", "\xE4", false},
    // runs
    {"*", "", true},
    {"*", "dir/name.x", true},
    {"*.TXT", "dir/name.txt", true},
    {"*.TXT", "name.txt.gz", false},
    {"a*c", "abbc", true},
    {"a*c", "ac", true},
    {"a*c", "acb", false},
    {"a*b*c", "axbxbxc", true},
    {"a*b*c", "axcxb", false},
    {"abc*", "abc", true},
    {"abc***", "abc", true},
    {"abc*?", "abc", false},
    {"*abab", "ababab", true},
    {"**a**", "bab", true},
    // one character
    {"?", "x", true},
    {"?", "", false},
    {"a?c", "a/c", true},
    {"a?c", "ac", false},
    // sets
    {"[a-c]*", "apple", true},
    {"[a-c]*", "Apple", false},
    {"[a-c]*", "dog", false},
    {"[c-a]x", "bx", true},
    {"[!a-c]x", "dx", true},
    {"[!a-c]x", "ax", false},
    {"[^a]x", "bx", true},
    {"[a^]x", "^x", true},
    {"[a!]x", "!x", true},
    {"[\\]]x", "]x", true},
    {"[\\!a]x", "!x", true},
    {"[\\a-\\c]x", "bx", true},
    {"[a\\-c]x", "bx", false},
    {"[a\\-c]x", "-x", true},
    {"[a-]x", "-x", true},
    {"[a-]x", "bx", false},
    {"[-a]x", "-x", true},
    {"[\xE0-\xF0]", "\xE5", true},
    {"[*]", "*", true},
    {"[*]", "x", false},
    {"*[0-9].x", "name7.x", true},
    {"a[b]c", "aBc", false},
    {"\\a", "a", false},  // outside sets it is a character as any other
    {"\\a", "\\a", true},
    {"]", "]", true},
    // sets that are no good
    {"[]", "x", false},
    {"[]x]", "x", false},
    {"[!]", "x", false},
    {"[", "x", false},
    {"[a", "a", false},
    {"[a-", "a", false},
    {"[a\\", "a", false},
    {"*[a", "a", false},
    {"x*[]*", "xabc", false},
};

TEST(Wildcard, Table) {
  for (const Case& c : kCases)
    EXPECT_EQ(MatchesWildcard(c.name, c.pattern), c.matches) << c.pattern << " on " << c.name;
}

TEST(Wildcard, ManyRunsTakeNoLongerThanTheirProduct) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesWildcard(std::string(60000, 'a') + "b", pattern));
  EXPECT_TRUE(MatchesWildcard(std::string(60000, 'a'), pattern));
}

}  // namespace
}  // namespace zeapi::testing
