// Progress as a line.
#include "file_progress.h"

#include <gtest/gtest.h>

namespace tool {
namespace {

std::string Start(const std::string& bar) { return bar.substr(0, bar.find_last_not_of(' ') + 1); }

TEST(FileProgressLine, GrowsWithTheWork) {
  EXPECT_EQ(Start(FileProgressLine(0, 10, "a")), "[                        ]   0% a");
  EXPECT_EQ(Start(FileProgressLine(5, 10, "b")), "[############            ]  50% b");
  EXPECT_EQ(Start(FileProgressLine(10, 10, "c")), "[########################] 100% c");
}

TEST(FileProgressLine, StaysWithinItsBounds) {
  EXPECT_EQ(Start(FileProgressLine(20, 10, "a")), "[########################] 100% a");
  EXPECT_EQ(Start(FileProgressLine(20, 0, "a")), "[                        ]   0% a");
  EXPECT_EQ(FileProgressLine(0x8000000000, 0x10000000000, "a").find(" 50%"), 27U);
}

TEST(FileProgressLine, IsAlwaysAsWide) {
  const std::size_t width = FileProgressLine(0, 1, "").size();
  EXPECT_LE(width, 79U);
  const std::string bar = FileProgressLine(1, 1, "start" + std::string(200, 'x') + "end");
  EXPECT_EQ(bar.size(), width);
  EXPECT_NE(bar.find("startxx"), std::string::npos);
  EXPECT_NE(bar.find("..."), std::string::npos);
  EXPECT_EQ(bar.substr(width - 4), "xend");
}

TEST(FileProgressLine, NamesCannotMoveTheCursor) {
  EXPECT_EQ(Start(FileProgressLine(0, 1, "a\rb\x1B")), "[                        ]   0% a?b?");
  // The second set of controls, as characters and as single bytes.
  EXPECT_EQ(Start(FileProgressLine(0, 1,
                                   "a\xC2\x9B"
                                   "b\xC2\x80"
                                   "c\x9B\x85\x7F")),
            "[                        ]   0% a?b?c???");
  // Letters that have such bytes in them stay, and so do others that are no UTF-8.
  EXPECT_EQ(Start(FileProgressLine(0, 1, "\xC3\x80\xE2\x82\xAC\xF0\x9F\x98\x80\xC2\xA0\xE9")),
            "[                        ]   0% \xC3\x80\xE2\x82\xAC\xF0\x9F\x98\x80\xC2\xA0\xE9");
  EXPECT_EQ(Start(FileProgressLine(0, 1, "\xE2\x82")), "[                        ]   0% \xE2?");
}

TEST(FileProgressLine, NamesAreCutBetweenCharacters) {
  std::string name;
  for (int i = 0; i < 100; ++i) name += "\xE2\x82\xAC";
  const std::string line = FileProgressLine(0, 1, name);
  std::string expected = "[                        ]   0% ";
  for (int i = 0; i < 46; ++i) expected += i < 21 || i > 23 ? "\xE2\x82\xAC" : ".";
  EXPECT_EQ(line, expected);
}

}  // namespace
}  // namespace tool
