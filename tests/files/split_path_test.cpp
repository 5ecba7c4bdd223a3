#include "files/split_path.h"

#include <gtest/gtest.h>

#include <string>

namespace zeapi::testing {
namespace {

struct Split {
  const char* path;
  const char* drive;
  const char* directory;
  const char* baseName;
  const char* extension;
};

class SplitPathTest : public ::testing::TestWithParam<Split> {};

TEST_P(SplitPathTest, Parts) {
  const PathParts parts = SplitPath(GetParam().path);
  EXPECT_EQ(parts.drive, GetParam().drive);
  EXPECT_EQ(parts.directory, GetParam().directory);
  EXPECT_EQ(parts.baseName, GetParam().baseName);
  EXPECT_EQ(parts.extension, GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, SplitPathTest,
    ::testing::Values(Split{"", "", "", "", ""}, Split{"name", "", "", "name", ""},
                      Split{"name.ext", "", "", "name", ".ext"},
                      Split{"a.b.c", "", "", "a.b", ".c"}, Split{".ext", "", "", "", ".ext"},
                      Split{"name.", "", "", "name", "."},
                      Split{"c:\\dir\\name.ext", "c:", "\\dir\\", "name", ".ext"},
                      Split{"c:name.ext", "c:", "", "name", ".ext"}, Split{"c:", "c:", "", "", ""},
                      Split{"a/b\\c", "", "a/b\\", "c", ""},
                      Split{"a\\b/c.d", "", "a\\b/", "c", ".d"},
                      Split{"dir.x\\name", "", "dir.x\\", "name", ""},
                      Split{"\\\\server\\share\\x", "", "\\\\server\\share\\", "x", ""},
                      Split{"dir\\", "", "dir\\", "", ""}));

TEST(FileNameOffset, FollowsTheLastSeparatorOrColon) {
  EXPECT_EQ(FileNameOffset("name"), 0U);
  EXPECT_EQ(FileNameOffset("a\\b/c"), 4U);
  EXPECT_EQ(FileNameOffset("a/b\\c"), 4U);
  EXPECT_EQ(FileNameOffset("c:name"), 2U);
  EXPECT_EQ(FileNameOffset("a\\b:c"), 4U);
  EXPECT_EQ(FileNameOffset("dir\\"), 4U);
  EXPECT_EQ(FileNameOffset(""), 0U);
}

TEST(EndedBySeparator, AddsABackslashWhereThereIsNoSeparator) {
  EXPECT_EQ(EndedBySeparator("dir"), "dir\\");
  EXPECT_EQ(EndedBySeparator("dir\\"), "dir\\");
  EXPECT_EQ(EndedBySeparator("dir/"), "dir/");
  EXPECT_EQ(EndedBySeparator("c:"), "c:\\");
  EXPECT_EQ(EndedBySeparator(""), "\\");
}

TEST(EndedByBackslash, AddsTheOneThatIsMissing) {
  EXPECT_EQ(EndedByBackslash("dir"), "dir\\");
  EXPECT_EQ(EndedByBackslash("dir\\"), "dir\\");
  EXPECT_EQ(EndedByBackslash("dir/"), "dir/\\");
  EXPECT_EQ(EndedByBackslash("c:"), "c:\\");
  EXPECT_EQ(EndedByBackslash(""), "\\");
}

}  // namespace
}  // namespace zeapi::testing
