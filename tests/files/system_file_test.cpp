#include "files/system_file.h"

#include <gtest/gtest.h>

namespace zeapi::testing {
namespace {

TEST(IsSystemFileTest, NineExtensionsInEitherCase) {
  for (const char* path : {"a.BAT", "a.cmd", "a.Com", "a.dll", "a.drv", "a.exe", "a.hlp", "a.ini",
                           "c:\\folder\\a.SYS"}) {
    EXPECT_TRUE(IsSystemFile(path)) << path;
  }
}

TEST(IsSystemFileTest, OtherExtensionsAreNone) {
  for (const char* path : {"a.pcl", "a.ps", "a.tx", "a.ex", "a.e", "a.", "", "."}) {
    EXPECT_FALSE(IsSystemFile(path)) << path;
  }
}

TEST(IsSystemFileTest, PathWithoutDotIsNone) { EXPECT_FALSE(IsSystemFile("c:\\folder\\exe")); }

TEST(IsSystemFileTest, KeepsToThreeCharacters) {
  EXPECT_TRUE(IsSystemFile("a.exec"));
  EXPECT_TRUE(IsSystemFile("a.initial"));
}

TEST(IsSystemFileTest, LastDotOfTheWholePathCounts) {
  EXPECT_FALSE(IsSystemFile("a.exe.pcl"));
  EXPECT_TRUE(IsSystemFile("a.pcl.exe"));
  EXPECT_TRUE(IsSystemFile("folder.sys\\file"));  // its dot is that of the folder: "SYS\"
}

}  // namespace
}  // namespace zeapi::testing
