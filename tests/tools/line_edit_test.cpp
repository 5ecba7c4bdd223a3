// The edits of "zeapi file modify".
#include "line_edit.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tool {
namespace {

class LineEditTest : public testing::Test {
 protected:
  std::string Edit(const std::string& line) {
    std::memcpy(buffer_, line.c_str(), line.size() + 1);
    EditLine(edit_, buffer_);
    return buffer_;
  }

  LineEdit edit_;
  char buffer_[kLineBuffer] = {};
};

TEST_F(LineEditTest, ReplacesEachOccurrence) {
  edit_.find = "ab";
  edit_.replace = "a";
  EXPECT_EQ(Edit("ab aab abab\n"), "a aa aa\n");
  EXPECT_EQ(Edit("none\n"), "none\n");
  EXPECT_EQ(edit_.changed, 1U);
}

TEST_F(LineEditTest, DropsLinesBeforeItReplaces) {
  edit_.drop = "old";
  edit_.find = "old";
  edit_.replace = "new";
  EXPECT_EQ(Edit("an old line\n"), "");
  EXPECT_EQ(edit_.dropped, 1U);
  EXPECT_EQ(edit_.changed, 0U);
}

TEST_F(LineEditTest, FillsTheBufferToItsLastByte) {
  edit_.find = "x";
  edit_.replace = "yy";
  const std::string tail(kLineBuffer - 3, 'z');
  EXPECT_EQ(Edit("x" + tail), "yy" + tail);
  EXPECT_EQ(edit_.tooLong, 0U);
}

TEST_F(LineEditTest, LeavesALineThatWouldOutgrowTheBuffer) {
  edit_.find = "x";
  edit_.replace = "yy";
  const std::string line = "x" + std::string(kLineBuffer - 2, 'z');
  EXPECT_EQ(Edit(line), line);
  EXPECT_EQ(edit_.tooLong, 1U);
  EXPECT_EQ(edit_.changed, 0U);
}

}  // namespace
}  // namespace tool
