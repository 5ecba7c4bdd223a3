#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "zeapi.h"

namespace zeapi::testing {
namespace {

struct Names {
  const char* path;
  const char* directory;
  const char* name;
};

class UpperCaseCopyTest : public ::testing::TestWithParam<Names> {};

TEST_P(UpperCaseCopyTest, SplitsBeforeTheFileNameAndRaisesLetters) {
  char text[64];
  EXPECT_EQ(ZeStrCpyFile(text, GetParam().path), text);
  EXPECT_STREQ(text, GetParam().name);
  EXPECT_EQ(ZeStrCpyPath(text, GetParam().path), text);
  EXPECT_STREQ(text, GetParam().directory);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, UpperCaseCopyTest,
    ::testing::Values(Names{"c:\\fonts/sub\\Name.pfb", "C:\\FONTS/SUB\\", "NAME.PFB"},
                      Names{"c:\\dir\\sub/name.ext", "C:\\DIR\\SUB/", "NAME.EXT"},
                      Names{"name.ext", "", "NAME.EXT"}, Names{"c:name", "C:", "NAME"},
                      Names{"dir\\", "DIR\\", ""}, Names{"", "", ""}, Names{nullptr, "", ""},
                      Names{"d\\caf\xE9{z}", "D\\", "CAF\xE9{Z}"}));

TEST(UpperCaseCopy, NullDestinationGivesAnEmptyString) {
  EXPECT_STREQ(ZeStrCpyFile(nullptr, "dir\\name"), "");
  EXPECT_STREQ(ZeStrCpyPath(nullptr, "dir\\name"), "");
  EXPECT_STREQ(ZeStrCpyFile(nullptr, nullptr), "");
}

TEST(UpperCaseCopy, EmptyStringStaysEmptyWhateverACallerWroteToIt) {
  *ZeStrCpyFile(nullptr, "x") = 'y';
  EXPECT_STREQ(ZeStrCpyPath(nullptr, "x"), "");
}

TEST(UpperCaseCopy, WritesOnlyTheNameAndItsTerminator) {
  char text[8];
  std::memset(text, '#', sizeof(text));
  ZeStrCpyFile(text, "dir\\abc");
  EXPECT_EQ(std::string(text, sizeof(text)), std::string("ABC\0####", 8));
}

}  // namespace
}  // namespace zeapi::testing
