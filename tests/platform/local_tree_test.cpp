#include "platform/local_tree.h"

#include <chrono>

#include "support/scratch.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

using platform::kNoFileHandle;

class LocalTreeTest : public ScratchTest {
 protected:
  // Windows keeps folders that are held.
  void TearDown() override {
    EXPECT_TRUE(tree.Enter(""));
    ScratchTest::TearDown();
  }

  bool Create(const std::string& name, const std::string& content = "x") {
    const platform::FileHandle file = tree.Create(name);
    if (file == kNoFileHandle) return false;
    const auto size = static_cast<std::uint32_t>(content.size());
    EXPECT_EQ(platform::HandleWrite(file, content.data(), size), static_cast<std::int32_t>(size));
    return platform::HandleClose(file);
  }

  platform::LocalTree tree;
};

TEST_F(LocalTreeTest, MakesFoldersThatAreMissing) {
  EXPECT_TRUE(tree.Enter("a/b/"));
  EXPECT_TRUE(Create("file"));
  EXPECT_TRUE(tree.Enter("a/c/"));
  EXPECT_TRUE(Create("file"));
  EXPECT_TRUE(tree.Enter(""));
  EXPECT_TRUE(Create("file"));
  EXPECT_EQ(ReadFile("a/b/file") + ReadFile("a/c/file") + ReadFile("file"), "xxx");
}

TEST_F(LocalTreeTest, EmptiesAFileThatIsThere) {
  WriteFile("file", "something longer");
  EXPECT_TRUE(Create("file"));
  EXPECT_EQ(ReadFile("file"), "x");
}

TEST_F(LocalTreeTest, FileIsNoFolderAndFolderIsNoFile) {
  WriteFile("file", "x");
  fs::create_directory("folder");
  EXPECT_FALSE(tree.Enter("file/"));
  EXPECT_FALSE(tree.Enter("folder/../file/x/"));
  EXPECT_TRUE(tree.Enter(""));
  EXPECT_FALSE(Create("folder"));
}

TEST_F(LocalTreeTest, FailureLeavesTheTreeUsable) {
  WriteFile("a", "x");
  EXPECT_FALSE(tree.Enter("a/b/"));
  EXPECT_TRUE(tree.Enter("c/"));
  EXPECT_TRUE(Create("file"));
  EXPECT_TRUE(fs::exists("c/file"));
}

TEST_F(LocalTreeTest, SparesTheFileThatItIsTold) {
  WriteFile("file", "old");
  WriteFile("empty", "");
  const platform::FileHandle file = platform::HandleOpen("file", platform::FileAccess::kRead);
  const platform::LocalTree sparing(file);
  EXPECT_EQ(sparing.Create("file"), kNoFileHandle);
  EXPECT_EQ(ReadFile("file"), "old");
  const platform::FileHandle other = sparing.Create("empty");
  EXPECT_NE(other, kNoFileHandle);
  EXPECT_TRUE(platform::HandleClose(other));
  EXPECT_TRUE(platform::HandleClose(file));
}

#ifdef _WIN32
TEST_F(LocalTreeTest, HoldsTheFoldersThatItIsIn) {
  ASSERT_TRUE(tree.Enter("a/b/"));
  std::error_code error;
  fs::rename("a/b", "a/c", error);
  EXPECT_TRUE(error);
  fs::rename("a", "c", error);
  EXPECT_TRUE(error);
  EXPECT_TRUE(Create("file"));
  EXPECT_TRUE(tree.Enter(""));
  fs::rename("a/b", "a/c", error);
  EXPECT_FALSE(error);
}
#endif

std::int64_t SecondsOf(const char* file) {
  const auto stamp = std::chrono::file_clock::to_sys(fs::last_write_time(file));
  return std::chrono::duration_cast<std::chrono::seconds>(stamp.time_since_epoch()).count();
}

TEST_F(LocalTreeTest, StampsInUtc) {
  ASSERT_TRUE(Create("file"));
  EXPECT_TRUE(tree.SetLastWrite("file", 1 << 5 | 1, 0));
  EXPECT_EQ(SecondsOf("file"), 315532800);  // 1 January 1980
  EXPECT_TRUE(tree.SetLastWrite("file", 50 << 9 | 12 << 5 | 31, 23 << 11 | 59 << 5 | 29));
  EXPECT_EQ(SecondsOf("file"), 1924991998);  // 31 December 2030, 23:59:58
  EXPECT_TRUE(tree.SetLastWrite("file", 20 << 9 | 2 << 5 | 29, 0));
  EXPECT_EQ(SecondsOf("file"), 951782400);  // 29 February 2000
}

TEST_F(LocalTreeTest, DatesThatAreNone) {
  ASSERT_TRUE(Create("file"));
  constexpr std::uint16_t kDay = 1 << 5 | 1;
  EXPECT_FALSE(tree.SetLastWrite("file", 0, 0));
  EXPECT_FALSE(tree.SetLastWrite("file", 1 << 5, 0));       // day 0
  EXPECT_FALSE(tree.SetLastWrite("file", 13 << 5 | 1, 0));  // month 13
  EXPECT_FALSE(tree.SetLastWrite("file", kDay, 24 << 11));
  EXPECT_FALSE(tree.SetLastWrite("file", kDay, 60 << 5));
  EXPECT_FALSE(tree.SetLastWrite("file", kDay, 30));
  EXPECT_FALSE(tree.SetLastWrite("none", kDay, 0));
}

#ifndef _WIN32
TEST_F(LocalTreeTest, LinksAreNotFollowed) {
  fs::create_directory("real");
  fs::create_directory_symlink("real", "link");
  WriteFile("target", "safe");
  fs::create_symlink("target", "file");
  EXPECT_FALSE(tree.Enter("link/"));
  EXPECT_TRUE(tree.Enter(""));
  EXPECT_FALSE(Create("file"));
  EXPECT_EQ(ReadFile("target"), "safe");
}

TEST_F(LocalTreeTest, LastDateThatThereIsAndLeapDaysThatAreNone) {
  ASSERT_TRUE(Create("file"));
  EXPECT_TRUE(tree.SetLastWrite("file", 127 << 9 | 12 << 5 | 31, 23 << 11 | 59 << 5 | 29));
  EXPECT_EQ(SecondsOf("file"), 4354819198);  // 31 December 2107, 23:59:58
  EXPECT_FALSE(tree.SetLastWrite("file", 1 << 9 | 2 << 5 | 29, 0));
}

TEST_F(LocalTreeTest, NamesKeepTheirCase) {
  WriteFile("File", "old");
  EXPECT_TRUE(Create("file"));
  EXPECT_EQ(ReadFile("File"), "old");
}
#endif

}  // namespace
}  // namespace zeapi::testing
