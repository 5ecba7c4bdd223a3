// Progress as a line.
#include "progress_bar.h"

#include <gtest/gtest.h>

namespace tool {
namespace {

std::string Start(const std::string& bar) { return bar.substr(0, bar.find_last_not_of(' ') + 1); }

TEST(ProgressBar, GrowsWithTheWork) {
  EXPECT_EQ(Start(ProgressBar(0, 10, "a")), "[                        ]   0% a");
  EXPECT_EQ(Start(ProgressBar(5, 10, "b")), "[############            ]  50% b");
  EXPECT_EQ(Start(ProgressBar(10, 10, "c")), "[########################] 100% c");
}

TEST(ProgressBar, StaysWithinItsBounds) {
  EXPECT_EQ(Start(ProgressBar(20, 10, "a")), "[########################] 100% a");
  EXPECT_EQ(Start(ProgressBar(20, 0, "a")), "[                        ]   0% a");
  EXPECT_EQ(ProgressBar(0xFFFFFFFFFFULL, 0x1FFFFFFFFFULL, "a").find(" 50%"), 26U);
}

TEST(ProgressBar, IsAlwaysAsWide) {
  const std::size_t width = ProgressBar(0, 1, "").size();
  EXPECT_LE(width, 79U);
  const std::string bar = ProgressBar(1, 1, "start" + std::string(200, 'x') + "end");
  EXPECT_EQ(bar.size(), width);
  EXPECT_NE(bar.find("startxx"), std::string::npos);
  EXPECT_NE(bar.find("..."), std::string::npos);
  EXPECT_EQ(bar.substr(width - 4), "xend");
}

TEST(ProgressBar, NamesCannotMoveTheCursor) {
  EXPECT_EQ(Start(ProgressBar(0, 1, "a\rb\x1B")), "[                        ]   0% a?b?");
}

}  // namespace
}  // namespace tool
