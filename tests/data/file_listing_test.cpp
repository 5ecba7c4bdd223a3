#include <algorithm>

#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class FileListingTest : public ScratchTest {
 protected:
  // "path: description" of each entry, sorted: the order is the host's.
  std::vector<std::string> List(const char* directory, std::uint32_t kind) {
    std::uint16_t count = 999;
    ZeDatFileInfo* list = ZeDatQueryFiles(directory, kind, &count);
    std::vector<std::string> entries;
    for (const ZeDatFileInfo* entry = list; entry != nullptr; entry = entry->next) {
      entries.push_back(std::string(entry->path) + ": " + entry->description);
    }
    EXPECT_EQ(count, entries.size());
    ZeDatQueryFilesFree(list);
    std::sort(entries.begin(), entries.end());
    return entries;
  }
  std::string Description(std::string_view text) {
    WriteFile("file.cfg", text);
    const std::vector<std::string> entries = List("", 1);
    return entries.empty() ? "<not listed>"
                           : entries[0].substr(std::string(".\\file.cfg: ").size());
  }
};

using Strings = std::vector<std::string>;

TEST_F(FileListingTest, ListsFilesWithADescription) {
  fs::create_directory("d");
  WriteFile("d/tray.pss", "#!Setup for tray 2\n#!second\n");
  WriteFile("d/none.pss", "# Setup\n#!too late\n");
  WriteFile("d/other.cfg", "x #!Other");
  WriteFile("d/all.txt", "#!All");
  EXPECT_EQ(List("d", 2), Strings{"d\\tray.pss: Setup for tray 2"});
  EXPECT_EQ(List("d\\", 1), Strings{"d\\other.cfg: Other"});
  EXPECT_EQ(List("d", 3),
            (Strings{"d\\all.txt: All", "d\\other.cfg: Other", "d\\tray.pss: Setup for tray 2"}));
  EXPECT_EQ(List("d", 0).size(), 3U);
}

TEST_F(FileListingTest, EmptyDirectoryMeansTheCurrentOne) {
  WriteFile("a.cfg", "#!A\n");
  EXPECT_EQ(List("", 1), Strings{".\\a.cfg: A"});
}

TEST_F(FileListingTest, NamesThatBeginWithADotAndFoldersAreLeftOut) {
  WriteFile(".hidden.cfg", "#!hidden\n");
  fs::create_directory("folder.cfg");
  EXPECT_EQ(List("", 1), Strings{});
  EXPECT_EQ(List("missing", 1), Strings{});
}

TEST_F(FileListingTest, DescriptionHasAtMost47Characters) {
  EXPECT_EQ(Description("#!" + std::string(47, 'd') + "\n"), std::string(47, 'd'));
  EXPECT_EQ(Description("#!" + std::string(60, 'd') + "\n"), std::string(47, 'd'));
}

TEST_F(FileListingTest, DescriptionIsWhatStandsBehindTheFirstMark) {
  EXPECT_EQ(Description("text #! a #!b"), " a #!b");
  EXPECT_EQ(Description("##!a\r\n"), "a");
  EXPECT_EQ(Description("#!\n"), "<not listed>");
  EXPECT_EQ(Description("#\n!a\n"), "<not listed>");
  EXPECT_EQ(Description(""), "<not listed>");
  EXPECT_EQ(Description(std::string("#!a\0b\n", 6)), "a");
  EXPECT_EQ(Description(std::string("\0#!a\n", 5)), "<not listed>");
}

TEST_F(FileListingTest, FirstLineIsLookedAtFor4096Characters) {
  EXPECT_EQ(Description(std::string(4093, 'x') + "#!ab"), "a");
  EXPECT_EQ(Description(std::string(4094, 'x') + "#!ab"), "<not listed>");
}

#ifndef _WIN32  // where no path is as long, from the drive on
TEST_F(FileListingTest, FileWhosePathDoesNotFitIsLeftOut) {
  std::string folders;
  for (int i = 0; i < 4; ++i) {
    folders += std::string(60, static_cast<char>('a' + i)) + "/";
    fs::create_directory(folders);
  }
  std::string directory = folders;
  std::replace(directory.begin(), directory.end(), '/', '\\');  // 244 characters
  WriteFile(folders + "0123456789a.cfg", "#!fits\n");           // 259
  WriteFile(folders + "0123456789ab.cfg", "#!too long\n");
  EXPECT_EQ(List(directory.c_str(), 1), Strings{directory + "0123456789a.cfg: fits"});
}
#endif

TEST_F(FileListingTest, NullArgumentsGiveNoList) {
  WriteFile("a.cfg", "#!A\n");
  std::uint16_t count = 999;
  EXPECT_EQ(ZeDatQueryFiles(nullptr, 1, &count), nullptr);
  EXPECT_EQ(count, 999);
  EXPECT_EQ(ZeDatQueryFiles("", 1, nullptr), nullptr);
  ZeDatQueryFilesFree(nullptr);
}

}  // namespace
}  // namespace zeapi::testing
