#include "files/find_files.h"

#include <cstdlib>
#include <cstring>

#include "support/scratch.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

// Files whose names begin with "no" do not pass; the record of the others is their last letter.
class FindFilesTest : public ScratchTest {
 protected:
  void SetUp() override {
    ScratchTest::SetUp();
    fs::create_directory("top");
  }

  static void WriteFiles(const std::string& folder, std::initializer_list<const char*> names) {
    for (const char* name : names) WriteFile(fs::path(folder) / name, name);
  }

  // The paths found, the one found last first.
  std::vector<std::string> Find(const char* folder, bool recurse = false) {
    found = FindFiles(
        folder, ZE_FOUND_MACRO, recurse,
        [this](const char* path, std::span<const std::byte>* record) {
          checked.emplace_back(path);
          letter = std::byte(path[std::strlen(path) - 1]);
          *record = {&letter, 1};
          return checked.back().find("no") == std::string::npos;
        },
        &count);
    std::vector<std::string> paths;
    for (const ZeFoundFile* file = found.get(); file != nullptr; file = file->next) {
      paths.emplace_back(static_cast<const char*>(file->path));
    }
    return paths;
  }

  using Paths = std::vector<std::string>;

  std::int16_t count = 0;
  FoundFiles found;
  Paths checked;
  std::byte letter = {};
};

TEST_F(FindFilesTest, NodeTellsPathKindSizeAndRecord) {
  WriteFiles("top", {"first.b"});
  ASSERT_EQ(Find("top"), Paths{"top\\first.b"});
  EXPECT_EQ(+found->kind, 3U);
  EXPECT_EQ(+found->size, 7U);
  EXPECT_EQ(found->rootLength, 4);
  EXPECT_TRUE(found->next == nullptr);
  ASSERT_TRUE(found->info != nullptr);
  EXPECT_EQ(*static_cast<const char*>(found->info), 'b');
}

TEST_F(FindFilesTest, EmptyRecordGivesNoInfo) {
  WriteFiles("top", {"a"});
  found = FindFiles(
      "top", ZE_FOUND_DEMO, false, [](const char*, std::span<const std::byte>*) { return true; },
      &count);
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->info == nullptr);
}

TEST_F(FindFilesTest, ListRunsFromTheLastToTheFirst) {
  WriteFiles("top", {"a", "b", "c", "no"});
  EXPECT_EQ(Find("top"), (Paths{"top\\c", "top\\b", "top\\a"}));
  EXPECT_EQ(count, 3);
  EXPECT_EQ(checked.size(), 4U);
}

TEST_F(FindFilesTest, TrailingSeparatorCountsInTheRootOnce) {
  WriteFiles("top", {"a"});
  EXPECT_EQ(Find("top\\"), Paths{"top\\a"});
  EXPECT_EQ(found->rootLength, 4);
  EXPECT_EQ(Find("top/"), Paths{"top/a"});
  EXPECT_EQ(found->rootLength, 4);
}

TEST_F(FindFilesTest, RootLengthHasEightBits) {
  WriteFiles("top", {"a"});
  std::string folder = "top";
  while (folder.size() < 253) folder.insert(0, ".\\");
  EXPECT_EQ(Find(folder.c_str()), Paths{folder + "\\a"});
  EXPECT_EQ(found->rootLength, 254);
  folder.insert(0, ".\\");
  EXPECT_EQ(Find(folder.c_str()), Paths{folder + "\\a"});
  EXPECT_EQ(found->rootLength, 0);
}

TEST_F(FindFilesTest, NamesThatBeginWithADotAreSkipped) {
  WriteFiles("top", {".hidden", "a"});
  EXPECT_EQ(Find("top"), Paths{"top\\a"});
  EXPECT_EQ(checked.size(), 1U);
}

TEST_F(FindFilesTest, StopsAtTheLimit) {
  WriteFiles("top", {"a", "b", "c", "d", "no"});
  count = 2;
  EXPECT_EQ(Find("top"), (Paths{"top\\b", "top\\a"}));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(checked.size(), 2U);
}

TEST_F(FindFilesTest, ANegativeLimitIsNone) {
  WriteFiles("top", {"a", "b"});
  count = -1;
  Find("top");
  EXPECT_EQ(count, 2);
}

TEST_F(FindFilesTest, FolderThatCannotBeSearchedIsEmpty) {
  count = 5;
  EXPECT_EQ(Find("missing"), Paths{});
  EXPECT_EQ(count, 0);
}

TEST_F(FindFilesTest, FoldersWithinAreLeftAlone) {
  fs::create_directory("top/sub");
  WriteFiles("top/sub", {"inner"});
  EXPECT_EQ(Find("top"), Paths{});
  EXPECT_EQ(checked, Paths{});
}

TEST_F(FindFilesTest, KeepsFilesOfFoldersWithinOutOfTheList) {
  fs::create_directories("top/m/deep");
  WriteFiles("top", {"a", "z"});
  WriteFiles("top/m", {"b", "c"});
  WriteFiles("top/m/deep", {"d"});
  EXPECT_EQ(Find("top", true), (Paths{"top\\z", "top\\a"}));
  EXPECT_EQ(checked, (Paths{"top\\a", "top\\m\\b"  // 1 is the limit of the search within
                            ,
                            "top\\z"}));
  EXPECT_EQ(count, 2);
}

TEST_F(FindFilesTest, KeepsTheCountOfTheLastSearchWithin) {
  fs::create_directories("top/a");
  WriteFiles("top", {"m", "z"});
  WriteFiles("top/a", {"1", "2", "3"});
  EXPECT_EQ(Find("top", true), (Paths{"top\\z", "top\\m"}));
  EXPECT_EQ(count, 5);
}

TEST_F(FindFilesTest, SearchWithinTakesTheCountForItsLimitAndCanPassTheOuterOne) {
  fs::create_directories("top/a");
  WriteFiles("top", {"m", "z"});
  WriteFiles("top/a", {"1", "2", "3"});
  count = 2;
  EXPECT_EQ(Find("top", true), Paths{"top\\m"}) << "the count is past the limit: the search ends";
  EXPECT_EQ(count, 4);
}

// The place of a folder within is taken from what ends in the last backslash.
TEST_F(FindFilesTest, KeepsLosingTheFolderBehindTheLastBackslash) {
  fs::create_directories("top/sub/x");
  fs::create_directories("top/x");
  WriteFiles("top/sub/x", {"far"});
  WriteFiles("top/x", {"near"});
  Find("top\\sub/", true);
  EXPECT_EQ(checked, Paths{"top\\x\\near"});
  checked.clear();
  Find("top/sub/", true);
  EXPECT_EQ(checked, Paths{"top/sub/x\\far"}) << "no backslash: the folder as it is";
}

TEST_F(FindFilesTest, PathThatDoesNotFitANodeIsLeftOut) {
  const std::string folder = "top\\" + std::string(100, 'f') + "\\" + std::string(100, 'g');
  fs::create_directories("top/" + std::string(100, 'f') + "/" + std::string(100, 'g'));
  fs::path place = fs::path("top") / std::string(100, 'f') / std::string(100, 'g');
  WriteFile(place / std::string(259 - folder.size() - 1, 'a'), "");
  WriteFile(place / std::string(260 - folder.size() - 1, 'b'), "");
  const Paths paths = Find(folder.c_str());
  ASSERT_EQ(paths.size(), 1U);
  EXPECT_EQ(paths[0].size(), 259U);
  EXPECT_EQ(checked.size(), 1U);
}

#ifndef _WIN32
TEST_F(FindFilesTest, LinkedFolderCountsAsAFile) {
  fs::create_directory_symlink(".", "top/loop");
  Find("top", true);
  EXPECT_EQ(checked, Paths{"top\\loop"});
}
#endif

TEST_F(FindFilesTest, ReleasesEachKindOfNode) {
  FoundFiles list;
  ZeFontInfo font = {};
  font.cartridge = static_cast<ZeCartridge*>(std::calloc(1, sizeof(ZeCartridge)));
  font.cartridge->fonts = static_cast<ZeCartridgeFont*>(std::calloc(1, sizeof(ZeCartridgeFont)));
  ASSERT_NE(AddFoundFile("font", ZE_FOUND_FONT, std::as_bytes(std::span(&font, 1)), &list),
            nullptr);
  ASSERT_NE(AddFoundFile("bare", ZE_FOUND_FONT, {}, &list), nullptr);
  ASSERT_NE(AddFoundFile("demo", ZE_FOUND_DEMO, {}, &list), nullptr);
  const std::byte option[40] = {};
  ASSERT_NE(AddFoundFile("macro", ZE_FOUND_MACRO, option, &list), nullptr);
  EXPECT_STREQ(list->next->next->next->path, "font");
  ZeFonFindFree(list.release());  // the sanitizers tell what was missed
  ZeFonFindFree(nullptr);
}

}  // namespace
}  // namespace zeapi::testing
