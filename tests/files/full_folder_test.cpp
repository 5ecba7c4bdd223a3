// The search for files in folders of more files than a search finds. The folders are doubles: to
// make the files would cost seconds.
#include <gtest/gtest.h>

#include <span>

#include "files/find_files.h"
#include "support/full_folder.h"

namespace zeapi::testing {
namespace {

constexpr int kMost = 32767;

class FullFolderTest : public ::testing::Test {
 protected:
  using Paths = std::vector<std::string>;

  void SetUp() override { FullFolders().clear(); }
  void TearDown() override { FullFolders().clear(); }

  // The files found, the one found last first.
  Paths Find(bool recurse) {
    const FoundFiles found = FindFiles(
        "top", ZE_FOUND_DEMO, recurse,
        [this](const char* path, std::span<const std::byte>*) {
          checked.emplace_back(path);
          return true;
        },
        &count);
    Paths paths;
    for (const ZeFoundFile* file = found.get(); file != nullptr; file = file->next) {
      paths.emplace_back(static_cast<const char*>(file->path));
    }
    return paths;
  }

  std::int16_t count = 0;
  Paths checked;
};

TEST_F(FullFolderTest, NoLimitIsTheMostFilesThatACountCanTell) {
  FullFolders()["top\\*.*"] = {{}, kMost + 1};
  const Paths paths = Find(false);
  ASSERT_EQ(paths.size(), static_cast<std::size_t>(kMost));
  EXPECT_EQ(paths.front(), "top\\32767");
  EXPECT_EQ(paths.back(), "top\\1");
  EXPECT_EQ(count, kMost);
  EXPECT_EQ(checked.size(), paths.size());
}

TEST_F(FullFolderTest, SearchWithinThatFindsTheMostFilesEndsTheOuterOneWithItsNextFile) {
  FullFolders()["top\\*.*"] = {{"within"}, 2};
  FullFolders()["top\\within\\*.*"] = {{}, kMost + 1};
  EXPECT_EQ(Find(true), Paths{"top\\1"}) << "the files within are not listed";
  EXPECT_EQ(count, kMost) << "counted no further";
  ASSERT_EQ(checked.size(), kMost + 1U) << "not the last within, nor the second after it";
  EXPECT_EQ(checked[kMost - 1], "top\\within\\32767");
  EXPECT_EQ(checked[kMost], "top\\1");
}

TEST_F(FullFolderTest, SearchAfterAFullOneWithinGetsTheMostFilesForItsLimit) {
  FullFolders()["top\\*.*"] = {{"a", "b"}, 0};
  FullFolders()["top\\a\\*.*"] = {{}, kMost + 1};
  FullFolders()["top\\b\\*.*"] = {{}, kMost + 1};
  EXPECT_EQ(Find(true), Paths{});
  EXPECT_EQ(count, kMost);
  EXPECT_EQ(checked.size(), 2U * kMost);
}

}  // namespace
}  // namespace zeapi::testing
