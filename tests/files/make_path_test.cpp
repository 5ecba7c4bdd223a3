#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class MakePathTest : public ScratchTest {
 protected:
  // Makes a path inside the test's folder of drive C.
  std::uint32_t Make(std::string_view path) {
    std::strcpy(created, "untouched");
    return ZeFilMakePath(OnDriveC(path).c_str(), created);
  }
  bool IsFolder(std::string_view path) const { return fs::is_directory(UnderDriveC(path)); }

  char created[ZE_MAX_NAME + 1] = "";
};

TEST_F(MakePathTest, MakesEveryMissingDirectoryAndListsThem) {
  EXPECT_EQ(Make("a\\b\\c"), ZE_OK);
  EXPECT_TRUE(IsFolder("a/b/c"));
  EXPECT_STREQ(created, "\\a\\b\\c");
}

TEST_F(MakePathTest, ExistingDirectoriesArePassedOver) {
  fs::create_directories(UnderDriveC("a/b"));
  EXPECT_EQ(Make("a\\b\\c\\d"), ZE_OK);
  EXPECT_STREQ(created, "\\c\\d");
}

TEST_F(MakePathTest, PathThatFullyExistsLeavesTheListEmpty) {
  fs::create_directories(UnderDriveC("a/b"));
  EXPECT_EQ(Make("a\\b"), ZE_OK);
  EXPECT_STREQ(created, "");
}

TEST_F(MakePathTest, ListIsOptional) {
  EXPECT_EQ(ZeFilMakePath(OnDriveC("x\\y").c_str(), nullptr), ZE_OK);
  EXPECT_TRUE(IsFolder("x/y"));
}

TEST_F(MakePathTest, BothSeparatorsSplit) {
  EXPECT_EQ(Make("a/b\\c/d"), ZE_OK);
  EXPECT_STREQ(created, "\\a\\b\\c\\d");
  EXPECT_TRUE(IsFolder("a/b/c/d"));
}

TEST_F(MakePathTest, DoubledSeparatorsCountOnce) {
  EXPECT_EQ(Make("a\\\\b"), ZE_OK);
  EXPECT_STREQ(created, "\\a\\b");
  EXPECT_TRUE(IsFolder("a/b"));
}

TEST_F(MakePathTest, ComponentsMayHaveExtensions) {
  EXPECT_EQ(Make("a.x\\b.y.z"), ZE_OK);
  EXPECT_TRUE(IsFolder("a.x/b.y.z"));
  EXPECT_STREQ(created, "\\a.x\\b.y.z");
}

TEST_F(MakePathTest, RegularFileInThePathIsUnusable) {
  std::filesystem::create_directory(UnderDriveC("a"));
  WriteFile(UnderDriveC("a/file"), "x");
  EXPECT_EQ(Make("a\\file"), ZE_UNUSABLE);
  EXPECT_STREQ(created, "");
  EXPECT_EQ(Make("a\\file\\b"), ZE_UNUSABLE);
}

#ifdef _WIN32  // a name that no folder can have; elsewhere there is none within 260 characters
TEST_F(MakePathTest, DirectoriesMadeBeforeAFailureStayAndAreListed) {
  EXPECT_EQ(Make("new\\a?b\\c"), ZE_UNUSABLE);
  EXPECT_TRUE(IsFolder("new"));
  EXPECT_STREQ(created, "\\new");
}
#endif

TEST_F(MakePathTest, DriveWithoutSeparatorGetsOne) {
  const std::string path = OnDriveC("a");
  const std::string withoutSeparator = path.substr(0, 2) + path.substr(3);
  EXPECT_EQ(ZeFilMakePath(withoutSeparator.c_str(), created), ZE_OK);
  EXPECT_TRUE(IsFolder("a"));
}

TEST_F(MakePathTest, PathWithoutDriveOrServerIsUnusable) {
  for (const char* path : {"a\\b", "\\a\\b", "/a/b", "//server/share/a", "\\/server\\a", "a"}) {
    std::strcpy(created, "untouched");
    EXPECT_EQ(ZeFilMakePath(path, created), ZE_UNUSABLE) << path;
    EXPECT_STREQ(created, "");
  }
  EXPECT_FALSE(fs::exists("a"));
}

TEST_F(MakePathTest, PathWithoutBaseNameIsUnusable) {
  for (const char* path : {"c:\\", "c:", "\\\\", "\\\\server\\share\\"}) {
    EXPECT_EQ(ZeFilMakePath(path, created), ZE_UNUSABLE) << path;
  }
  EXPECT_EQ(Make("a\\"), ZE_UNUSABLE);
  EXPECT_EQ(Make("a\\.hidden"), ZE_UNUSABLE);
  EXPECT_FALSE(IsFolder("a"));
}

TEST_F(MakePathTest, EmptyPathIsUnusableAndTheListIsEmptiedFirst) {
  for (const char* path : {"", static_cast<const char*>(nullptr)}) {
    std::strcpy(created, "untouched");
    EXPECT_EQ(ZeFilMakePath(path, created), ZE_UNUSABLE);
    EXPECT_STREQ(created, "");
  }
  EXPECT_EQ(ZeFilMakePath(nullptr, nullptr), ZE_UNUSABLE);
}

TEST_F(MakePathTest, PathOver260CharactersIsUnusable) {
  std::string path = OnDriveC("a");
  while (path.size() < 261) path += "\\a";
  EXPECT_EQ(ZeFilMakePath(path.c_str(), created), ZE_UNUSABLE);
  EXPECT_FALSE(IsFolder("a"));
}

TEST_F(MakePathTest, OnlyABackslashEndsAServersName) {
  EXPECT_EQ(ZeFilMakePath("\\\\server/share/a", created), ZE_UNUSABLE);
}

TEST_F(MakePathTest, ServerNameHasAtLeastOneCharacterBeforeTheSearchForItsEnd) {
  EXPECT_EQ(ZeFilMakePath("\\\\\\a", created), ZE_UNUSABLE);
}

TEST_F(MakePathTest, ServerWithoutShareIsUnusable) {
  EXPECT_EQ(ZeFilMakePath("\\\\server", created), ZE_UNUSABLE);
}

#ifndef _WIN32
// Without servers, "\\server\share" is the folder /server/share here, which lets the walk be seen.
TEST_F(MakePathTest, KeepsTheShareAsTheFirstComponentToLookAt) {
  std::string path = "\\" + (folder() / "share" / "a").string();
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_EQ(ZeFilMakePath(path.c_str(), created), ZE_OK);
  EXPECT_STREQ(created, "\\share\\a");
  EXPECT_TRUE(fs::is_directory(folder() / "share" / "a"));
}

TEST_F(MakePathTest, NothingIsMadeWithoutDrives) {
  const std::string path = OnDriveC("a");
  unsetenv("ZEAPI_DRIVES");
  EXPECT_EQ(ZeFilMakePath(path.c_str(), created), ZE_UNUSABLE);
  setenv("ZEAPI_DRIVES", (folder() / "drives").c_str(), 1);
  EXPECT_FALSE(IsFolder("a"));
}
#endif

}  // namespace
}  // namespace zeapi::testing
