// A search for fonts under every failure of the system and of memory, one at a time. It has no
// code to report: whatever fails, the list is as long as the count, holds whole records only and
// can be released, nothing stays open, and the next search finds everything.
#include <filesystem>

#include "fault/each_failure.h"
#include "files/find_files.h"
#include "support/fonts.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

constexpr int kFonts = 4;

void ZEAPI_CALL Ignore(const ZeFontInfo*, std::uint32_t) {}

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
