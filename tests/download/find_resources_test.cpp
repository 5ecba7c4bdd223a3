#include <algorithm>
#include <cstring>
#include <memory>

#include "support/job.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

struct Release {
  void operator()(ZeFoundFile* first) const { ZeFonFindFree(first); }
};
using List = std::unique_ptr<ZeFoundFile, Release>;

std::vector<std::string> Paths(const List& list) {
  std::vector<std::string> paths;
  for (const ZeFoundFile* file = list.get(); file != nullptr; file = file->next) {
    paths.push_back(file->path);
  }
  return paths;
}

class FindTest : public JobTest {
 protected:
  using Strings = std::vector<std::string>;

  void SetUp() override {
    JobTest::SetUp();
    fs::create_directory("folder");
  }
  void Put(const std::string& name, std::string_view content = "text") {
    WriteFile(fs::path("folder") / name, content);
  }
  // The names found, sorted: file systems have orders of their own.
  Strings Sorted(const List& list) {
    Strings paths = Paths(list);
    std::sort(paths.begin(), paths.end());
    return paths;
  }
  List Demos(const char* folder = "folder", std::uint32_t recurse = 0) {
    return List(ZeDemFind(folder, &count, 0, recurse));
  }
  List Macros(std::uint32_t kind = ZE_LANGUAGE_PCL, std::uint32_t recurse = 0) {
    return List(ZeMacFind("folder", &count, kind, 0, recurse));
  }

  std::int16_t count = 0;
};

// --- Demos

TEST_F(FindTest, InvalidArgumentsFindNothingAndLeaveTheCount) {
  Put("a");
  count = 7;
  const std::string name(261, 'n');
  EXPECT_EQ(ZeDemFind(nullptr, &count, 0, 0), nullptr);
  EXPECT_EQ(ZeDemFind("folder", nullptr, 0, 0), nullptr);
  EXPECT_EQ(ZeDemFind(name.c_str(), &count, 0, 0), nullptr);
  EXPECT_EQ(ZeMacFind(nullptr, &count, 5, 0, 0), nullptr);
  EXPECT_EQ(ZeMacFind("folder", nullptr, 5, 0, 0), nullptr);
  EXPECT_EQ(ZeMacFind(name.c_str(), &count, 5, 0, 0), nullptr);
  EXPECT_EQ(ZeMacFind("folder", &count, 0, 0, 0), nullptr);
  EXPECT_EQ(ZeMacFind("folder", &count, 7, 0, 0), nullptr);
  EXPECT_EQ(count, 7);
  EXPECT_FALSE(fs::exists("fixup.mac"));
}

TEST_F(FindTest, FolderThatCannotBeSearchedIsEmpty) {
  count = 7;
  EXPECT_EQ(Demos("missing"), nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(Demos(), nullptr);
}

TEST_F(FindTest, DemosAreAllButSystemFilesAndHiddenNames) {
  for (const char* name : {"a.txt", "b", "c.INI", "d.exe", "e.Sys", ".f", "g.pcl"}) Put(name);
  const List list = Demos();
  EXPECT_EQ(Sorted(list), (Strings{"folder\\a.txt", "folder\\b", "folder\\g.pcl"}));
  EXPECT_EQ(count, 3);
}

TEST_F(FindTest, NodeOfADemo) {
  Put("page.pcl", "12345");
  const List list = Demos();
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(list->kind == ZE_FOUND_DEMO);
  EXPECT_TRUE(list->info == nullptr);
  EXPECT_TRUE(list->next == nullptr);
  EXPECT_TRUE(list->size == 5);
  EXPECT_EQ(list->rootLength, 7);
  EXPECT_STREQ(list->path, "folder\\page.pcl");
}

TEST_F(FindTest, TrailingSeparatorFindsTheSameFiles) {
  Put("page.pcl");
  for (const char* folder : {"folder\\", "folder/"}) {
    const List list = Demos(folder);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->path, folder + std::string("page.pcl"));
    EXPECT_EQ(list->rootLength, 7);
  }
}

TEST_F(FindTest, LimitEndsTheSearch) {
  for (const char* name : {"a", "b", "c", "d", "e"}) Put(name);
  const Strings all = Paths(Demos());
  ASSERT_EQ(all.size(), 5U);
  count = 2;
  const List list = Demos();
  EXPECT_EQ(Paths(list), (Strings{all[3], all[4]}));  // the last ones of the list were found first
  EXPECT_EQ(count, 2);
}

TEST_F(FindTest, KeepsFilesOfFoldersWithinToThemselves) {
  Put("a.txt");
  fs::create_directories("folder/within");
  Put("within/b.txt");
  EXPECT_EQ(Paths(Demos("folder", 1)), Strings{"folder\\a.txt"});
  EXPECT_EQ(Paths(Demos("folder", 0)), Strings{"folder\\a.txt"});
  EXPECT_EQ(count, 1);
}

// --- Macros

TEST_F(FindTest, MacrosAreWhatMayBeStored) {
  Put("plain");
  Put("page.pcl", "\x1B*b2W\x1B\x1B");
  Put("stop.pcl", "\x1B&f1X");
  Put("open.pcl", "\x1B%0B");
  Put("cut.pcl", "\x1B&l");
  Put("macro.exe");
  const List list = Macros();
  EXPECT_EQ(Sorted(list), (Strings{"folder\\page.pcl", "folder\\plain"}));
  EXPECT_EQ(count, 2);
}

TEST_F(FindTest, NodeOfAMacroHasTheRecordOfItsValidation) {
  Put("page.pcl");
  const List list(ZeMacFind("folder", &count, ZE_LANGUAGE_PCL, 0x12345678, 0));
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(list->kind == ZE_FOUND_MACRO);
  ASSERT_TRUE(list->info != nullptr);
  ZeMacroInfo expected = {};
  expected.macroFlags = 0x18;
  EXPECT_EQ(std::memcmp(list->info, &expected, sizeof(expected)), 0);
}

TEST_F(FindTest, EveryKindButPclXlIsCheckedAsPcl) {
  Put("page.ps", "%!PS\n");
  Put("stop.pcl", "\x1B&f1X");
  for (std::uint32_t kind = 1; kind <= 5; ++kind) {
    EXPECT_EQ(Paths(Macros(kind)), Strings{"folder\\page.ps"}) << kind;
  }
}

TEST_F(FindTest, KeepsPclXlMacrosUnfound) {
  Put("stream.pxl", ") HP-PCL XL;1;1;\nmore");
  EXPECT_EQ(Macros(ZE_LANGUAGE_PCLXL), nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_FALSE(fs::exists("fixup.mac"));
}

TEST_F(FindTest, NoOptionIsInForce) {
  Put("page.pcl",
      "\x1B"
      "Etext\x0C");
  EXPECT_NE(Macros(), nullptr);
  EXPECT_BYTES(ReadFile("fixup.mac"),
               "\x1B"
               "Etext\x0C");
}

TEST_F(FindTest, WorkFileIsNeverListed) {
  WriteFile("page.pcl", "text");
  WriteFile("fixup.mac", "old");
  const List list(ZeMacFind(".", &count, ZE_LANGUAGE_PCL, 0, 0));
  EXPECT_EQ(Paths(list), Strings{".\\page.pcl"});
  EXPECT_EQ(count, 1);
}

TEST_F(FindTest, LimitOfMacrosCountsThoseThatPass) {
  Put("a.pcl", "\x1B&f1X");
  Put("b.pcl", "\x1B&f1X");
  Put("c.pcl");
  count = 1;
  EXPECT_EQ(Paths(Macros()), Strings{"folder\\c.pcl"});
}

TEST_F(FindTest, WorkFileThatCannotBeMadeFindsNothing) {
  Put("a.pcl");
  fs::create_directory("fixup.mac");
  EXPECT_EQ(Macros(), nullptr);
}

}  // namespace
}  // namespace zeapi::testing
