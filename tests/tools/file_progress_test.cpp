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
}

}  // namespace
}  // namespace tool
