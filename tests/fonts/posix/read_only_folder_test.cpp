// Fonts in folders that may only be read, as fonts of the system are.
#include <cstring>

#include "support/metrics.h"
#include "support/posix/read_only.h"
#include "support/soft_fonts.h"
#include "support/tfm_file.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class ReadOnlyFontTest : public FontTest {
 protected:
  void SetUp() override {
    FontTest::SetUp();
    WriteAfmWithInf();
    WriteFile("font.pfm", PostScriptPfm{}.File());
    WriteFile("font.dlf", DlfFile{}.File());
    SoftFont soft(0);
    soft.AddBitmap('A', 120, 30, 24, 30);
    WriteFile("font.sfp", soft.File());
    WriteFile("font.tfm", TfmFile{}.File());
  }
};

TEST_F(ReadOnlyFontTest, EachConversionGivesOpenFailedForItsOutput) {
  SetMetricsFile("font.tfm");
  fs::create_directory("out");
  const std::pair<std::uint32_t, const char*> rows[] = {
      {1, "font.afm"}, {2, "font.afm"}, {3, "font.pfm"},  {4, "font.dlf"},
      {5, "font.sfp"}, {6, "font.sfp"}, {16, "font.sfp"}, {17, "font.sfp"}};
  {
    const ReadOnly folder({"out"});
    if (!folder.Binds()) GTEST_SKIP() << kUnbound;
    for (const auto& [conversion, font] : rows) {
      EXPECT_EQ(ZeFonConvert(font, "out\\new.fil", &info, 4, conversion), ZE_OPEN_FAILED)
          << conversion;
    }
  }
  EXPECT_TRUE(fs::is_empty("out"));
  for (const auto& [conversion, font] : rows) {
    EXPECT_EQ(ZeFonConvert(font, "out\\new.fil", &info, 4, conversion), ZE_OK) << "where it may";
  }
}

TEST_F(ReadOnlyFontTest, QueryAndSearchNeedNoDump) {
  const fs::path dump = DriveC() / "apifonts.txt";
  ASSERT_EQ(Query("font.sfp"), ZE_OK);
  const ZeFontInfo whole = info;
  fs::remove(dump);
  std::uint16_t count = 0;
  {
    const ReadOnly folders({".", DriveC()});
    if (!folders.Binds()) GTEST_SKIP() << kUnbound;
    EXPECT_EQ(Query("font.sfp"), ZE_OK);
    ZeFonFindFree(ZeFonFind(".", &count, 9, 5, 0, 0));
  }
  EXPECT_EQ(std::memcmp(&info, &whole, sizeof(info)), 0);
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(fs::exists(dump));
}

}  // namespace
}  // namespace zeapi::testing
