// A search for fonts under every failure of the system and of memory, one at a time. It has no
// code to report: whatever fails, the list is as long as the count, holds whole records only and
// can be released, nothing stays open, and the next search finds everything. The process ends with
// no block left: the sanitizers tell of a node that a search has lost.
#include <filesystem>
#include <set>

#include "fault/each_failure.h"
#include "files/find_files.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr int kFonts = 4;

void ZEAPI_CALL Ignore(const ZeFontInfo*, std::uint32_t) {}

int fontsTold;
void ZEAPI_CALL CountFonts(const ZeFontInfo* font, std::uint32_t) {
  if (font != nullptr) ++fontsTold;
}

class FindFaultTest : public ScratchTest {
 protected:
  // Fails each call of `find`, which gives a list and its count, in turn.
  template <typename Find>
  void FailEachInTurn(int files, Find find) {
    int found = 0;
    int tries = 0;
    EachFailure([] {}, [&] { found = find(); },
                [&](const std::string& failed) {
                  ++tries;
                  EXPECT_GE(found, failed.empty() ? files : 0);
                  EXPECT_LE(found, files);
                  EXPECT_EQ(find(), files);
                });
    EXPECT_GT(tries, files);
  }

  static int Nodes(const ZeFoundFile* file) {
    int nodes = 0;
    for (; file != nullptr; file = file->next) ++nodes;
    return nodes;
  }
};

TEST_F(FindFaultTest, Fonts) {
  fs::create_directories("fonts/sub");
  WriteFile("one.sfp", PclFontFile{}.File());
  WriteFile("fonts/GLUE.TXT", "[PCL fonts]\n{O}\nFONT = One\n/font file = one.sfp\n");
  PclFontFile scalable;
  scalable.headerFormat = 11;
  scalable.size = 88;
  WriteFile("fonts/abcd.sfp", scalable.File());
  WriteFile("fonts/ABC0000S.TFM", "x");
  PcmFile cartridge;
  cartridge.entries = {PfmFile{}.File()};
  WriteFile("fonts/cart.pcm", cartridge.File());
  for (const bool told : {false, true}) {
    FailEachInTurn(kFonts, [told] {
      std::uint16_t count = 0;
      ZeFoundFile* first = told ? TRIED(ZeFonFind2)("fonts", &count, 26, 5, 0, 0, &Ignore)
                                : TRIED(ZeFonFind)("fonts", &count, 26, 5, 0, 0);
      const int nodes = Nodes(first);
      EXPECT_EQ(nodes, count);
      for (const ZeFoundFile* file = first; file != nullptr; file = file->next) {
        EXPECT_NE(static_cast<const ZeFontInfo*>(file->info)->description[0], '\0');
      }
      TRIED(ZeFonFindFree)(first);
      return nodes;
    });
  }
}

// --- What is read once however often it is asked for

class FindOnceTest : public ScratchTest {
 protected:
  // How often a search for fonts calls a function of the system.
  static int Calls(const char* function, const char* folder) {
    ZeFoundFile* first = nullptr;
    FailurePoints points = EachFailure([] {},
                                       [&] {
                                         std::uint16_t count = 0;
                                         first = TRIED(ZeFonFind)(folder, &count, 26, 5, 0, 0);
                                       },
                                       [&](const std::string&) { ZeFonFindFree(first); });
    return points[function];
  }
};

TEST_F(FindOnceTest, FontFilesThatGlueNamesOften) {
  fs::create_directory("fonts");
  WriteFile("a.pfa", "no name\n");
  WriteFile("b.pfa", "/FontName /Name def\n");
  PclFontFile scalable;
  scalable.headerFormat = 11;
  WriteFile("c.sfp", scalable.File());
  std::string entries = "{a.pfa\n{b.pfa\n";
  std::string fonts = "[PCL fonts]\n{O}\nFONT = c\n/font file = c.sfp\n";
  std::set<int> opened;
  for (int times = 0; times < 3; ++times) {
    WriteFile("fonts/GLUE.TXT", "[Cartridge]\n" + entries + fonts);
    opened.insert(Calls("open", "fonts"));
    entries += entries;
    fonts += "FONT = c\n/font file = c.sfp\n";
  }
  EXPECT_EQ(opened.size(), 1U);
}

TEST_F(FindOnceTest, FolderThatIsSpelledInAnotherCase) {
  fs::create_directory("fonts");
  std::set<int> opened;
  for (const char* name : {"a.pfa", "b.pfa", "c.pfa", "d.pfa"}) {
    WriteFile(fs::path("fonts") / name, "no name\n");
    opened.insert(Calls("opendir", "FONTS"));
  }
  EXPECT_EQ(opened.size(), 1U);
}

// --- Memory that ends midway

class FindMemoryTest : public ScratchTest {
 protected:
  static constexpr int kMost = 20;  // fonts wanted, more than there are

  void SetUp() override {
    ScratchTest::SetUp();
    fs::create_directories("fonts/m");
  }
  static void WriteFonts(std::initializer_list<const char*> names) {
    for (const char* name : names) WriteFile(fs::path("fonts") / (std::string(name) + ".ttf"), "x");
  }

  // Fails each allocation of a search in turn. `check` gets the list, the one found last first, and
  // the count.
  using Names = std::vector<std::string>;
  static void FailEachAllocation(bool recurse,
                                 const std::function<void(const Names&, int count)>& check) {
    const std::set<std::string> memory = {"new", "malloc", "calloc"};
    ZeFoundFile* first = nullptr;
    std::uint16_t count = 0;
    int tries = 0;
    EachFailure(
        [&] {
          count = kMost;
          fontsTold = 0;
        },
        [&] { first = TRIED(ZeFonFind2)("fonts", &count, 26, 5, 0, recurse ? 1 : 0, &CountFonts); },
        [&](const std::string& failed) {
          Names names;
          for (const ZeFoundFile* file = first; file != nullptr; file = file->next) {
            names.push_back(fs::path(std::string(file->path).substr(6)).stem().string());
          }
          ZeFonFindFree(first);
          if (memory.count(failed) == 0) return;
          ++tries;
          check(names, count);
        });
    EXPECT_GT(tries, 10);
  }
};

TEST_F(FindMemoryTest, FontsFoundBeforeAreKept) {
  WriteFonts({"a", "b", "c", "d"});
  std::set<std::size_t> lengths;
  FailEachAllocation(false, [&](const Names& names, int count) {
    const Names all = {"d", "c", "b", "a"};
    EXPECT_EQ(names, Names(all.end() - static_cast<std::ptrdiff_t>(names.size()), all.end()));
    EXPECT_EQ(count, static_cast<int>(names.size()));
    // A font is told just before its node is made.
    const int told = fontsTold;
    EXPECT_TRUE(told == count || told == count + 1) << told << " told, " << count << " listed";
    lengths.insert(names.size());
  });
  EXPECT_EQ(lengths, (std::set<std::size_t>{0, 1, 2, 3, 4}));
}

// What was found within is dropped, never lost, and what the folder itself holds is kept.
TEST_F(FindMemoryTest, FontsFoundAroundAFolderWithinAreKept) {
  WriteFonts({"a", "b", "m/1", "m/2", "z"});
  std::set<Names> lists;
  FailEachAllocation(true, [&](const Names& names, int count) {
    lists.insert(names);
    EXPECT_LE(count, 3) << "2 within, and 1 after them";
  });
  EXPECT_EQ(lists, (std::set<Names>{{}, {"a"}, {"b", "a"}, {"z", "b", "a"}}));
}

// The count is then no longer the number of fonts wanted.
TEST_F(FindMemoryTest, NothingIsCountedWhenMemoryEndsInTheCountOfTheFiles) {
  WriteFonts({"a"});
  int empty = 0;
  FailEachAllocation(false, [&](const Names& names, int count) {
    if (!names.empty()) return;
    ++empty;
    EXPECT_EQ(count, 0);
  });
  EXPECT_GT(empty, 1);
}

// The other searches have no list to give then; the count stays as it stood.
TEST_F(FindMemoryTest, DemosFoundBeforeAreLostWithTheNodeThatCannotBeHad) {
  WriteFonts({"a", "b", "c"});
  ZeFoundFile* first = nullptr;
  std::int16_t count = 0;
  std::vector<int> counts;
  EachFailure([&] { count = kMost; }, [&] { first = TRIED(ZeDemFind)("fonts", &count, 0, 0); },
              [&](const std::string& failed) {
                if (failed == "calloc") {
                  EXPECT_EQ(first, nullptr);
                  counts.push_back(count);
                }
                ZeFonFindFree(first);
              });
  EXPECT_EQ(counts, (std::vector<int>{0, 1, 2}));
}

TEST_F(FindFaultTest, OtherFiles) {
  fs::create_directories("files/sub");
  for (const char* name : {"files/a", "files/b", "files/sub/c"}) WriteFile(name, name);
  FailEachInTurn(2, [] {
    std::int16_t count = 0;
    try {
      const std::byte record[40] = {};
      const auto check = [&record](const char*, std::span<const std::byte>* bytes) {
        *bytes = record;
        return true;
      };
      const FoundFiles found = FindFiles("files", ZE_FOUND_MACRO, true, check, &count);
      return Nodes(found.get());
    } catch (const std::bad_alloc&) {  // an export's guard makes it an empty list
      return 0;
    }
  });
}

}  // namespace
}  // namespace zeapi::testing
